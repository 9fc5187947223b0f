// Checks the snippets written by snippet-samples with the tools users paste
// them into: TSX is type-checked by the TypeScript compiler (one program for
// all files), JSX is transpiled, Vue components are parsed and compiled by
// the Vue compiler, SVG, Tailwind and Blade tags must be well-formed XML, and
// data URIs must decode to the one-line SVG.
//
//   node check-snippets.mjs [--writer PATH-TO-snippet-samples] DIRECTORY
//
// The tools are loaded from tests/tools/node_modules (npm ci --prefix
// tests/tools); without them the check exits with 77, "skipped".

import { execFileSync } from "node:child_process";
import { existsSync, readFileSync } from "node:fs";
import { createRequire } from "node:module";
import path from "node:path";
import { fileURLToPath } from "node:url";

const SKIPPED = 77;
const toolsDir = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../tools");

const args = process.argv.slice(2);
let writer = null;
if (args[0] === "--writer") {
  writer = args[1];
  args.splice(0, 2);
}
if (args.length !== 1) {
  console.error("usage: node check-snippets.mjs [--writer PATH] DIRECTORY");
  process.exit(2);
}
const dir = path.resolve(args[0]);

if (!existsSync(path.join(toolsDir, "node_modules"))) {
  console.log(`skipped: no ${path.join(toolsDir, "node_modules")}; run npm ci --prefix tests/tools`);
  process.exit(SKIPPED);
}
const require = createRequire(path.join(toolsDir, "package.json"));
const ts = require("typescript");
const vue = require("@vue/compiler-sfc");
const { XMLValidator } = require("fast-xml-parser");

if (writer) {
  try {
    execFileSync(writer, [dir], { stdio: "inherit" });
  } catch {
    console.error(`${writer} failed`);
    process.exit(1);
  }
}

const manifest = JSON.parse(readFileSync(path.join(dir, "manifest.json"), "utf8"));
const read = (file) => readFileSync(path.join(dir, file), "utf8");
const failures = [];
const notes = new Map(); // note text -> number of files
const fail = (file, message) => failures.push(`${file}: ${message}`);
const note = (text) => notes.set(text, (notes.get(text) ?? 0) + 1);

// A component whose name is not an identifier cannot compile; that follows
// from the icon's name, so it is reported as a note, and the compiler must
// indeed reject it.
const componentName = (source) => /^export function ([^(]*)\(/m.exec(source)?.[1];
const isIdentifier = (name) => /^[\p{L}$_][\p{L}\p{N}$_]*$/u.test(name);
function expectCompiles(file, source, errors) {
  const name = componentName(source);
  if (!name) return fail(file, "no exported component");
  if (isIdentifier(name)) {
    for (const error of errors) fail(file, error);
  } else if (errors.length === 0) {
    fail(file, `component name ${name} is not an identifier, yet it compiled`);
  } else {
    note(`component name "${name}" is not a JavaScript identifier; the file does not compile`);
  }
}

const byKind = (kind) => manifest.filter((entry) => entry.kind === kind);
const message = (diagnostic) => ts.flattenDiagnosticMessageText(diagnostic.messageText, "\n");

// TSX: one program for every file, strict, against the React type definitions.
{
  const files = byKind("tsx").map((entry) => path.join(dir, entry.file));
  const reactTypes = path.join(toolsDir, "node_modules/@types/react");
  const program = ts.createProgram(files, {
    jsx: ts.JsxEmit.ReactJSX,
    strict: true,
    noEmit: true,
    target: ts.ScriptTarget.ES2022,
    module: ts.ModuleKind.ESNext,
    moduleResolution: ts.ModuleResolutionKind.Bundler,
    skipLibCheck: true,
    types: [],
    paths: {
      react: [path.join(reactTypes, "index.d.ts")],
      "react/jsx-runtime": [path.join(reactTypes, "jsx-runtime.d.ts")],
    },
  });
  const errors = new Map(files.map((file) => [file, []]));
  for (const diagnostic of ts.getPreEmitDiagnostics(program)) {
    const file = diagnostic.file?.fileName;
    if (errors.has(file)) errors.get(file).push(message(diagnostic));
    else failures.push(`TypeScript: ${message(diagnostic)}`);
  }
  for (const [file, list] of errors) expectCompiles(path.basename(file), readFileSync(file, "utf8"), list);
}

// JSX: transpiled on its own, as a bundler would.
for (const { file } of byKind("jsx")) {
  const source = read(file);
  const output = ts.transpileModule(source, {
    fileName: file,
    reportDiagnostics: true,
    compilerOptions: { jsx: ts.JsxEmit.ReactJSX, module: ts.ModuleKind.ESNext },
  });
  expectCompiles(file, source, output.diagnostics.map(message));
}

// Vue: parse the component, compile <script setup> and the template.
for (const { file } of byKind("vue")) {
  const { descriptor, errors } = vue.parse(read(file), { filename: file });
  if (errors.length) {
    errors.forEach((error) => fail(file, error.message));
    continue;
  }
  if (!descriptor.template) {
    fail(file, "no <template>");
    continue;
  }
  try {
    let bindings;
    if (descriptor.scriptSetup) bindings = vue.compileScript(descriptor, { id: file }).bindings;
    const template = vue.compileTemplate({
      source: descriptor.template.content,
      filename: file,
      id: file,
      compilerOptions: { bindingMetadata: bindings },
    });
    template.errors.forEach((error) => fail(file, String(error.message ?? error)));
  } catch (error) {
    fail(file, error.message);
  }
}

// Tailwind arbitrary values cannot hold spaces: a colour with spaces is split
// into several classes.
function checkClasses(file, source) {
  for (const [, classes] of source.matchAll(/class="([^"]*)"/g)) {
    for (const token of classes.split(/\s+/)) {
      if (token.includes("[") !== token.includes("]"))
        note(`class token "${token}" is a broken Tailwind arbitrary value`);
    }
  }
}

// SVG, Tailwind SVG and Blade tags: well-formed XML with one root element.
for (const { file } of byKind("xml")) {
  const source = read(file);
  const result = XMLValidator.validate(source);
  if (result !== true) fail(file, `${result.err.msg} (line ${result.err.line})`);
  if (file.includes("_tailwind_") || file.includes("_blade_")) checkClasses(file, source);
}

// Data URIs: what decodeURIComponent and fetch() read must be the one-line SVG.
for (const { file, svg } of byKind("dataURI")) {
  const uri = read(file);
  const prefix = "data:image/svg+xml,";
  if (!uri.startsWith(prefix)) {
    fail(file, "not an SVG data URI");
    continue;
  }
  if (/[\s"<>#]/.test(uri)) fail(file, "characters that must be escaped in a URI");
  if (decodeURIComponent(uri.slice(prefix.length)) !== svg) fail(file, "decodes to other text");
  const response = await fetch(uri);
  if ((await response.text()) !== svg) fail(file, "fetch() reads other text");
  if (response.headers.get("content-type") !== "image/svg+xml") fail(file, "wrong media type");
  const result = XMLValidator.validate(svg);
  if (result !== true) fail(file, `decoded SVG: ${result.err.msg}`);
}

const counts = ["tsx", "jsx", "vue", "xml", "dataURI"].map((kind) => `${byKind(kind).length} ${kind}`);
console.log(`checked ${manifest.length} snippets: ${counts.join(", ")}`);
for (const [text, count] of notes) console.log(`note: ${text} (${count} files)`);
if (failures.length) {
  console.error(`${failures.length} failures:`);
  for (const failure of failures.slice(0, 50)) console.error(`  ${failure}`);
  process.exit(1);
}
