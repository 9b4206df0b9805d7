// The second page as a trader uses it: opened in Chromium without a network, in both languages, light and dark, wide and
// narrow, and every figure of it held against the JSON of the same days.
// Usage: node explore_test.mjs PROGRAM SAMPLES OUTPUT, in a folder with playwright-core and axe-core; leaves screenshots in OUTPUT.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { after, before, describe, it } from "node:test";

import { ExploredPage } from "./explored_page.mjs";
import { payloads, spoilSample } from "./hostile_accounts.mjs";
import { startBrowser } from "./opened_page.mjs";

const [program, samples, output] = process.argv.slice(2);
const pages = join(output, "explore");

let browser;
before(async () => {
    mkdirSync(pages, { recursive: true });
    browser = await startBrowser();
});
after(() => browser?.close());

/// Makes page and JSON of a sample's days, or of `root`, and returns both.
function makePage(name, sample, more = [], root = join(samples, sample, "root")) {
    const page = join(pages, `${name}.html`);
    const json = join(pages, `${name}.json`);
    const request = ["--root", root, "--request", join(samples, sample, "request.ini"), ...more];
    execFileSync(program, ["explore", ...request, "--quiet", "--force", "-o", page]);
    const out = join(pages, `${name}-report`);
    mkdirSync(out, { recursive: true });
    execFileSync(program, ["report", ...request, "--quiet", "--out", out, "--json", json]);
    return { page, json: JSON.parse(readFileSync(json, "utf8")) };
}

/// A number as the page prints it.
const numberIn = (text) => (/^[\u2013]?$/.test(text) ? null : Number(text.replaceAll("\u202f", "").replace("\u2212", "-").replace(/[+%]/g, "")));

function assertClose(found, expected, what, within = 0.005000001) {
    if (expected === null || found === null) return assert.equal(found, expected, what);
    assert.ok(Math.abs(found - expected) <= within, `${what}: ${found} isn't ${expected}`);
}

async function withPage(path, look, use) {
    const page = await ExploredPage.open(browser, path, look);
    try {
        return await use(page);
    } finally {
        await page.close();
    }
}

const all = ["overview", "findings", "course", "periods", "calendar", "drawdowns", "products", "margin", "open", "tables"];
const looks = [
    [1600, "light", "zh"],
    [400, "dark", "en"],
];
const accounts = [
    { name: "one-year", sample: "one-year", sections: all, more: [], looks: [...looks, [900, "dark", "zh"], [400, "light", "en"]] },
    { name: "fund-status", sample: "fund-status", sections: all },
    { name: "template", sample: "template-pairs", sections: all },
    { name: "foreign", sample: "foreign", sections: [...all.filter((id) => id !== "margin" && id !== "tables"), "currencies", "tables"] },
    { name: "one-day", sample: "fund-status", more: ["--from", "2024-01-02", "--to", "2024-01-02"], sections: null },
];

