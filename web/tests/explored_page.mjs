// The data of a page, read without a browser.
import { readFileSync } from "node:fs";
import { inflateSync } from "node:zlib";

/// The blocks of the page at `path`, by their names.
export function blocksOf(path) {
    const blocks = readFileSync(path, "utf8").matchAll(/^<script type="application\/octet-stream" id="([\w.]+)">([\w+/=]*)<\/script>$/gm);
    return new Map(
        [...blocks].filter(([, name]) => name !== "viewer").map(([, name, base64]) => [name, JSON.parse(inflateSync(Buffer.from(base64, "base64")))]),
    );
}
