// The standalone page: it does what the page in its folder does, and nothing that a statement says comes to life in it.
// Usage: node standalone_test.mjs PROGRAM SAMPLES OUTPUT, in a folder with playwright-core; leaves screenshots in OUTPUT.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { existsSync, mkdirSync, readFileSync, statSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { after, before, describe, it } from "node:test";
import { pathToFileURL } from "node:url";

import { hostileName, renameSample, spoilSample } from "./hostile_accounts.mjs";
import { OpenedPage, startBrowser } from "./opened_page.mjs";
import { folderForm, makeReport, reports, standaloneForm, year } from "./reports.mjs";

const [program, samples, output] = process.argv.slice(2);
const roots = join(output, "standalone");

let browser;
before(async () => {
    mkdirSync(roots, { recursive: true });
    browser = await startBrowser();
});
after(() => browser?.close());

/// Opens `path` for the time of `use`.
async function withPage(path, use, options = {}) {
    const page = await OpenedPage.open(browser, path, 1, options);
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
                assert.deepEqual(await page.unfoldedCells(), told);
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
                return page.unfoldedCells();
            });
            assert.ok(Object.values(innocent).flat().length > 100); // the statements were found by those names
            assert.ok(!readFileSync(standalone, "utf8").includes(hostileName.slice(0, 8)));
        });
    }
});

describe("the standalone page of a year", () => {
    const path = standaloneForm.page(join(roots, "roots", "year-standalone"));
    const inFolder = folderForm.page(join(roots, "roots", "year-standalone"));
    const folded = year.family.sections.slice(1);
    const foldedParts = folded.flatMap(({ parts }) => parts);
    const needsMore = "此处折叠的内容需要能运行脚本的新版浏览器和完整的文件才能展开。 / " +
        "To unfold what is folded here takes a newer browser that runs scripts, and an undamaged file.";
    const firstDay = "20240102";
    let page;
    let told;
    before(async () => {
        makeReport(program, samples, roots, year, standaloneForm);
        told = rawCells(inFolder);
        page = await OpenedPage.open(browser, path);
    });
    after(() => page?.close());

    const assertFolded = async (sections, button) => {
        for (const section of sections) {
            const held = new RegExp(`name=${button}`);
            assert.match(await page.sourceOf(section.button), held, section.name);
        }
    };

    it("is no larger than a mail takes", () => assert.ok(statSync(path).size <= 2_500_000, `${statSync(path).size} bytes`));

    it("opens with its many rows folded and the account unfolded", async () => {
        assert.deepEqual(await page.shownOf(foldedParts), []);
        await assertFolded(folded, "BillExpand.png");
        await assertFolded(year.family.sections.slice(0, 1), "BillShrink.png");
        assert.deepEqual(await page.shownOf(year.family.sections[0].parts), year.family.sections[0].parts);
        await page.shootWhole(join(output, "year-folded.png"));
    });

    it("has a line for each day of positions and trades", async () => {
        await page.clickTitle("期末持仓");
        await page.clickTitle("成交明细");
        const lines = (await page.addedLines()).map((line) => line.trim());
        assert.ok(!lines.includes(needsMore));
        const days = (id, column) =>
            [...new Set(told[id].map((cells) => cells[column]).filter((cell) => /^\d{8}$/.test(cell)))].sort();
        const dates = lines.map((line) => line.replace(/^\u25b8 /, ""));
        const positionDays = dates.slice(0, dates.indexOf(firstDay, 1));
        assert.ok(positionDays.length > 200 && positionDays[0] === firstDay);
        assert.deepEqual([...positionDays].sort(), positionDays);
        for (const day of positionDays) assert.ok(days("tabPositions", 3).includes(day), day);
        await page.shoot(join(output, "year-days.png"), "期末持仓");
    });

    it("shows a day's rows at a click on its line, and takes them away at the next", async () => {
        const closed = await page.shownRows("tabPositions");
        const dayRows = told.tabPositions.findIndex(([first]) => first === "小计"); // the heading's two are before it, dashes behind
        await page.unfoldLine("tabPositions", firstDay);
        await page.waitForRows("tabPositions", closed + dayRows);
        assert.ok((await page.addedLines()).includes(`\u25be ${firstDay}`));
        await page.shoot(join(output, "year-first-day.png"), "期末持仓");
        await page.unfoldLine("tabPositions", firstDay);
        await page.waitForRows("tabPositions", closed);
        for (const [key, rows] of [["Enter", closed + dayRows], [" ", closed]]) {
            await page.unfoldLine("tabPositions", firstDay, key);
            await page.waitForRows("tabPositions", rows);
        }
    });

    it("shows every cell that the page in its folder has", async () => {
        const cells = await page.unfoldedCells();
        assert.deepEqual(Object.keys(cells), Object.keys(told));
        for (const [id, rows] of Object.entries(told)) {
            assert.equal(cells[id].length, rows.length, id);
            const differing = rows.findIndex((row, i) => row.join("\t") !== cells[id][i].join("\t"));
            assert.equal(differing, -1, `${id}: ${cells[id][differing]} for ${rows[differing]}`);
        }
        assertQuiet(page, path);
    });

    it("gives its tables the width of the page", async () => {
        for (const width of await page.tableWidths()) assert.equal(width, 825);
        await page.shoot(join(output, "year-offset.png"), "平仓记录");
    });

    const assertTellsWhatItNeeds = (options) =>
        withPage(
            path,
            async (old) => {
                assert.deepEqual(await old.shownOf(foldedParts), foldedParts);
                const lines = await old.addedLines();
                assert.equal(lines.filter((line) => line === needsMore).length, folded.length);
            },
            options,
        );
    it("says what it needs in a browser that unpacks nothing", () =>
        assertTellsWhatItNeeds({ begin: () => delete window.DecompressionStream }));
    it("says what it needs where no script runs", () => assertTellsWhatItNeeds({ javaScriptEnabled: false }));

    it("says so where it is damaged", async () => {
        const damaged = join(roots, "damaged.html");
        const block = /(?<=<script type="application\/octet-stream">).{100}/g;
        writeFileSync(damaged, readFileSync(path, "utf8").replace(block, "A".repeat(100)));
        await withPage(damaged, async (broken) => {
            await broken.clickTitle("期末持仓");
            await broken.unfoldLine("tabPositions", firstDay);
            await broken.waitForLine(needsMore);
        });
    });
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
