// The index of a batch as a clerk uses it: opened in Chromium without a network, in both languages, light and dark, wide and
// narrow, its figures held against those that the accounts were made with.
// Usage: accounts_index_test.mjs MAKER OUTPUT, in a folder with playwright-core and axe-core; MAKER is make_accounts_index. Leaves
// pages and screenshots in OUTPUT.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { after, before, describe, it } from "node:test";

import { ExploredPage } from "./explored_page.mjs";
import { startBrowser } from "./opened_page.mjs";

const [maker, output] = process.argv.slice(2);
const thin = "\u202f";

let browser;
before(async () => {
    browser = await startBrowser();
});
after(() => browser?.close());

const hostileTexts = ["</script><script>alert(1)</script>", "<img src=x onerror=alert(2)>", "<svg onload=alert(3)>", "=cmd|'/C calc'!A0", "x".repeat(2000)];

/// A line of a batch's results, with `more` in it.
function resultLine(more) {
    const counts = Object.fromEntries(["statements", "trades", "closed", "positions", "peakMemory", "errors", "warnings", "notes"].map((name) => [name, 0]));
    const figures = { equity: null, pl: null, drawdown: null, marginUse: null };
    const texts = { reason: "", firstDay: "", lastDay: "", options: "", inputs: "", version: "" };
    const account = { user: "u", account: "1", kind: "domestic", status: "ok", worst: [], seconds: 1, outputs: {} };
    return JSON.stringify({ ...counts, ...figures, ...texts, ...account, ...more });
}

/// Makes the index of `count` accounts and those of the lines `more`, and returns its path.
function makeIndex(name, count, more = []) {
    const folder = join(output, "accounts", name);
    mkdirSync(folder, { recursive: true });
    const results = join(folder, "results.jsonl");
    writeFileSync(results, more.map((line) => `${line}\n`).join(""));
    execFileSync(maker, [String(count), folder, results]);
    return join(folder, "index.html");
}

async function withPage(path, look, use) {
    const opened = await ExploredPage.open(browser, path, look);
    try {
        await use(opened, opened.page);
        assert.deepEqual(opened.complaints, []);
        assert.deepEqual(opened.foreignRequests(), []);
    } finally {
        await opened.close();
    }
}

const press = async (opened, name) => {
    await opened.page.getByRole("button", { name, exact: true }).click();
    await opened.settle();
};

/// The texts under a column of those rows that are in the page.
const cellsOf = (page, field) =>
    page.evaluate((name) => [...document.querySelectorAll(`.tabulator-row [tabulator-field="${name}"]`)].map((cell) => cell.innerText), field);

const counts = async (page) => (await page.locator("#list .count").innerText()).split(/\/|of/).map((part) => Number(part.replace(/\D/g, "")));

const typeFilter = async (opened, label, text) => {
    const input = opened.page.getByLabel(label, { exact: true });
    await input.fill("");
    await input.pressSequentially(text);
    await opened.page.waitForTimeout(600); // the library waits until nothing more is typed
};

