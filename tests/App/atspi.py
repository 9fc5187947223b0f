#!/usr/bin/python3
"""Reads and drives Pictray's windows through the accessibility bus, as a
screen reader does: controls are found by role and name, never by position.

  atspi.py missing WINDOW ROLE:NAME...   prints the controls not found in the
                                         window, fails when there are any
  atspi.py do WINDOW ROLE:NAME ACTION    runs a control's action (Press, Toggle)
  atspi.py center WINDOW ROLE:NAME       prints the control's centre on screen
  atspi.py selected WINDOW ROLE:NAME     fails unless the control is selected

A ROLE:NAME of the form ROLE:NAME@DESCRIPTION also matches the description,
for controls that share a name. WINDOW is a window title; "*" is any window.
Every command waits up to ten seconds for what it looks for.
"""
import sys
import time

import pyatspi

APPLICATION = "Pictray"
PATIENCE = 10.0


def application():
    for app in pyatspi.Registry.getDesktop(0):
        if app is not None and app.name == APPLICATION:
            return app
    return None


def windows(title):
    app = application()
    if app is None:
        return []
    return [w for w in app if w is not None and (title == "*" or w.name == title)
            and w.getState().contains(pyatspi.STATE_SHOWING)]


def descendants(node):
    for child in node:
        if child is None:
            continue
        yield child
        yield from descendants(child)


def parse(wanted):
    role, _, rest = wanted.partition(":")
    name, _, description = rest.partition("@")
    return role, name, description


def matches(node, role, name, description):
    try:
        return (node.getRoleName() == role and node.name == name
                and (not description or node.description == description))
    except Exception:  # a control that went away while it was read
        return False


def find(title, wanted):
    role, name, description = parse(wanted)
    for window in windows(title):
        for node in descendants(window):
            if matches(node, role, name, description):
                return node
    return None


def waiting(probe):
    deadline = time.monotonic() + PATIENCE
    while True:
        result = probe()
        if result or time.monotonic() >= deadline:
            return result
        time.sleep(0.1)


def require(title, wanted):
    node = waiting(lambda: find(title, wanted))
    if node is None:
        sys.exit(f"not found in {title}: {wanted}")
    return node


def missing(title, wanted_all):
    def absent():
        return [s for s in wanted_all if find(title, s) is None]
    left = absent()
    if left:
        waiting(lambda: not absent())
        left = absent()
    for wanted in left:
        print(wanted)
    return 1 if left else 0


def do(title, wanted, action_name):
    action = require(title, wanted).queryAction()
    for i in range(action.nActions):
        if action.getName(i) == action_name:
            action.doAction(i)
            return 0
    sys.exit(f"{wanted} has no action {action_name}")


def center(title, wanted):
    box = require(title, wanted).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    print(box.x + box.width // 2, box.y + box.height // 2)
    return 0


def selected(title, wanted):
    ok = waiting(lambda: (n := find(title, wanted)) is not None
                 and n.getState().contains(pyatspi.STATE_SELECTED))
    return 0 if ok else 1


def main(argv):
    commands = {
        "missing": lambda a: missing(a[0], a[1:]),
        "do": lambda a: do(*a),
        "center": lambda a: center(*a),
        "selected": lambda a: selected(*a),
    }
    if len(argv) < 3 or argv[0] not in commands:
        sys.exit(__doc__)
    return commands[argv[0]](argv[1:])


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
