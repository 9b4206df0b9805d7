// The viewer's types fit together: the bundler takes them off unseen.
//
// Usage: node types_test.mjs MODULES FOLDER, where FOLDER is the tests' own
import { spawnSync } from "node:child_process";
import { cpSync, existsSync, mkdirSync, rmSync, symlinkSync } from "node:fs";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";

const [, , modules, folder] = process.argv;
const viewer = join(dirname(fileURLToPath(import.meta.url)), "..");

rmSync(folder, { recursive: true, force: true });
mkdirSync(folder, { recursive: true });
cpSync(join(viewer, "src"), join(folder, "src"), { recursive: true });
cpSync(join(viewer, "tsconfig.json"), join(folder, "tsconfig.json"));
symlinkSync(resolve(modules), join(folder, "node_modules"));
const compiler = join(modules, "typescript", "bin", "tsc");
if (!existsSync(compiler)) throw new Error("the compiler isn't installed");
const { status } = spawnSync(process.execPath, [compiler, "-p", folder], { stdio: "inherit" });
process.exit(status ?? 1);
