// How long a page takes in Chromium, and how much memory: as it opens, with all sections unfolded, with a line of them,
// and, if that is asked for, with all lines, which takes minutes. What a page lacks is left out. Nothing is judged.
// Usage: node browser_load.mjs [--lines] PAGE..., in a folder with playwright-core (build/linux/tests/browser/modules).
import { readFileSync, statSync } from "node:fs";
import { createRequire } from "node:module";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";

const { chromium } = createRequire(join(process.cwd(), "package.json"))("playwright-core");

const isForLines = process.argv[2] === "--lines";
const longest = 600_000; // milliseconds

/// Of the process that has the page, from its system's books: now, and at most.
async function memoryOf(browser) {
    const session = await browser.newBrowserCDPSession();
    const { processInfo } = await session.send("SystemInfo.getProcessInfo");
    await session.detach();
    const statuses = processInfo
        .filter(({ type }) => type === "renderer")
        .map(({ id }) => readFileSync(`/proc/${id}/status`, "utf8"));
    const megabytes = (status, name) => Number(new RegExp(`${name}:\\s*(\\d+) kB`).exec(status)[1]) / 1024;
    const [now, most] = ["VmRSS", "VmHWM"].map((name) => Math.max(...statuses.map((status) => megabytes(status, name))));
    return `${now.toFixed(0)} MB (at most ${most.toFixed(0)} MB)`;
}

async function show(browser, page, what, milliseconds) {
    const session = await page.context().newCDPSession(page);
    await session.send("Performance.enable");
    const { metrics } = await session.send("Performance.getMetrics");
    await session.detach();
    const { Nodes, JSHeapUsedSize } = Object.fromEntries(metrics.map(({ name, value }) => [name, value]));
    const heap = (JSHeapUsedSize / 1048576).toFixed(1);
    console.log(
        `  ${what.padEnd(26)} ${(milliseconds / 1000).toFixed(2).padStart(7)} s, ${Nodes} nodes, ` +
            `scripts' heap ${heap} MB, process ${await memoryOf(browser)}`,
    );
}

/// Clicks what is folded and `selector` names, at most `most` of it, and waits until what it shows is laid out; the
/// milliseconds, or null if there is none. The page's own script fills bodies that are marked data-packed.
function unfold(page, selector, most) {
    return page.evaluate(
        async ([folded, count]) => {
            const elements = [...document.querySelectorAll(folded)].slice(0, count);
            if (elements.length === 0) return null;
            const start = performance.now();
            elements.forEach((element) => element.click());
            const isToBeShown = (body) => {
                let first = body;
                while (first.matches("[data-packed]")) first = first.previousElementSibling;
                return first.matches("[data-unpackable], :has([aria-expanded=true])");
            };
            const shown = [...document.querySelectorAll("[data-packed]")].filter(isToBeShown);
            while (shown.some((body) => body.rows.length === 0)) {
                await new Promise((done) => setTimeout(done));
            }
            await new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)));
            return performance.now() - start;
        },
        [selector, most],
    );
}

const foldedLine = '[data-unfolds][aria-expanded="false"]';

// A name, what is clicked, and how much of it.
const steps = [
    ["sections unfolded", 'img[data-parts][src*="BillExpand"]', Infinity],
    ["first line unfolded", foldedLine, 1],
    ...(isForLines ? [["all lines unfolded", foldedLine, Infinity]] : []),
];

async function measure(path) {
    console.log(`${path}: ${statSync(path).size} bytes`);
    // root has no sandbox
    const browser = await chromium.launch({ executablePath: "/usr/bin/chromium", chromiumSandbox: false });
    try {
        const page = await browser.newPage({ viewport: { width: 860, height: 900 } });
        page.setDefaultTimeout(longest);
        const start = performance.now();
        await page.goto(pathToFileURL(resolve(path)).href, { timeout: longest });
        await page.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))));
        await show(browser, page, "opened", performance.now() - start);
        for (const [what, selector, most] of steps) {
            const milliseconds = await unfold(page, selector, most);
            if (milliseconds !== null) await show(browser, page, what, milliseconds);
        }
    } finally {
        await browser.close();
    }
}

for (const path of process.argv.slice(isForLines ? 3 : 2)) await measure(path);
