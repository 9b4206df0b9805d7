// The second page over several accounts: their sum comes first, each can be chosen, and every figure of both is held
// against the JSON of each account alone.
// Usage: node several_accounts_test.mjs PROGRAM SAMPLES OUTPUT, in a folder with playwright-core and axe-core; leaves
// screenshots in OUTPUT.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { cpSync, mkdirSync, readFileSync, rmSync } from "node:fs";
import { join } from "node:path";
import { after, before, describe, it } from "node:test";

import { ExploredPage } from "./explored_page.mjs";
import { startBrowser } from "./opened_page.mjs";

const [program, samples, output] = process.argv.slice(2);
const folder = join(output, "several");
const root = join(folder, "root");
const path = join(folder, "several.html");
const members = [
    { account: "90010002", sample: "fund-status" },
    { account: "90010004", sample: "tabulated" },
];

/// A number as the page prints it.
const numberIn = (text) => Number(text.replaceAll("\u202f", "").replace("\u2212", "-").replace(/[+%]/g, ""));
const total = (numbers) => numbers.reduce((sum, number) => sum + number, 0);

let browser;
let jsons;
let opened;
before(async () => {
    rmSync(folder, { recursive: true, force: true });
    mkdirSync(folder, { recursive: true });
    for (const { sample } of members) cpSync(join(samples, sample, "root"), root, { recursive: true });
    execFileSync(program, ["explore", "--root", root, "--all-accounts", "--quiet", "-o", path], { stdio: "pipe" });
    jsons = members.map(({ account }) => {
        const json = join(folder, `${account}.json`);
        execFileSync(program, ["report", "--root", root, "--account", account, "--quiet", "--out", folder, "--json", json], { stdio: "pipe" });
        return JSON.parse(readFileSync(json, "utf8"));
    });
    browser = await startBrowser();
    opened = await ExploredPage.open(browser, path);
});
after(() => browser?.close());

const choose = async (label) => {
    await opened.page.locator("header select").selectOption({ label });
    await opened.settle();
};

describe("the sum of two accounts", () => {
    it("comes first, with the accounts' figures added up by day", async () => {
        const figures = await opened.figures();
        const lastOf = ({ analysis }) => analysis.days[analysis.days.length - 1];
        const pl = total(jsons.flatMap(({ analysis }) => analysis.days.map((day) => day.pl)));
        assert.equal(numberIn(figures["期初权益"]), total(jsons.map(({ money }) => money.OpeningEquity)));
        assert.ok(Math.abs(numberIn(figures["期末权益"]) - total(jsons.map((json) => lastOf(json).equity))) < 0.006);
        assert.ok(Math.abs(numberIn(figures["盈亏"]) - pl) < 0.006);
        // The day's return is that of both accounts' money: P/L by what both had before and what came in.
        const days = jsons[0].analysis.days.map((_, at) => jsons.map(({ analysis }) => analysis.days[at]));
        let before = total(jsons.map(({ money }) => money.OpeningEquity));
        const index = days.reduce((product, both) => {
            const flow = total(both.map((day) => day.cashFlow));
            const next = product * (1 + total(both.map((day) => day.pl)) / (before + Math.max(flow, 0)));
            before = total(both.map((day) => day.equity));
            return next;
        }, 1);
        assert.ok(Math.abs(numberIn(figures["收益率"]) - 100 * (index - 1)) < 0.006, figures["收益率"]);
    });

    it("shows the rows of both, with whose they are", async () => {
        for (const [tab, list] of [["成交", "matches"], ["平仓", "closed"], ["每日持仓", "positions"]]) {
            const rows = total(jsons.map((json) => json[list].length));
            await opened.showTable(tab);
            assert.deepEqual(await opened.counts(), [rows, rows], tab);
        }
        await opened.showTable("平仓");
        await opened.page.locator("#tables input[aria-label*='账户']").pressSequentially(members[1].account);
        await opened.page.waitForTimeout(700);
        assert.equal((await opened.counts())[0], jsons[1].closed.length);
        for (const button of await opened.page.locator("#open .more").all()) await button.click();
        const [head, ...rows] = await opened.rowsOf("open");
        assert.equal(head[0], "账户");
        assert.equal(rows.length, total(jsons.map(({ analysis }) => analysis.open.length)));
        assert.ok(await opened.fitsWindow());
        assert.deepEqual(await opened.accessibilityFaults(), []);
        await opened.page.screenshot({ path: join(folder, "sum.png"), fullPage: true });
    });

    it("adds products up over the accounts", async () => {
        for (const button of await opened.page.locator("#products .more").all()) await button.click();
        const [head, ...rows] = await opened.rowsOf("products");
        const expected = new Map();
        for (const { product, pl } of jsons.flatMap(({ analysis }) => analysis.products)) expected.set(product, (expected.get(product) ?? 0) + pl);
        assert.equal(rows.length, expected.size);
        const found = rows.map((row) => numberIn(row[head.indexOf("盈亏")])).sort((left, right) => left - right);
        assert.deepEqual(found, [...expected.values()].sort((left, right) => left - right));
    });

    it("gives way to the account that is chosen", async () => {
        await choose("90010004");
        const [, json] = jsons;
        const figures = await opened.figures();
        assert.equal(numberIn(figures["期初权益"]), json.money.OpeningEquity);
        await opened.showTable("成交");
        assert.deepEqual(await opened.counts(), [json.matches.length, json.matches.length]);
        await choose("全部账户合计");
        assert.equal(numberIn((await opened.figures())["期初权益"]), total(jsons.map(({ money }) => money.OpeningEquity)));
    });

    it("hides whose rows are whose where amounts are hidden", async () => {
        await opened.press("隐藏金额");
        await opened.showTable("平仓");
        const text = await opened.page.evaluate(() => document.body.innerText + document.title);
        for (const { account } of members) assert.ok(!text.includes(account), account);
    });

    it("asks the network for nothing and complains of nothing", () => {
        assert.deepEqual(opened.foreignRequests(), []);
        assert.deepEqual(opened.complaints, []);
    });
});
