// The second page opened in Chromium, and what a reader does in it.
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import { pathToFileURL } from "node:url";

const modules = createRequire(join(process.cwd(), "package.json"));
const axeSource = readFileSync(modules.resolve("axe-core/axe.min.js"), "utf8");

export class ExploredPage {
    requests = [];
    complaints = [];

    constructor(context, page, path) {
        this.context = context;
        this.page = page;
        this.path = path;
        page.setDefaultTimeout(60_000);
        page.on("request", (request) => this.requests.push(request.url()));
        page.on("pageerror", (error) => this.complaints.push(`script: ${error.message}`));
        page.on("console", (message) => this.complaints.push(`console: ${message.text()}`));
        page.on("dialog", (dialog) => {
            this.complaints.push(`dialog: ${dialog.message()}`);
            void dialog.dismiss();
        });
    }

    /// `look`: width, colorScheme, locale of the browser.
    static async open(browser, path, { width = 1280, colorScheme = "light" } = {}) {
        const context = await browser.newContext({ viewport: { width, height: 900 }, colorScheme, offline: true });
        const opened = new ExploredPage(context, await context.newPage(), path);
        await opened.page.goto(pathToFileURL(path).href);
        await opened.settle();
        return opened;
    }

    close() {
        return this.context.close();
    }

    /// Waits until all sections are shown. A range is handed on with the next frame.
    async settle() {
        await this.page.waitForTimeout(100);
        await this.page.waitForSelector("main[aria-busy=false]");
    }

    /// The reader's own requests: the page, and what it holds itself.
    foreignRequests() {
        const own = pathToFileURL(this.path).href;
        return this.requests.filter((url) => url !== own && !url.startsWith("data:") && !url.startsWith("blob:"));
    }

    sections() {
        return this.page.evaluate(() => [...document.querySelectorAll("main > section:not([hidden])")].map(({ id }) => id));
    }

    /// The figures of the head, by their names.
    async figures() {
        return Object.fromEntries(
            await this.page.evaluate(() =>
                [...document.querySelectorAll("#overview .tile")].map((tile) => [
                    tile.querySelector("dt").innerText,
                    tile.querySelector("dd").firstChild.textContent,
                ]),
            ),
        );
    }

    /// The cells of a small table, row by row, the headings first.
    rowsOf(section) {
        return this.page.evaluate(
            (id) => [...document.querySelectorAll(`#${id} table tr`)].map((row) => [...row.cells].map((cell) => cell.innerText.trim())),
            section,
        );
    }

    async press(text) {
        await this.page.getByRole("button", { name: text, exact: true }).first().click();
        await this.settle();
    }

    rangeLine() {
        return this.page.locator(".range-line").innerText();
    }

    /// Shows a large table and waits for its rows. A tab is named by its text.
    async showTable(tab) {
        await this.page.locator("#tables").scrollIntoViewIfNeeded();
        if (tab !== undefined) await this.page.getByRole("tab", { name: tab, exact: true }).click();
        await this.page.waitForSelector("#tables .tabulator-row, #tables .tabulator-placeholder");
        await this.page.waitForTimeout(300);
    }

    /// "72 / 2 567" as [72, 2567].
    async counts() {
        const text = await this.page.locator("#tables .count").innerText();
        return text.split("/").map((part) => Number(part.replace(/\D/g, "")));
    }

    /// What axe-core finds wrong: the rule and where.
    async accessibilityFaults() {
        await this.page.evaluate(axeSource); // the page's policy lets no script of ours into it
        return this.page.evaluate(async () => {
            const { violations } = await window.axe.run(document, { resultTypes: ["violations"] });
            return violations.map(({ id, nodes }) => `${id}: ${nodes.slice(0, 3).map(({ html }) => html.slice(0, 160)).join(" | ")}`);
        });
    }

    /// Whether nothing is wider than the window but what scrolls by itself.
    fitsWindow() {
        return this.page.evaluate(() => document.scrollingElement.scrollWidth <= innerWidth);
    }
}
