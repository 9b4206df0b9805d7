// How long the page to explore an account takes in Chromium, and how much memory: until the first chart, until all
// sections are there, and each large table as it is shown and scrolled. Of the index of a batch, the table alone. Medians of several openings; nothing is judged.
// Usage: node explore_load.mjs [--runs N] PAGE..., in a folder with playwright-core (build/linux/tests/browser/modules).
import { readFileSync, statSync } from "node:fs";
import { createRequire } from "node:module";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";

const { chromium } = createRequire(join(process.cwd(), "package.json"))("playwright-core");

const given = process.argv.slice(2);
const runs = given[0] === "--runs" ? Number(given.splice(0, 2)[1]) : 5;

const median = (numbers) => numbers.sort((left, right) => left - right)[numbers.length >> 1];

/// Megabytes of the process that has the page, without what it shares with others: now, and at most.
async function memoryOf(browser) {
    const session = await browser.newBrowserCDPSession();
    const { processInfo } = await session.send("SystemInfo.getProcessInfo");
    await session.detach();
    const sizes = processInfo.filter(({ type }) => type === "renderer").map(({ id }) => {
        const [rollup, status] = ["smaps_rollup", "status"].map((name) => readFileSync(`/proc/${id}/${name}`, "utf8"));
        return [Number(/^Pss:\s*(\d+)/m.exec(rollup)[1]) / 1024, Number(/^VmHWM:\s*(\d+)/m.exec(status)[1]) / 1024];
    });
    return sizes.sort(([left], [right]) => right - left)[0];
}

/// Milliseconds for which no row stood in the middle of the large table: at worst of jumps to 20 places, as with the
/// bar at its side, and of turns of a wheel by a third of its height.
function blanksOf(page) {
    return page.evaluate(async () => {
        const body = document.querySelector(":is(#tables, #list) .tabulator-tableholder");
        const frame = () => new Promise((done) => requestAnimationFrame(done));
        const isCovered = () => {
            const { top, height } = body.getBoundingClientRect();
            return [...body.querySelectorAll(".tabulator-row")].some((row) => {
                const box = row.getBoundingClientRect();
                return box.top <= top + height / 2 && box.bottom >= top + height / 2;
            });
        };
        const worstOf = async (places) => {
            let worst = 0;
            for (const place of places) {
                const start = performance.now();
                body.scrollTop = place;
                do await frame(); while (!isCovered() && performance.now() - start < 5000);
                worst = Math.max(worst, performance.now() - start);
            }
            return worst;
        };
        const jumps = Array.from({ length: 20 }, (_, at) => (body.scrollHeight * ((at * 7) % 20)) / 20);
        const turns = Array.from({ length: 60 }, (_, at) => (at * body.clientHeight) / 3);
        return [await worstOf(jumps), await worstOf(turns)];
    });
}

/// The index of a batch has one table, which is there from the start.
async function showIndexTable(browser, page) {
    const [jumps, turns] = await blanksOf(page);
    const [now] = await memoryOf(browser);
    const rows = await page.locator("#list .count").innerText();
    const blanks = `blank for ${jumps.toFixed(0)} ms behind a jump, ${turns.toFixed(0)} ms behind a wheel`;
    const sorted = await page.evaluate(async () => {
        const start = performance.now();
        document.querySelector('.tabulator-col[tabulator-field="equity"] .tabulator-col-title').click();
        await new Promise((done) => requestAnimationFrame(() => setTimeout(done)));
        return performance.now() - start;
    });
    console.log(`  ${rows}: ${blanks}, sorted in ${sorted.toFixed(0)} ms, ${now.toFixed(0)} MB`);
}

async function showTables(browser, page) {
    if ((await page.locator("#list").count()) === 1) return showIndexTable(browser, page);
    await page.locator("#tables").scrollIntoViewIfNeeded();
    for (const tab of await page.locator("#tables [role=tab]").all()) {
        const start = Date.now();
        await tab.click();
        await page.waitForFunction((id) => document.querySelector("#table-panel").dataset.shown === id, await tab.getAttribute("id"));
        const shown = Date.now() - start;
        const [jumps, turns] = await blanksOf(page);
        const [now] = await memoryOf(browser);
        const rows = await page.locator("#tables .count").innerText();
        console.log(
            `  ${(await tab.innerText()).padEnd(8)} ${rows}: shown in ${shown} ms, blank for ${jumps.toFixed(0)} ms behind ` +
                `a jump, ${turns.toFixed(0)} ms behind a wheel, ${now.toFixed(0)} MB`,
        );
    }
}

/// One opening: what it takes; the tables too, if that is asked for.
async function open(path, withTables) {
    // root has no sandbox
    const browser = await chromium.launch({ executablePath: "/usr/bin/chromium", chromiumSandbox: false });
    try {
        const page = await browser.newPage({ viewport: { width: 1280, height: 900 } });
        page.setDefaultTimeout(600_000);
        await page.goto(pathToFileURL(resolve(path)).href, { waitUntil: "commit" });
        await page.waitForSelector("main[aria-busy=false]");
        const marks = await page.evaluate(() => performance.getEntriesByType("mark").map(({ name, startTime }) => [name, startTime]));
        const memory = await memoryOf(browser);
        if (withTables) await showTables(browser, page);
        return { first: Object.fromEntries(marks).course ?? marks[0][1], all: Math.max(...marks.map(([, at]) => at)), memory };
    } finally {
        await browser.close();
    }
}

for (const path of given) {
    console.log(`${path}: ${statSync(path).size} bytes`);
    const opened = [];
    for (let run = 0; run < runs; ++run) opened.push(await open(path, false));
    const of = (name) => median(opened.map((each) => each[name])).toFixed(0);
    const [now, most] = [0, 1].map((at) => median(opened.map(({ memory }) => memory[at])).toFixed(0));
    console.log(`  first chart or table ${of("first")} ms, all sections ${of("all")} ms, ${now} MB (at most ${most} MB resident)`);
    await open(path, true);
}