describe("the index of 40 accounts", () => {
    let path;
    before(() => {
        path = makeIndex("forty", 40);
    });

    it("tells of how many accounts each status is", () =>
        withPage(path, {}, async (opened, page) => {
            const buttons = await page.locator(".statuses button").allInnerTexts();
            assert.deepEqual(buttons, ["全部 40", "失败 2", "崩溃 2", "超时 2", "有问题 8", "正常 26"]);
            assert.match(await page.locator("header").innerText(), /运行日期 2024-01-08 · 账户 40 个/);
        }));

    // Without a report are 3, 7, 11, 23, 27 and 31; foreign are those whose number 5 divides. Domestic: of 780 in all 100 are
    // theirs (5 to 35 make 140, and 0), so 780 - 140 - 102 = 538 thousands, and 32 - 6 = 26 quarters.
    it("adds up what each kind of accounts has", () =>
        withPage(path, {}, async (opened) => {
            const rows = await opened.rowsOf("summary");
            assert.deepEqual(rows.map((row) => row.slice(0, 4)), [
                ["类别", "账户数", "有权益的账户", "期末权益"],
                ["境内", "32", "26", `538${thin}006.50`],
                ["境外", "8", "8", `140${thin}002.00`],
            ]);
            // Foreign: 10.5 x (0 + 10 + 20 + 30) - 2.5 x (5 + 15 + 25 + 35) = 630 - 200.
            assert.equal(rows[2][4], "430.00");
            // Domestic: even ones 380 - 60 = 320, odd ones 400 - 80 - 102 = 218; 10.5 x 320 - 2.5 x 218.
            assert.equal(rows[1][4], `2${thin}815.00`);
        }));

    it("has what failed first, then what has most errors, then most warnings", () =>
        withPage(path, {}, async (opened, page) => {
            const accounts = await cellsOf(page, "account");
            const numbers = accounts.map((account) => Number(account.slice(-2)));
            // Users are ordered by their names: "客户 11", "客户 23", ..., "客户 3", "客户 31", "客户 7".
            assert.deepEqual(numbers.slice(0, 6), [11, 23, 27, 3, 31, 7]);
            // Errors: 17, 26 and 32 have two, 1 and 37 one. Warnings: 12, 17, 32 and 37 have three, the others two.
            assert.deepEqual(numbers.slice(6, 14), [17, 32, 26, 37, 1, 12, 21, 6]);
            assert.equal(numbers[14], 0);
        }));

    it("shows the accounts of a status at a click, and all again", () =>
        withPage(path, {}, async (opened, page) => {
            await press(opened, "失败 2");
            await page.waitForFunction(() => document.querySelectorAll(".tabulator-row").length === 2);
            assert.deepEqual(await cellsOf(page, "account"), ["90000023", "90000003"]);
            assert.deepEqual(await counts(page), [2, 40]);
            await press(opened, "全部 40");
            assert.deepEqual(await counts(page), [40, 40]);
        }));

    it("marks margin use above the limit, and lets another limit be chosen", () =>
        withPage(path, {}, async (opened, page) => {
            assert.match(await page.locator(".above").innerText(), /超过 80% 的账户 0 个/); // 39 % is the highest
            await page.locator(".limit").fill("35");
            await page.locator(".limit").press("Enter");
            await opened.settle();
            assert.match(await page.locator(".above").innerText(), /超过 35% 的账户 4 个/); // 36 to 39: an account at the limit isn't above it
            await page.locator(".above").click();
            await page.waitForTimeout(300);
            const uses = await cellsOf(page, "margin_use");
            assert.deepEqual([...uses].sort(), [36, 37, 38, 39].map((use) => `▲ ${use}.00${thin}%`));
            await page.locator(".limit").fill("37");
            await page.locator(".limit").press("Enter");
            await opened.settle();
            const marked = (await cellsOf(page, "margin_use")).filter((use) => use.startsWith("▲"));
            assert.deepEqual([...marked].sort(), [38, 39].map((use) => `▲ ${use}.00${thin}%`));
            assert.deepEqual(await counts(page), [4, 40]); // the filter stands
            await page.locator(".limit").fill("much");
            await page.locator(".limit").press("Enter");
            assert.notEqual(await page.locator("#summary [role=alert]").innerText(), "");
            assert.match(await page.locator(".above").innerText(), /超过 37%/);
        }));

    it("finds accounts by numbers, in the unit that is shown, and by texts", () =>
        withPage(path, {}, async (opened, page) => {
            await typeFilter(opened, "按“最高占用率”筛选", "10..12");
            assert.deepEqual(await counts(page), [2, 40]); // 10 and 12: number 11 has none
            await press(opened, "清除条件");
            await typeFilter(opened, "按“内存（MB）”筛选", "<=22");
            assert.deepEqual(await counts(page), [3, 40]);
            await press(opened, "清除条件");
            await typeFilter(opened, "按“原因”筛选", "SIGNAL 11");
            assert.deepEqual(await counts(page), [2, 40]);
            await typeFilter(opened, "按“原因”筛选", "none of these");
            assert.match(await page.locator("#list").innerText(), /没有记录/);
            assert.deepEqual(await opened.accessibilityFaults(), []);
        }));

    it("sorts by a heading, with the pointer and by keys, what has nothing last", () =>
        withPage(path, {}, async (opened, page) => {
            const title = page.locator('.tabulator-col[tabulator-field="equity"] .tabulator-col-title');
            await title.focus();
            await title.press("Enter");
            await page.waitForTimeout(300);
            assert.deepEqual((await cellsOf(page, "equity")).slice(0, 2), ["0.25", `1${thin}000.25`]);
            await title.click();
            await page.waitForTimeout(300);
            assert.equal((await cellsOf(page, "equity"))[0], `39${thin}000.25`);
            await page.locator(".tabulator-tableholder").evaluate((holder) => (holder.scrollTop = holder.scrollHeight));
            await page.waitForTimeout(300);
            assert.deepEqual((await cellsOf(page, "equity")).slice(-6), new Array(6).fill("\u2013"));
        }));

    it("links to files beside it, and to none that an account doesn't have", () =>
        withPage(path, {}, async (opened, page) => {
            await typeFilter(opened, "按“账户”筛选", "90000005");
            const links = await page.evaluate(() => [...document.querySelectorAll(".tabulator-row a")].map((link) => link.getAttribute("href")));
            const folder = "./accounts/foreign/%E5%AE%A2%E6%88%B7%205/90000005";
            assert.deepEqual(links, [`${folder}/TradeBill.html`, `${folder}/explore.html`, `${folder}/report.json`]);
            await typeFilter(opened, "按“账户”筛选", "90000003");
            assert.equal(await page.locator(".tabulator-row a").count(), 0);
        }));

    it("opens a linked file whose folder has any name", () =>
        withPage(path, {}, async (opened, page) => {
            const folder = join(output, "accounts/forty/accounts/foreign/客户 5/90000005");
            mkdirSync(folder, { recursive: true });
            writeFileSync(join(folder, "TradeBill.html"), "<title>it is there</title>");
            await typeFilter(opened, "按“账户”筛选", "90000005");
            const popup = page.waitForEvent("popup");
            await page.locator(".tabulator-row a").first().click();
            const report = await popup;
            await report.waitForLoadState();
            assert.equal(await report.title(), "it is there");
        }));

    it("unfolds findings where they are reached by keys", () =>
        withPage(path, {}, async (opened, page) => {
            await press(opened, "有问题 8");
            await page.waitForTimeout(300);
            const cell = page.locator('.tabulator-row [tabulator-field="worst"] span').first();
            assert.match(await cell.innerText(), /^3 条：2024-01-05: 期末结存与上日不连续 \(17\)$/);
            await cell.focus();
            assert.equal(await page.locator(".meaning").innerText(), "2024-01-05: 期末结存与上日不连续 (17)\nsecond finding\nthird finding");
        }));

    it("hides amounts, and whose they are", () =>
        withPage(path, {}, async (opened, page) => {
            await press(opened, "隐藏金额");
            const shown = await page.evaluate(() => document.body.innerText);
            assert.doesNotMatch(shown, /9000\d{4}|客户 \d|000\.25|006\.50/);
            assert.ok((await cellsOf(page, "margin_use")).includes(`17.00${thin}%`));
        }));

    it("saves its rows as CSV, as they are shown", () =>
        withPage(path, {}, async (opened, page) => {
            await press(opened, "崩溃 2");
            await page.waitForTimeout(300);
            const download = page.waitForEvent("download");
            await press(opened, "另存为 CSV");
            const lines = readFileSync(await (await download).path(), "utf8").split("\r\n");
            assert.equal((await download).suggestedFilename(), "accounts.csv");
            assert.equal(lines.length, 4);
            assert.match(lines[0], /^\ufeff状态,用户,账户,类别,报告,/);
            assert.match(lines[1], /^崩溃,客户 27,90000027,境内,,,,0,0,,the worker ended by signal 11,/);
        }));

    for (const [width, colorScheme, language] of [[1600, "light", "zh"], [1600, "dark", "en"], [900, "dark", "zh"], [400, "light", "en"], [400, "dark", "zh"]]) {
        it(`is legible at ${width} px, ${colorScheme}, ${language}`, () =>
            withPage(path, { width, colorScheme }, async (opened, page) => {
                if (language === "en") await press(opened, "English");
                assert.equal(await page.title(), language === "en" ? "Accounts" : "账户索引");
                assert.equal(await page.evaluate(() => document.documentElement.lang), language === "en" ? "en" : "zh-CN");
                assert.ok(await opened.fitsWindow());
                await page.screenshot({ path: join(output, "accounts", `forty-${width}-${colorScheme}-${language}.png`) });
                assert.deepEqual(await opened.accessibilityFaults(), []);
                await page.locator(".limit").fill("10");
                await page.locator(".limit").press("Enter");
                await opened.settle();
                await page.locator(".above").click();
                await page.waitForTimeout(400);
                await page.screenshot({ path: join(output, "accounts", `above-${width}-${colorScheme}-${language}.png`) });
                assert.deepEqual(await opened.accessibilityFaults(), []);
            }));
    }
});

