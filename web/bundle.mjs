// Makes the viewer's pages but for their data: styles, script and licences in one file each, and the policy that lets them run.
//
// Usage: node bundle.mjs MODULES FOLDER
// MODULES is the folder node_modules that `npm ci` made; each page in FOLDER is written whole or not at all.
import { createHash } from "node:crypto";
import { readFileSync, readdirSync, renameSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { deflateSync } from "node:zlib";

/// `entry` and `styles` are files of src/; the titles stand there until the script has run.
const pages = [
    { name: "explore.html", entry: "main.ts", styles: "style/page.css", title: "账户探索", english: "Account explorer" },
    { name: "accounts.html", entry: "accounts.ts", styles: "style/accounts.css", title: "账户索引", english: "Accounts" },
];

const [, , modules, folder] = process.argv;
if (folder === undefined) throw new Error("usage: node bundle.mjs MODULES FOLDER");
const here = dirname(fileURLToPath(import.meta.url));
const { build } = createRequire(join(resolve(modules), "index.js"))("esbuild");

/// The libraries that the bundle holds, by their folders in MODULES.
function librariesOf(metafile) {
    const names = Object.keys(metafile.inputs).map((path) => /node_modules\/((?:@[^/]+\/)?[^/]+)\//.exec(path)?.[1]);
    return [...new Set(names.filter((name) => name !== undefined))].sort();
}

/// The files of a library's own folder and of its folder of licences.
function filesBelow(folder) {
    const namesIn = (path) => readdirSync(join(folder, path), { withFileTypes: true });
    const licences = namesIn(".").filter((entry) => entry.isDirectory() && /^licen[sc]es?$/i.test(entry.name));
    const files = (path) => namesIn(path).filter((entry) => entry.isFile()).map((entry) => join(path, entry.name));
    return [...files("."), ...licences.flatMap(({ name }) => files(name))];
}

/// Name, version, and the texts that must go along with each library.
function licenceOf(name) {
    const folder = join(modules, name);
    const { version, license } = JSON.parse(readFileSync(join(folder, "package.json"), "utf8"));
    const texts = filesBelow(folder).filter((file) => /(^|\/)(licen[sc]e|notice)[^/]*$/i.test(file));
    if (texts.length === 0) throw new Error(`${name} comes without its licence`);
    const bodies = texts.sort().map((file) => readFileSync(join(folder, file), "utf8").replaceAll("\r\n", "\n").trim());
    return [`${name} ${version} (${license})`, ...bodies].join("\n\n");
}

async function bundled(entry, more = {}) {
    return build({
        entryPoints: [join(here, "src", entry)],
        absWorkingDir: here,
        bundle: true,
        minify: true,
        legalComments: "none",
        charset: "utf8",
        target: "es2022",
        write: false,
        outdir: "out",
        nodePaths: [resolve(modules)],
        logLevel: "warning",
        ...more,
    });
}

const hashOf = (script) => `'sha256-${createHash("sha256").update(script).digest("base64")}'`;
const escaped = (text) => text.replaceAll("&", "&amp;").replaceAll("<", "&lt;");

const starter = (await bundled("starter.ts", { format: "iife" })).outputFiles[0].text.trim();

async function pageOf({ entry, styles, title, english }) {
    const viewer = await bundled(entry, { metafile: true, format: "iife" });
    const script = viewer.outputFiles[0].text;
    const parts = {
        policy: [
            "default-src 'none'",
            `script-src ${hashOf(starter)} ${hashOf(script)}`,
            "style-src 'unsafe-inline'",
            "img-src data: blob:",
            "base-uri 'none'",
            "form-action 'none'",
        ].join("; "),
        title,
        english,
        styles: (await bundled(styles)).outputFiles[0].text.trim(),
        licences: escaped(librariesOf(viewer.metafile).map(licenceOf).join("\n\n" + "=".repeat(72) + "\n\n")),
        viewer: deflateSync(script, { level: 9 }).toString("base64"),
        starter,
    };
    return readFileSync(join(here, "src/page.html"), "utf8").replace(/\{\{(\w+)\}\}/g, (_, name) => parts[name]);
}

for (const page of pages) {
    const out = join(folder, page.name);
    writeFileSync(`${out}.part`, await pageOf(page));
    renameSync(`${out}.part`, out);
}