for (const { name, sample, more, sections, looks: ownLooks = looks } of accounts) {
    describe(`the page of ${name}`, () => {
        let made;
        before(() => {
            made = makePage(name, sample, more);
        });

        for (const [width, colorScheme, language] of ownLooks) {
            it(`is whole, ${width} wide, ${colorScheme}, ${language}`, () =>
                withPage(made.page, { width, colorScheme }, async (page) => {
                    if (language === "en") await page.press("English");
                    if (sections !== null) assert.deepEqual(await page.sections(), sections);
                    await page.showTable();
                    assert.ok(await page.fitsWindow(), "something is wider than the window");
                    assert.deepEqual(await page.accessibilityFaults(), []);
                    await page.page.evaluate(() => scrollTo(0, 0));
                    await page.page.screenshot({ path: join(pages, `${name}-${width}-${colorScheme}-${language}.png`), fullPage: true });
                    assert.deepEqual(page.foreignRequests(), []);
                    assert.deepEqual(page.complaints, []);
                    const text = await page.page.evaluate(() => document.body.innerText);
                    assert.doesNotMatch(text, /undefined|NaN|\[object|\{\w+\}|Infinity/);
                    if (language === "en") assert.doesNotMatch(await page.page.locator("h1, h2, .tile dt, thead button").allInnerTexts().then((texts) => texts.join(" ")), /[\u4e00-\u9fff]/);
                }));
        }

        it("has the figures of the JSON in its head", () =>
            withPage(made.page, {}, async (page) => {
                const { analysis, money } = made.json;
                const figures = await page.figures();
                const last = analysis.days[analysis.days.length - 1];
                const sum = (key) => analysis.years.reduce((total, year) => (year[key] === null ? total : (total ?? 0) + year[key]), null);
                assertClose(numberIn(figures["期初权益"]), money.OpeningEquity, "opening equity");
                assertClose(numberIn(figures["期末权益"]), last.equity, "closing equity");
                assertClose(numberIn(figures["盈亏"]), sum("pl"), "P/L");
                assertClose(numberIn(figures["手续费"]), sum("fees"), "fees");
                const depth = analysis.drawdowns[0]?.depth;
                assertClose(numberIn(figures["最大回撤"]), depth === undefined ? null : -100 * depth, "drawdown");
                const use = analysis.margin.max;
                assertClose(numberIn(figures["最高保证金占用率"]), use === null ? null : 100 * use, "margin use");
                const { sharpe, annualReturn } = analysis.ratios;
                assertClose(numberIn(figures["夏普比率"]), sharpe, "Sharpe ratio");
                assertClose(numberIn(figures["年化收益率"]), annualReturn === null ? null : 100 * annualReturn, "annual return");
            }));

        it("has the products of the JSON", () =>
            withPage(made.page, {}, async (page) => {
                const { products } = made.json.analysis;
                if (products.length === 0) return;
                for (const button of await page.page.locator("#products .more").all()) await button.click();
                const [head, ...rows] = await page.rowsOf("products");
                assert.equal(rows.length, products.length);
                const at = (label) => head.indexOf(label);
                const byName = new Map(rows.map((row) => [`${row[0]} ${at("币种") < 0 ? "" : row[at("币种")]}`, row]));
                for (const product of products) {
                    const shown = product.name ? `${product.name} (${product.product})` : product.product;
                    const row = byName.get(`${shown} ${product.currency}`);
                    assert.ok(row !== undefined, shown);
                    assertClose(numberIn(row[at("盈亏")]), product.pl, `P/L of ${shown}`);
                    assertClose(numberIn(row[at("胜率")]), 100 * product.winRate, `win rate of ${shown}`, 0.05);
                    assertClose(numberIn(row[at("盈亏比")]), product.profitFactor, `profit factor of ${shown}`);
                    assertClose(numberIn(row[at("手续费")]), product.fees, `fees of ${shown}`);
                }
            }));

        it("has all rows of the JSON", () =>
            withPage(made.page, {}, async (page) => {
                const tabs = { 成交: "matches", 平仓: "closed", 每日持仓: "positions", 每日持仓汇总: "positionSums" };
                for (const [tab, list] of Object.entries(tabs)) {
                    const rows = made.json[list].length;
                    if (rows === 0) continue;
                    await page.showTable(tab);
                    assert.deepEqual(await page.counts(), [rows, rows], tab);
                }
            }));
    });
}

describe("a reader of one-year", () => {
    let made;
    before(() => {
        made = makePage("used", "one-year");
    });
    const use = (name, steps, look = {}) => it(name, () => withPage(made.page, look, steps));
    const daysIn = (json, from, to) => json.analysis.days.filter(({ day }) => day >= from && day <= to);

    use("chooses a range by a button, by keys and by dragging, and all figures follow", async (page) => {
        const whole = await page.rangeLine();
        await page.press("近 3 月");
        const line = await page.rangeLine();
        assert.ok(line.startsWith("2024-10-14 至 2025-01-13"), line); // three months before the last day is a Sunday
        const days = daysIn(made.json, "20241014", "20250113");
        const pl = days.reduce((sum, day) => sum + day.pl, 0);
        assertClose(numberIn((await page.figures())["盈亏"]), pl, "P/L of the range");
        await page.showTable("平仓");
        const closed = made.json.closed.filter(({ BILL_DATE }) => BILL_DATE >= "20241014");
        assert.deepEqual(await page.counts(), [closed.length, made.json.closed.length]);
        await page.page.locator("h1").click();
        await page.page.keyboard.press("ArrowLeft");
        await page.settle();
        assert.notEqual(await page.rangeLine(), line);
        await page.page.keyboard.press("0");
        await page.settle();
        assert.equal(await page.rangeLine(), whole);
        await page.page.evaluate(() => document.querySelector("#course").scrollIntoView());
        await page.page.waitForTimeout(200);
        const box = await page.page.locator("#course canvas").boundingBox();
        await page.page.mouse.move(box.x + box.width * 0.3, box.y + 120);
        await page.page.mouse.down();
        await page.page.mouse.move(box.x + box.width * 0.6, box.y + 120, { steps: 8 });
        await page.page.mouse.up();
        await page.settle();
        const dragged = await page.rangeLine();
        assert.match(dragged, /^2024-0[3-5]-\d\d 至 2024-0[7-9]-\d\d/);
    });

    use("chooses a drawdown and a month", async (page) => {
        await page.page.locator("#drawdowns .row-button").first().click();
        await page.page.waitForTimeout(300);
        const [worst] = made.json.analysis.drawdowns;
        const iso = (day) => day.replace(/^(\d{4})(\d\d)(\d\d)$/, "$1-$2-$3");
        assert.ok((await page.rangeLine()).startsWith(`${iso(worst.peak)} 至 ${iso(worst.recovery)}`));
        await page.press("全部");
        await page.page.locator("#periods .heat button").nth(3).click();
        await page.settle();
        assert.match(await page.rangeLine(), /^2024-04-01 至 2024-04-30/);
    });

    use("sees a product's rows alone, sorts, groups and looks for some", async (page) => {
        await page.page.locator("#products .row-button", { hasText: /^ru$/ }).click();
        await page.showTable("平仓");
        const ru = made.json.closed.filter(({ CONTRACT, DELIVERY }) => /^ru(\d|$)/.test(CONTRACT + DELIVERY));
        assert.deepEqual(await page.counts(), [ru.length, made.json.closed.length]);
        await page.page.locator("#tables input[aria-label*='手数']").first().pressSequentially(">1");
        await page.page.waitForTimeout(700);
        const large = ru.filter(({ values }) => values.MATCH_VOL > 1);
        assert.deepEqual(await page.counts(), [large.length, made.json.closed.length]);
        const [download] = await Promise.all([page.page.waitForEvent("download"), page.press("另存为 CSV")]);
        const lines = readFileSync(await download.path(), "utf8").split("\r\n");
        assert.equal(lines.pop(), "");
        assert.equal(lines.length, large.length + 1);
        assert.ok(lines[0].startsWith("\ufeff日期,品种,合约,多空"), lines[0]);
        const lots = lines[0].slice(1).split(",").indexOf("手数");
        assert.deepEqual(lines.slice(1).map((line) => Number(line.split(",")[lots])), large.map(({ values }) => values.MATCH_VOL));
        await page.page.locator("#tables select").selectOption({ label: "合约" });
        await page.page.waitForTimeout(400);
        const contracts = new Set(large.map(({ CONTRACT, DELIVERY }) => CONTRACT + DELIVERY));
        assert.equal(await page.page.locator("#tables .tabulator-group").count(), contracts.size);
        await page.press("取消筛选");
        await page.press("清除条件");
        assert.deepEqual(await page.counts(), [made.json.closed.length, made.json.closed.length]);
    });

    use("hides all amounts and the account", async (page) => {
        await page.press("隐藏金额");
        await page.showTable("平仓");
        const text = await page.page.evaluate(() => document.body.innerText);
        for (const secret of ["90020240", "3\u202f085\u202f770", "2\u202f000\u202f000"]) assert.ok(!text.includes(secret), secret);
        assert.match((await page.figures())["盈亏"], /%$/);
        assert.ok(!(await page.page.title()).includes("90020240"));
    });

    use("turns the colours of gain and loss round", async (page) => {
        const colour = () => page.page.evaluate(() => getComputedStyle(document.querySelector("#overview .gain")).color);
        const red = await colour();
        await page.press("红涨绿跌");
        assert.notEqual(await colour(), red);
    });

    use("prints the first sections on A4", async (page) => {
        const pdf = await page.page.pdf({ format: "A4", preferCSSPageSize: true });
        writeFileSync(join(pages, "printed.pdf"), pdf);
        const sheets = pdf.toString("latin1").match(/\/Type\s*\/Page\b/g)?.length ?? 0;
        assert.ok(sheets >= 1 && sheets <= 4, `${sheets} sheets`);
    });

    use("learns what a figure means by pointing at it or by keys", async (page) => {
        await page.page.locator("#overview .term").nth(3).focus();
        assert.match(await page.page.locator("[role=tooltip]").innerText(), /净值/);
    });
});

describe("a page of cells that are markup", () => {
    it("shows them as texts, and none of them comes to life", async () => {
        const root = join(pages, "hostile");
        spoilSample(join(samples, "fund-status"), root);
        const page = join(pages, "hostile.html");
        try {
            execFileSync(program, ["explore", "--root", root, "--request", join(samples, "fund-status", "request.ini"), "--quiet", "-o", page], { stdio: "pipe" });
        } catch (error) {
            assert.equal(error.status, 1, String(error)); // a cell may be what no reader takes
        }
        await withPage(page, {}, async (opened) => {
            const seen = [];
            for (const tab of ["成交", "平仓", "每日持仓"]) {
                await opened.showTable(tab);
                seen.push(await opened.page.evaluate(() => document.querySelector("#tables").innerText));
                await opened.page.evaluate(() => document.querySelectorAll("main *").forEach((element) => element.click()));
                await opened.page.waitForTimeout(500);
            }
            assert.ok(payloads.some((payload) => seen.join().includes(payload)), "no payload is seen");
            assert.equal(await opened.page.evaluate(() => window.ran), undefined);
            assert.equal(await opened.page.evaluate(() => document.querySelectorAll("main iframe, main object, main form, main base, main svg, main img").length), 0);
            assert.deepEqual(opened.foreignRequests(), []);
            assert.deepEqual(opened.complaints.filter((text) => !text.includes("Content Security Policy")), []);
        });
    });

    it("lets no handler run that stands in an attribute", async () => {
        const { page } = makePage("policy", "fund-status");
        await withPage(page, {}, async (opened) => {
            const ran = await opened.page.evaluate(async () => {
                const element = document.createElement("div");
                element.innerHTML = "<img src=x onerror='window.ran=1'><button onclick='window.ran=2'>b</button>";
                document.body.append(element);
                element.querySelector("button").click();
                await new Promise((resolve) => setTimeout(resolve, 200));
                return window.ran;
            });
            assert.equal(ran, undefined);
        });
    });
});

describe("a damaged page", () => {
    it("says so in both languages", async () => {
        const { page } = makePage("whole", "fund-status");
        const damaged = join(pages, "damaged.html");
        writeFileSync(damaged, readFileSync(page, "utf8").replace(/(id="head">.{20})..../, "$1AAAA"));
        const context = await browser.newContext({ offline: true });
        const opened = await context.newPage();
        await opened.goto(`file://${damaged}`);
        await opened.waitForSelector("[role=alert]");
        const text = await opened.evaluate(() => document.body.innerText);
        assert.ok(text.includes("已损坏") && text.includes("is damaged"), text);
        await context.close();
    });
});
