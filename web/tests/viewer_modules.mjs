// The viewer's own modules, as the tests import them: bundled into one, since they are TypeScript.
import { createRequire } from "node:module";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";

const sources = join(dirname(fileURLToPath(import.meta.url)), "../src");

/// What the files `names` export, together. `modules` is the folder node_modules of the bundler.
export async function viewerModules(modules, names) {
    const { build } = createRequire(join(resolve(modules), "index.js"))("esbuild");
    const contents = names.map((name) => `export * from "./${name}";`).join("\n");
    const { outputFiles } = await build({
        stdin: { contents, resolveDir: sources, loader: "ts" },
        bundle: true,
        format: "esm",
        write: false,
        nodePaths: [resolve(modules)],
    });
    return import(`data:text/javascript;base64,${Buffer.from(outputFiles[0].contents).toString("base64")}`);
}
