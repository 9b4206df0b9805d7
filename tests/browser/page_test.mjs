// The page as a trader sees it: opened in Chromium, folded, unfolded and measured.
// Usage: node page_test.mjs PROGRAM SAMPLES OUTPUT, in a folder with playwright-core; leaves screenshots in OUTPUT.
import assert from "node:assert/strict";
import { mkdirSync, readFileSync } from "node:fs";
import { dirname, join, relative } from "node:path";
import { after, before, describe, it } from "node:test";
import { fileURLToPath } from "node:url";

import { OpenedPage, darkestWithin, startBrowser } from "./opened_page.mjs";
import { makeReport, reports } from "./reports.mjs";

const [program, samples, output] = process.argv.slice(2);
const pageWidth = 825;
const chartLeft = 310;
const paper = 245; // white, but for the traces that JPEG leaves around a line
const ink = 128;

let browser;
before(async () => {
    mkdirSync(output, { recursive: true });
    browser = await startBrowser();
});
after(() => browser?.close());

const isInside = (folder, url) => url.startsWith("file:") && !relative(folder, fileURLToPath(url)).startsWith("..");

function describePage(report, form) {
    const { family, scale } = report;
    const parts = family.sections.flatMap((section) => section.parts);
    const screenshot = (what) => join(output, `${report.name}-${form.name}-${what}.png`);
    let made;
    let page;

    before(async () => {
        made = makeReport(program, samples, output, report, form);
        page = await OpenedPage.open(browser, made.page, scale);
    });
    after(() => page?.close());

    it("has its title and its section titles", async () => {
        assert.equal(await page.title(), "交易及账单报告");
        const titles = (await page.sectionTitles()).map((title) => title.trim());
        assert.deepEqual(titles, family.sections.map((section) => section.title));
    });

    it("has no character that the browser couldn't read", async () => {
        const html = await page.html();
        assert.ok(html.includes("仅供参考"));
        assert.ok(!html.includes("\uFFFD"));
    });

    it("shows every picture at the size that the page gives it", async () => {
        const pictures = await page.pictures();
        assert.equal(pictures.length, family.pictures);
        for (const { name, loaded, given, natural, shown } of pictures) {
            assert.ok(loaded && natural[0] > 0 && natural[1] > 0, name);
            // The style of this one ends before it says a size: the browser shows the picture as it was made.
            const wanted = name === "平仓盈亏曲线图" ? [pageWidth * scale, 250 * scale] : given;
            assert.deepEqual(shown, wanted, name);
        }
        const banner = pictures[0];
        assert.deepEqual(banner.shown, [pageWidth * scale, 135 * scale]);
    });

    it("gives its tables the width of the page", async () => {
        const widths = await page.tableWidths();
        assert.equal(widths.length, family.sections.length - 1);
        for (const width of widths) assert.equal(width, pageWidth * scale);
    });

    for (const [part, count] of Object.entries(family.chartTables)) {
        it(`has ${count} chart(s) over the free right part of ${part}`, async () => {
            const { table, charts, picture } = await page.chartsOver(part);
            assert.equal(charts.length, count);
            assert.equal(table.width, pageWidth * scale);
            for (const chart of charts) {
                assert.equal(chart.left, chartLeft * scale);
                assert.ok(chart.left + chart.width <= table.width && chart.top >= 0);
                assert.ok(chart.top + chart.height <= table.height);
            }
            charts.slice(1).forEach(({ top }, i) => assert.ok(top >= charts[i].top + charts[i].height));
            const textColumns = { ...table, width: chartLeft * scale };
            const [text, ...underCharts] = await darkestWithin(browser, picture, [textColumns, ...charts]);
            assert.ok(text < ink);
            for (const darkest of underCharts) assert.ok(darkest >= paper, `text under a chart: ${darkest}`);
        });
    }

    it("leaves a picture of every section", async () => {
        for (const section of family.sections) await page.shoot(screenshot(section.name), section.title);
        await page.shoot(screenshot("end"));
    });

    for (const section of family.sections) {
        it(`folds and unfolds ${section.title} by its title and by its button`, async () => {
            const clicks = [() => page.clickTitle(section.title), () => page.clickButton(section.button)];
            const others = parts.filter((part) => !section.parts.includes(part));
            const expect = async (shown, button) => {
                assert.deepEqual(await page.shownOf(parts), shown);
                assert.deepEqual(await page.pictureOf(section.button), readFileSync(join(made.pictures, button)));
            };
            await expect(parts, "BillShrink.png");
            for (const [fold, unfold] of [clicks, [...clicks].reverse()]) {
                await fold();
                await expect(others, "BillExpand.png");
                await unfold();
                await expect(parts, "BillShrink.png");
            }
        });
    }

    it("shows the bars and notes alone when all is folded", async () => {
        await page.shoot(screenshot("unfolded"), family.sections[1].title);
        for (const section of family.sections.slice(1)) await page.clickTitle(section.title);
        await page.shootWhole(screenshot("tables-folded"));
        await page.clickTitle(family.sections[0].title);
        await page.shootWhole(screenshot("folded"));
        assert.deepEqual(await page.shownOf(parts), []);
    });

    it("asks for nothing outside of its folder, and nothing went wrong", () => {
        const folder = dirname(made.page);
        assert.ok(page.requests.length > 0);
        const outside = page.requests.filter((url) => !url.startsWith("data:") && !isInside(folder, url));
        assert.deepEqual(outside, []);
        assert.deepEqual(page.complaints, []);
    });
}

for (const report of reports) {
    for (const form of report.forms) describe(`${report.name}, ${form.name}`, () => describePage(report, form));
}
