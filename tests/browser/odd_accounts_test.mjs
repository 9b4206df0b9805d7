// The second page of accounts that few have: without trades, with less than nothing, and with hundreds of thousands of
// rows. What they come to is worked out here by hand.
// Usage: node odd_accounts_test.mjs PROGRAM SAMPLES OUTPUT, in a folder with playwright-core and axe-core; leaves
// screenshots in OUTPUT.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { after, before, describe, it } from "node:test";
import { deflateSync, inflateSync } from "node:zlib";

import { ExploredPage } from "./explored_page.mjs";
import { startBrowser } from "./opened_page.mjs";

const [program, samples, output] = process.argv.slice(2);
const folder = join(output, "odd");

let browser;
before(async () => {
    rmSync(folder, { recursive: true, force: true });
    mkdirSync(folder, { recursive: true });
    browser = await startBrowser();
});
after(() => browser?.close());

/// A statement without trades.
function statementOf({ day, before, flow = 0, equity, realised = 0 }) {
    const amount = (value) => value.toFixed(2);
    const lines = [
        "   云山期货有限公司",
        "   交易结算单",
        "",
        "客户号: 90019999   客户名称: 周虚构",
        `日  期:${day}`,
        "",
        "   资金状况",
        "--------------------",
        `上日结存: ${amount(before)} 当日结存: ${amount(equity)}`,
        `出入金: ${amount(flow)} 客户权益: ${amount(equity)}`,
        `平仓盈亏: ${amount(realised)} 保证金占用: 0.00`,
        `持仓盯市盈亏: 0.00 可用资金: ${amount(equity)}`,
        "手续费: 0.00 风险度: 0.00%",
        "--------------------",
        "",
    ];
    return lines.join("\r\n");
}

/// The page of an account of these days.
function pageOf(name, days) {
    const downloads = join(folder, `${name}-downloads`);
    mkdirSync(downloads);
    for (const day of days) writeFileSync(join(downloads, `${day.day}.txt`), statementOf(day));
    const page = join(folder, `${name}.html`);
    execFileSync(program, ["explore", downloads, "--out", join(folder, name), "--quiet", "-o", page], { stdio: "pipe" });
    return page;
}

async function withPage(path, use) {
    const page = await ExploredPage.open(browser, path);
    try {
        await use(page);
        assert.deepEqual(page.foreignRequests(), []);
        assert.deepEqual(page.complaints, []);
        assert.deepEqual(await page.accessibilityFaults(), []);
        await page.page.evaluate(() => scrollTo(0, 0));
        await page.page.screenshot({ path: path.replace(".html", ".png"), fullPage: true });
    } finally {
        await page.close();
    }
}

const plain = (text) => text.replaceAll("\u202f", "").replace("\u2212", "-");

describe("an account without trades", () => {
    it("has its days and no section that would be empty", () => {
        const page = pageOf("quiet", [
            { day: "20240102", before: 1000, equity: 1000 },
            { day: "20240103", before: 1000, flow: 250, equity: 1250 },
            { day: "20240104", before: 1250, equity: 1250 },
        ]);
        return withPage(page, async (opened) => {
            const figures = await opened.figures();
            assert.equal(plain(figures["期初权益"]), "1000.00");
            assert.equal(plain(figures["期末权益"]), "1250.00");
            assert.equal(plain(figures["盈亏"]), "0.00");
            assert.equal(plain(figures["净出入金"]), "+250.00");
            assert.equal(plain(figures["收益率"]), "0.00%");
            assert.equal(figures["最大回撤"], "–");
            assert.deepEqual(await opened.sections(), ["overview", "findings", "course", "periods", "calendar", "drawdowns", "tables"]);
            await opened.showTable();
            assert.deepEqual(await opened.counts(), [3, 3]);
        });
    });
});

describe("an account whose equity falls below 0", () => {
    it("has lost all, and no more than all", () => {
        const page = pageOf("ruined", [
            { day: "20240102", before: 1000, equity: 1000 },
            { day: "20240103", before: 1000, equity: -500, realised: -1500 },
            { day: "20240104", before: -500, flow: 700, equity: 200 },
            { day: "20240105", before: 200, equity: 220, realised: 20 },
        ]);
        return withPage(page, async (opened) => {
            const figures = await opened.figures();
            assert.equal(plain(figures["期末权益"]), "220.00");
            assert.equal(plain(figures["盈亏"]), "-1480.00");
            assert.equal(plain(figures["收益率"]), "-100.00%");
            assert.equal(plain(figures["最大回撤"]), "-100.00%");
            const text = await opened.page.evaluate(() => document.body.innerText);
            assert.doesNotMatch(text, /undefined|NaN|Infinity/);
        });
    });
});

const rows = 375_000;

/// The page of a sample with made trades in place of its own, as many as ten years of a busy account have.
function pageOfManyRows() {
    const path = join(folder, "many.html");
    const request = join(samples, "fund-status", "request.ini");
    execFileSync(program, ["explore", "--root", join(samples, "fund-status", "root"), "--request", request, "--quiet", "-o", path]);
    const change = (page, id, update) =>
        page.replace(new RegExp(`(id="${id}">)([^<]*)`), (_, start, digits) => {
            const block = JSON.parse(inflateSync(Buffer.from(digits, "base64")).toString());
            return start + deflateSync(JSON.stringify(update(block))).toString("base64");
        });
    let page = readFileSync(path, "utf8");
    page = change(page, "head", (head) => {
        head.accounts[0].tables.trades = rows;
        return head;
    });
    page = change(page, "0\\.trades", ({ rows: own, columns }) => ({
        rows,
        columns: columns.map((column) => {
            if (column.name === "MATCH_PRICE") return { ...column, values: Array.from({ length: rows }, (_, row) => row + 1) };
            const list = column.values === undefined ? "codes" : "values";
            return { ...column, [list]: Array.from({ length: rows }, (_, row) => column[list][row % own]) };
        }),
    }));
    writeFileSync(path, page);
    return path;
}

describe(`a table of ${rows} rows`, () => {
    it("is shown, sorted, filtered and scrolled to its end", () =>
        withPage(pageOfManyRows(), async (opened) => {
            await opened.showTable("成交");
            assert.deepEqual(await opened.counts(), [rows, rows]);
            const body = "#tables .tabulator-tableholder";
            const at = (place) => opened.page.evaluate(([selector, share]) => {
                const element = document.querySelector(selector);
                element.scrollTop = element.scrollHeight * share;
            }, [body, place]);
            const isSeen = (price) => opened.page.locator(`${body} [tabulator-field=MATCH_PRICE]`, { hasText: new RegExp(`^${price}$`) }).first().waitFor();
            await isSeen("1");
            await at(1);
            await isSeen("375\u202f000");
            await opened.page.locator("#tables [tabulator-field=MATCH_PRICE] .tabulator-col-title").click();
            await opened.page.locator("#tables [tabulator-field=MATCH_PRICE][aria-sort=ascending]").waitFor();
            await opened.page.locator("#tables [tabulator-field=MATCH_PRICE] .tabulator-col-title").click();
            await opened.page.locator("#tables [tabulator-field=MATCH_PRICE][aria-sort=descending]").waitFor();
            await at(0);
            await isSeen("375\u202f000");
            await opened.page.locator("#tables [tabulator-field=MATCH_PRICE] input").pressSequentially(">374990");
            await opened.page.waitForFunction(() => document.querySelector("#tables .count").innerText.startsWith("10 "));
        }));
});
