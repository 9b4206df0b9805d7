// The standalone page: it does what the page in its folder does, and nothing that a statement says comes to life in it.
// Usage: node standalone_test.mjs PROGRAM SAMPLES OUTPUT, in a folder with playwright-core; leaves screenshots in OUTPUT.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { existsSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { after, before, describe, it } from "node:test";
import { pathToFileURL } from "node:url";

import { hostileName, renameSample, spoilSample } from "./hostile_accounts.mjs";
import { OpenedPage, startBrowser } from "./opened_page.mjs";
import { folderForm, makeReport, reports, standaloneForm } from "./reports.mjs";

const [program, samples, output] = process.argv.slice(2);
const roots = join(output, "standalone");

let browser;
before(async () => {
    mkdirSync(roots, { recursive: true });
    browser = await startBrowser();
});
after(() => browser?.close());

/// Opens `path` for the time of `use`.
async function withPage(path, use) {
    const page = await OpenedPage.open(browser, path);
    try {
        return await use(page);
    } finally {
        await page.close();
    }
}

/// Nothing was asked for but the page itself and what it holds, and nothing was refused.
function assertQuiet(page, path) {
    const asked = page.requests.filter((url) => !url.startsWith("data:"));
    assert.deepEqual(asked, [pathToFileURL(path).href]);
    assert.deepEqual(page.complaints, []);
}

for (const report of reports.filter(({ forms }) => forms.includes(standaloneForm))) {
    describe(`the two pages of ${report.name}`, () => {
        let pages;
        before(async () => {
            const made = makeReport(program, samples, roots, report, standaloneForm);
            const inFolder = folderForm.page(join(roots, "roots", `${report.name}-standalone`));
            pages = [await OpenedPage.open(browser, inFolder), await OpenedPage.open(browser, made.page)];
        });
        after(() => Promise.all(pages.map((page) => page.close())));

        const assertSame = async (what) => {
            const [inFolder, standalone] = await Promise.all(pages.map((page) => page.appearance()));
            assert.ok(inFolder.boxes.length > 100 && inFolder.text.includes("报告说明"));
            assert.deepEqual(standalone, inFolder, what);
            return inFolder.boxes.join();
        };

        it("look the same before and after each click", async () => {
            const [count, ...counts] = await Promise.all(pages.map((page) => page.clickableCount()));
            assert.deepEqual(counts, [count]);
            assert.equal(count, report.family.sections.length * 2 + report.family.links);
            let changes = 0;
            let former = await assertSame("as they open");
            for (let i = 0; i < count; ++i) {
                for (const what of [`click on ${i}`, `second click on ${i}`]) {
                    await Promise.all(pages.map((page) => page.click(i)));
                    const shown = await assertSame(what);
                    if (shown !== former) ++changes;
                    former = shown;
                }
            }
            assert.equal(changes, report.family.sections.length * 4);
        });

        it("keep the same things from being marked", async () => {
            const [inFolder, standalone] = await Promise.all(pages.map((page) => page.unmarkable()));
            assert.ok(inFolder.length > report.family.sections.length);
            assert.deepEqual(standalone, inFolder);
        });

        it("run without a complaint of the policy", () => pages.forEach(({ complaints }) => assert.deepEqual(complaints, [])));
    });
}

const layouts = [
    "bilingual",
    "bilingual-new",
    "client-bill",
    "client-bill-premium",
    "foreign",
    "fund-class",
    "fund-status",
    "fund-status-premium",
    "spaced-title",
    "spaced-title-premium",
    "tabulated",
    "template-pairs",
    "template-row",
];

/// All elements that a report without a hostile cell has.
const innocentElements =
    "a body div h1 h5 head hr html img meta p script span style table tbody td title tr".split(" ");

const optionsOf = (sample) =>
    ["units", "products", "live"]
        .map((name) => [`--${name}`, join(sample, `${name}.ini`)])
        .filter(([, file]) => existsSync(file))
        .flat();

function runReport(root, options) {
    const standalone = join(root, "standalone.html");
    const paths = ["--root", root, "--out", join(root, "out"), "--standalone", standalone];
    execFileSync(program, ["report", "--quiet", ...paths, ...options], { stdio: "pipe" }); // strange cells are told
    return { standalone, page: join(root, "out", "TradeBill.html") };
}

function makeHostileReport(layout) {
    const sample = join(samples, layout);
    const root = join(roots, `hostile-${layout}`);
    spoilSample(sample, root);
    return runReport(root, ["--request", join(sample, "request.ini"), ...optionsOf(sample)]);
}

/// The texts of all cells of a page as its bytes have them, by tables and rows.
function rawCells(path) {
    const decoder = new TextDecoder("gbk");
    const decoded = (bytes) => decoder.decode(Buffer.from(bytes, "latin1"));
    const cell = /<td style="[^"]*"(?: width="[^"]*")?><span class='\w+'>(.*?)<\/span><\/td>(?=<td style=|<\/tr>\r\n)/gs;
    const row = /<tr(?: class='\w+')?>\r\n/;
    const tables = readFileSync(path, "latin1").split(/<table [^>]*id= "/).slice(1);
    return Object.fromEntries(
        tables.map((table) => [
            /^\w+/.exec(table)[0],
            table.split(row).slice(1).map((text) => [...text.matchAll(cell)].map(([, bytes]) => decoded(bytes))),
        ]),
    );
}