describe("odd indexes", () => {
    it("shows hostile texts as texts", async () => {
        const [user, account, reason, ...worst] = hostileTexts;
        const outputs = { "javascript:alert(4)/TradeBill.html": "a", "a\"><script>alert(5)</script>/report.json": "a" };
        const path = makeIndex("hostile", 3, [resultLine({ user, account, reason, worst, outputs, status: "failed" })]);
        await withPage(path, {}, async (opened, page) => {
            assert.equal((await cellsOf(page, "user"))[0], user);
            assert.equal((await cellsOf(page, "account"))[0], account);
            assert.equal((await cellsOf(page, "reason"))[0], reason);
            assert.equal(await page.locator("#list script, #list img, #list svg").count(), 0);
            await page.locator('.tabulator-row [tabulator-field="worst"] span').first().focus();
            assert.equal(await page.locator(".meaning script, .meaning img").count(), 0);
            const links = await page.evaluate(() => [...document.querySelectorAll(".tabulator-row:first-child a")].map((link) => link.href));
            for (const link of links) assert.match(link, /^file:\/\/\/[^<>"]*\/accounts\/hostile\//);
            await page.screenshot({ path: join(output, "accounts", "hostile.png") });
            assert.deepEqual(await opened.accessibilityFaults(), []);
        });
    });

    it("may have no accounts", () =>
        withPage(makeIndex("none", 0), {}, async (opened, page) => {
            assert.deepEqual(await page.locator(".statuses button").allInnerTexts(), ["全部 0"]);
            assert.match(await page.locator("#list").innerText(), /没有记录/);
            assert.deepEqual(await opened.accessibilityFaults(), []);
        }));

    it("tells of data that are damaged", async () => {
        const path = makeIndex("damaged", 3);
        writeFileSync(path, readFileSync(path, "utf8").replace(/id="accounts">..../, 'id="accounts">AAAA'));
        const opened = await browser.newPage();
        await opened.goto(`file://${path}`);
        await opened.waitForSelector("[role=alert]");
        assert.match(await opened.locator("[role=alert]").first().innerText(), /已损坏/);
        await opened.close();
    });
});

describe("the index of 10 000 accounts", () => {
    it("has them all, and only those in the page that are seen", () =>
        withPage(makeIndex("many", 10000), {}, async (opened, page) => {
            assert.deepEqual(await counts(page), [10000, 10000]);
            assert.ok((await page.locator(".tabulator-row").count()) < 100);
            assert.deepEqual((await page.locator(".statuses button").allInnerTexts()).slice(0, 2), [`全部 10${thin}000`, "失败 500"]);
            await page.locator(".tabulator-tableholder").evaluate((holder) => (holder.scrollTop = holder.scrollHeight));
            await page.waitForTimeout(300);
            assert.equal((await cellsOf(page, "account")).at(-1), "90009999");
        }));
});
