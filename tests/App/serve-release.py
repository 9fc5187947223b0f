#!/usr/bin/python3
"""Serves an icon set release made from a Pictray catalogue, laid out as the
CDN lays out the npm package, for the updater of a running Pictray:

  serve-release.py CATALOGUE VERSION DROP PORT_FILE

The release holds the catalogue's icons except the last DROP outline icons,
so that its counts differ from the catalogue's. The server listens on a free
local port, which it writes to PORT_FILE once it accepts connections.
"""
import http.server
import os
import json
import sys


def package_files(catalogue, drop):
    icons = catalogue["icons"]
    outline = [icon for icon in icons if icon.get("o")]
    dropped = {icon["n"] for icon in outline[len(outline) - drop:]}
    meta, outline_nodes, filled_nodes = {}, {}, {}
    for icon in icons:
        name = icon["n"]
        meta[name] = {"category": icon.get("c", ""), "tags": icon.get("t", [])}
        if icon.get("o") and name not in dropped:
            outline_nodes[name] = [["path", {"d": d}] for d in icon["o"]]
        if icon.get("f"):
            filled_nodes[name] = [["path", {"d": d}] for d in icon["f"]]
    return {
        "icons.json": meta,
        "tabler-nodes-outline.json": outline_nodes,
        "tabler-nodes-filled.json": filled_nodes,
    }


def main(catalogue_path, version, drop, port_file):
    with open(catalogue_path, encoding="utf-8") as f:
        files = package_files(json.load(f), int(drop))
    bodies = {f"/npm/@tabler/icons@{version}/{name}": json.dumps(data).encode()
              for name, data in files.items()}
    bodies["/latest"] = json.dumps({"version": version}).encode()

    class Handler(http.server.BaseHTTPRequestHandler):
        def do_GET(self):
            body = bodies.get(self.path.split("?")[0])
            self.send_response(200 if body is not None else 404)
            self.send_header("Content-Type", "application/json")
            self.send_header("Content-Length", str(len(body or b"")))
            self.end_headers()
            self.wfile.write(body or b"")

        def log_message(self, *args):
            pass

    server = http.server.HTTPServer(("127.0.0.1", 0), Handler)
    with open(port_file + ".part", "w", encoding="ascii") as f:
        f.write(str(server.server_address[1]))
    os.replace(port_file + ".part", port_file)
    server.serve_forever()


if __name__ == "__main__":
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    main(*sys.argv[1:])
