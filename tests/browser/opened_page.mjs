// A page opened in Chromium, what it asked for while it loaded, and what can be measured in it.
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

// The client lives in the build folder, which the tests run in, and not beside these sources.
const { chromium } = createRequire(join(process.cwd(), "package.json"))("playwright-core");

const clickables = "[onclick], [data-parts], a[href]";

/// The page names no charset: Chromium finds GBK in its bytes, even in an English locale, so none is chosen here.
export function startBrowser() {
    return chromium.launch({ executablePath: "/usr/bin/chromium", chromiumSandbox: false }); // root has no sandbox
}

function bytesOf(source) {
    if (source.startsWith("file:")) return readFileSync(fileURLToPath(source));
    const [, base64] = /^data:image\/\w+[^,]*;base64,([^#]*)/.exec(source) ?? [];
    if (base64 === undefined) throw new Error(`no picture at ${source.slice(0, 100)}`);
    return Buffer.from(decodeURIComponent(base64), "base64");
}

export class OpenedPage {
    #page;
    requests = [];
    complaints = [];

    constructor(page) {
        this.#page = page;
        page.on("request", (request) => this.requests.push(request.url()));
        page.on("requestfailed", (request) => this.complaints.push(`failed: ${request.url()}`));
        page.on("pageerror", (error) => this.complaints.push(`script: ${error.message}`));
        page.on("console", (message) => this.complaints.push(`console: ${message.text()}`));
        page.on("dialog", (dialog) => {
            this.complaints.push(`dialog: ${dialog.message()}`);
            dialog.dismiss();
        });
    }

    /// `begin`: runs in the page before its own script.
    static async open(browser, path, scale = 1, { begin = () => {}, ...options } = {}) {
        const viewport = { width: 860 * scale, height: 900 * scale };
        const opened = new OpenedPage(await browser.newPage({ viewport, ...options }));
        await opened.#page.addInitScript(begin);
        opened.#page.setDefaultTimeout(120_000);
        await opened.#page.goto(pathToFileURL(path).href);
        return opened;
    }

    title() {
        return this.#page.title();
    }

    html() {
        return this.#page.evaluate(() => document.documentElement.outerHTML);
    }

    sectionTitles() {
        return this.#page.locator(".titletext").allTextContents();
    }

    /// Every picture with its width and height: as the page gives them (null if it doesn't), of the file, and as shown.
    pictures() {
        return this.#page.evaluate(() => {
            const pixels = (length) => (length === "" ? null : Number.parseFloat(length));
            return [...document.images].map((image) => {
                const { width, height } = image.getBoundingClientRect();
                return {
                    name: image.alt || image.id,
                    loaded: image.complete,
                    given: [pixels(image.style.width), pixels(image.style.height)],
                    natural: [image.naturalWidth, image.naturalHeight],
                    shown: [width, height],
                };
            });
        });
    }

    tableWidths() {
        return this.#page.evaluate(() =>
            [...document.querySelectorAll("table")].map((table) => table.getBoundingClientRect().width),
        );
    }

    /// Those of `ids` that take room on the page.
    shownOf(ids) {
        return this.#page.evaluate(
            (all) => all.filter((id) => document.getElementById(id).getClientRects().length > 0),
            ids,
        );
    }

    async pictureOf(buttonId) {
        return bytesOf(await this.#page.locator(`#${buttonId}`).evaluate((button) => button.src));
    }

    clickTitle(title) {
        return this.#page.locator(".titletext", { hasText: title }).click();
    }

    clickButton(buttonId) {
        return this.#page.locator(`#${buttonId}`).click();
    }

    /// The painted table of a part, and the boxes of the charts over it, both in pixels of the table.
    async chartsOver(partId) {
        const { source, ...boxes } = await this.#page.evaluate((id) => {
            const part = document.getElementById(id);
            const table = part.querySelector(":scope > img");
            const origin = table.getBoundingClientRect();
            const boxOf = (image) => {
                const { left, top, width, height } = image.getBoundingClientRect();
                return { left: left - origin.left, top: top - origin.top, width, height };
            };
            const charts = [...part.querySelectorAll("img")].filter((image) => image !== table);
            return { source: table.src, table: boxOf(table), charts: charts.map(boxOf) };
        }, partId);
        return { ...boxes, picture: bytesOf(source) };
    }

    /// How many elements answer a click: titles, buttons and links.
    clickableCount() {
        return this.#page.evaluate((selector) => document.querySelectorAll(selector).length, clickables);
    }

    /// Clicks the one of that number.
    click(number) {
        return this.#page.evaluate(([selector, i]) => document.querySelectorAll(selector)[i].click(), [clickables, number]);
    }

    /// Clicks whatever there is.
    clickAll() {
        return this.#page.evaluate(() => document.querySelectorAll("body *").forEach((element) => element.click()));
    }

    /// What a reader sees: the text that shows, where all that is larger than a cell stands, the pointer over pictures, and
    /// the place in the page.
    appearance() {
        return this.#page.evaluate(() => {
            const boxOf = (element) => {
                const { left, top, width, height } = element.getBoundingClientRect();
                return [element.localName, left + scrollX, top + scrollY, width, height].join(" ");
            };
            const boxes = [...document.body.querySelectorAll("*:not(td, span)")].map(boxOf);
            const cursors = [...document.images].map((image) => getComputedStyle(image).cursor);
            return { text: document.body.innerText, boxes, cursors, scroll: [scrollX, scrollY], hash: location.hash };
        });
    }

    /// The numbers of those elements of the body in which nothing can be marked.
    unmarkable() {
        return this.#page.evaluate(() => {
            const tryOf = () => new Event("selectstart", { bubbles: true, cancelable: true });
            const elements = [...document.body.querySelectorAll("*")];
            return elements.flatMap((element, i) => (element.dispatchEvent(tryOf()) ? [] : [i]));
        });
    }

    /// The texts of all cells, by tables and rows. A cell that holds an element is given with its markup.
    cells() {
        return this.#page.evaluate(() => {
            const textOf = ({ innerHTML, firstElementChild: span, childElementCount }) =>
                childElementCount === 1 && span.childElementCount === 0 ? span.textContent : innerHTML;
            const rowsOf = (table) => [...table.rows].map((row) => [...row.cells].map(textOf));
            return Object.fromEntries([...document.querySelectorAll("table")].map((table) => [table.id, rowsOf(table)]));
        });
    }

    /// The same of a standalone page with all that it has folded. What a line unfolds is folded again before the next one:
    /// the positions of a year take gigabytes.
    unfoldedCells() {
        return this.#page.evaluate(async () => {
            const isPacked = (body) => body?.matches("[data-packed]");
            const bodiesFrom = (body) => (isPacked(body) ? [body, ...bodiesFrom(body.nextElementSibling)] : []);
            const filled = async (bodies) => {
                while (bodies.some(({ rows }) => rows.length === 0)) await new Promise((done) => setTimeout(done));
            };
            const textOf = ({ innerHTML, firstElementChild: span, childElementCount }) =>
                childElementCount === 1 && span.childElementCount === 0 ? span.textContent : innerHTML;
            const rowsOf = (bodies) => bodies.flatMap(({ rows }) => [...rows].map((row) => [...row.cells].map(textOf)));
            const rowsBehind = async (body) => {
                const bodies = bodiesFrom(body.nextElementSibling);
                const line = body.querySelector("[data-unfolds]");
                line?.click();
                await filled(bodies);
                const rows = rowsOf(bodies);
                line?.click();
                return rows;
            };
            document.body.style.display = "none"; // nothing has to be laid out
            for (const button of document.querySelectorAll('img[data-parts][src*="BillExpand"]')) button.click();
            const tables = {};
            for (const table of document.querySelectorAll("table")) {
                tables[table.id] = [];
                for (const body of table.tBodies) {
                    if (isPacked(body)) continue;
                    const isOfPage = !body.matches("[data-unpackable], :has([data-unfolds])");
                    tables[table.id].push(...(isOfPage ? rowsOf([body]) : await rowsBehind(body)));
                }
            }
            document.body.style.display = "";
            return tables;
        });
    }

    /// The texts of the lines that unfold something, and of all else in tables that is no row of the page, as far as they
    /// show.
    addedLines() {
        return this.#page.locator("td[colspan]:visible").allInnerTexts();
    }

    waitForLine(text) {
        return this.#page.locator("td[colspan]:visible", { hasText: text }).waitFor();
    }

    sourceOf(buttonId) {
        return this.#page.locator(`#${buttonId}`).evaluate((button) => button.src);
    }

    /// How many rows the table shows.
    shownRows(tableId) {
        return this.#page.locator(`#${tableId} tr:visible`).count();
    }

    /// Clicks the line of that name, or with `key` presses it there.
    async unfoldLine(tableId, name, key) {
        const line = this.#page.locator(`#${tableId} [data-unfolds]`, { hasText: name });
        await (key ? line.press(key) : line.click());
    }

    /// Waits until the table shows so many rows.
    waitForRows(tableId, count) {
        const haveCome = ([id, wanted]) =>
            [...document.getElementById(id).rows].filter((row) => row.getClientRects().length > 0).length === wanted;
        return this.#page.waitForFunction(haveCome, [tableId, count]);
    }

    /// The names of all elements, each once, in the order of the alphabet.
    elementNames() {
        return this.#page.evaluate(() =>
            [...new Set([...document.querySelectorAll("*")].map((element) => element.localName))].sort(),
        );
    }

    /// What a script has left in the page's global `ran`.
    ran() {
        return this.#page.evaluate(() => window.ran);
    }

    /// Puts the section of that title at the top of the window, or the end of the page at its bottom, and keeps what is
    /// seen. A page of hundreds of thousands of pixels doesn't go into one picture.
    async shoot(path, title) {
        await this.#page.evaluate((name) => {
            const anchor = [...document.querySelectorAll("a[name]")].find((candidate) => candidate.name === name);
            if (anchor) anchor.scrollIntoView();
            else window.scrollTo(0, document.body.scrollHeight);
        }, title);
        await this.#page.screenshot({ path });
    }

    shootWhole(path) {
        return this.#page.screenshot({ path, fullPage: true });
    }

    close() {
        return this.#page.close();
    }
}

/// The darkest byte of all colours of a JPEG picture within each of `boxes`. Works in a page of its own: one that was
/// opened from a file may not look into its pictures.
export async function darkestWithin(browser, picture, boxes) {
    const page = await browser.newPage();
    try {
        return await page.evaluate(
            async ([source, areas]) => {
                const image = new Image();
                image.src = source;
                await image.decode();
                const canvas = document.createElement("canvas");
                [canvas.width, canvas.height] = [image.width, image.height];
                const context = canvas.getContext("2d");
                context.drawImage(image, 0, 0);
                const darkest = ({ left, top, width, height }) =>
                    context.getImageData(left, top, width, height).data.reduce((a, b) => Math.min(a, b), 255);
                return areas.map(darkest);
            },
            [`data:image/jpeg;base64,${picture.toString("base64")}`, boxes],
        );
    } finally {
        await page.close();
    }
}
