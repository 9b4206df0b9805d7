// Makes the second page but for its data: one file, with the policy that lets its script run.
//
// Usage: node bundle.mjs MODULES OUT
// MODULES is the folder node_modules that `npm ci` made; OUT is written whole or not at all.
import { createHash } from "node:crypto";
import { renameSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";

const [, , modules, out] = process.argv;
if (out === undefined) throw new Error("usage: node bundle.mjs MODULES OUT");
const here = dirname(fileURLToPath(import.meta.url));
const { build } = createRequire(join(resolve(modules), "index.js"))("esbuild");

const { outputFiles } = await build({
    entryPoints: [join(here, "src/main.ts")],
    bundle: true,
    minify: true,
    format: "esm",
    charset: "utf8",
    target: "es2022",
    write: false,
    logLevel: "warning",
});
const script = outputFiles[0].text.trim();
const hash = createHash("sha256").update(script).digest("base64");
const page = `<!doctype html>
<html lang="zh-CN">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; script-src 'sha256-${hash}'">
<title>账户探索</title>
</head>
<body>
<!--tradebill data-->
<script type="module">${script}</script>
</body>
</html>
`;
writeFileSync(`${out}.part`, page);
renameSync(`${out}.part`, out);