const isMarkup = (text) => /[<>&"']/.test(text);

/// The titles of the columns in which a cell is markup, with the table's id before each.
const hostileColumns = (tables) =>
    Object.entries(tables).flatMap(([id, [titles, ...rows]]) =>
        titles.filter((_, column) => rows.some((cells) => isMarkup(cells[column] ?? ""))).map((title) => `${id} ${title.trim()}`),
    );

const allColumns = (tables) =>
    Object.entries(tables).flatMap(([id, [titles]]) => titles.map((title) => `${id} ${title.trim()}`));

// What no statement says: the report works it out.
const workedOut = [
    "tabTrade 多空",
    "tabTrade 盈亏",
    "tabTrade 交易次数",
    "tabTrade 手数",
    "tabTrade 利润",
    "tabTrade 平均单次利润",
    "tabTrade 平均每手利润",
    "tabOffset 逐笔平仓盈亏",
];

describe("the standalone page of a hostile account", () => {
    const reached = new Set();
    const known = new Set();

    for (const layout of layouts) {
        it(`shows every cell as ${layout} has it, and runs none`, async () => {
            const { standalone, page: inFolder } = makeHostileReport(layout);
            const told = rawCells(inFolder);
            hostileColumns(told).forEach((column) => reached.add(column));
            allColumns(told).forEach((column) => known.add(column));
            assert.ok(Object.values(told).flat(2).filter(isMarkup).length > 100);
            await withPage(standalone, async (page) => {
                assert.deepEqual(await page.cells(), told);
                assert.deepEqual(await page.elementNames(), innocentElements);
                await page.clickAll();
                assert.equal(await page.ran(), undefined);
                assertQuiet(page, standalone);
            });
        });
    }

    it("was met in every column that a statement fills", () => {
        const missed = [...known].filter((column) => !reached.has(column)).map((column) => column.replaceAll("\u3000", ""));
        assert.deepEqual(missed.sort(), [...workedOut].sort());
    });

    it("leaves pictures of the account and of its trades", async () => {
        const { standalone } = makeHostileReport("bilingual");
        await withPage(standalone, async (page) => {
            await page.shoot(join(output, "hostile-account.png"), "账户统计");
            await page.shoot(join(output, "hostile-match.png"), "成交明细");
        });
    });
});

const named = [
    { sample: "template-row", prefix: "D", account: "90010012", kind: "domestic", format: "201", template: "songta" },
    { sample: "foreign", prefix: "DWP", account: "60010001", kind: "foreign", live: true },
];

describe("a standalone page of hostile names", () => {
    for (const account of named) {
        it(`says none of them, with user, account and settings of ${account.sample}`, async () => {
            const root = join(roots, `named-${account.sample}`);
            const { standalone } = runReport(root, renameSample(join(samples, account.sample), root, account));
            const innocent = await withPage(standalone, async (page) => {
                await page.clickAll();
                assert.deepEqual(await page.elementNames(), innocentElements);
                assert.equal(await page.ran(), undefined);
                assertQuiet(page, standalone);
                return page.cells();
            });
            assert.ok(Object.values(innocent).flat().length > 100); // the statements were found by those names
            assert.ok(!readFileSync(standalone, "utf8").includes(hostileName.slice(0, 8)));
        });
    }
});

describe("the policy of the standalone page", () => {
    const policy = /<meta http-equiv="Content-Security-Policy"[^>]*>/;
    let markup;
    before(() => {
        const text = readFileSync(makeHostileReport("fund-class").standalone, "utf8");
        const spelt = { "&lt;": "<", "&gt;": ">", "&quot;": '"', "&#39;": "'", "&amp;": "&" };
        const cells = /(?<=<span class='\w+'>)[^<]*ran=[^<]*(?=<\/span>)/g;
        markup = text.replace(cells, (cell) => cell.replace(/&\w+;|&#39;/g, (reference) => spelt[reference]));
        assert.notEqual(markup, text);
    });

    const openMarkup = (name, text, use) => {
        const path = join(roots, `${name}.html`);
        writeFileSync(path, text);
        return withPage(path, async (page) => {
            await page.clickAll();
            await use(page);
        });
    };

    it("keeps cells from running that are markup", () =>
        openMarkup("markup", markup, async (page) => {
            assert.equal(await page.ran(), undefined);
            assert.ok(page.complaints.some((complaint) => complaint.includes("Content Security Policy")));
            assert.deepEqual(page.requests.filter((url) => !/^(data|file|about):/.test(url)), []);
        }));

    it("is what keeps them: they run without it", () =>
        openMarkup("lawless", markup.replace(policy, ""), async (page) => assert.notEqual(await page.ran(), undefined)));
});
