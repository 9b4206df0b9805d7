// Accounts whose statements say markup: copies of the samples, one cell of each row replaced. Statements are handled as
// strings of bytes ("latin1"), so that characters may be broken.
import { cpSync, mkdirSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";

/// What cells say. None has a blank, a comma or a "|", which would end it or be taken out. Most set a global if they run; a
/// field cuts them where it ends, at 8, 15 or 80 bytes, so some are short.
export const payloads = [
    "<svg/onload=ran=1>",
    '"><img/src=x/onerror=ran=2>',
    "</script><script>ran=3</script>",
    "'onclick='ran=4'x='",
    "<a/href=javascript:ran=5>x</a>",
    "</span></td><script>ran=6</script>",
    "<iframe/srcdoc=&lt;script&gt;parent.ran=7&lt;/script&gt;>",
    "<i/onclick=ran=8>",
    "<b>",
    "<!--",
    "-->",
    "<![CDATA[",
    "</body/></html/>", // the page in its folder leaves out a line with these tags in their plain form
    "</td></tr></table>",
    "<plaintext>",
    "<textarea>",
    "<title>",
    "<style>*{display:none}",
    "<base/href=//base.invalid/>",
    "<link/rel=stylesheet/href=//style.invalid/>",
    "<meta/http-equiv=refresh/content=0;url=//refresh.invalid>",
    "<form/action=//form.invalid><button>",
    "<object/data=//object.invalid>",
    "&lt;b&gt;",
    "&#60;b&#x3e;",
    "&amp",
    "\xd6<b>", // the lead byte of a character whose other byte is missing
    "\xd6&lt",
    "\xd6'",
    "<b>\xd6",
];

const isNumber = (cell) => /^-?\d+(\.\d+)?%?$/.test(cell);
const isTotal = (cell) => /^(\xb9\xb2|\xba\xcf|\xd7\xdc|\xd0\xa1)/.test(cell); // 共 合 总 小

/// The cells of a line with the places where they begin. A "|" may be the second byte of a character.
function cellsOf(line) {
    const cell = line.trimStart().startsWith("|") ? /(?:[\x81-\xfe].|[^|\x81-\xfe])+/gs : /\S+/g;
    return [...line.matchAll(cell)]
        .map(({ 0: text, index }) => ({ text: text.trim(), at: index + text.search(/\S|$/) }))
        .filter(({ text }) => text !== "");
}

/// Rows of the sections that the page shows: neither headings nor totals nor money, which are labels or numbers alone.
function isRow(cells) {
    const numbers = cells.filter(({ text }) => isNumber(text)).length;
    return cells.length >= 8 && numbers >= 3 && numbers < cells.length && !isTotal(cells[0].text);
}

/// A line of foreign statements that names the exchange of the rows below it.
const isExchange = (line) => /^[A-Z]+\r?$/.test(line);

/// `line` with another text in the place of a cell: what is behind it stays where it is if there are blanks for it.
function withCell(line, { text, at }, payload) {
    const blanks = Math.max(0, payload.length - text.length);
    const behind = line.slice(at + text.length).replace(new RegExp(`^ {0,${blanks}}(?= )`), "");
    return line.slice(0, at) + payload.padEnd(text.length) + behind;
}

/// Replaces cells in turn, so that each column has every payload sooner or later.
class Spoiler {
    #rows = new Map(); // spoilt so far, by the number of their cells

    spoil(line) {
        const cells = cellsOf(line);
        if (!isRow(cells) && !isExchange(line)) return line;
        const row = this.#rows.get(cells.length) ?? 0;
        this.#rows.set(cells.length, row + 1);
        const round = Math.floor(row / cells.length);
        const column = row % cells.length;
        return withCell(line, cells[column], payloads[(round + 7 * column) % payloads.length]);
    }
}

const readBytes = (path) => readFileSync(path, "latin1");
const writeBytes = (path, bytes) => writeFileSync(path, bytes, "latin1");

/// Makes `root`, the hostile copy of the sample `sample`.
export function spoilSample(sample, root) {
    rmSync(root, { recursive: true, force: true });
    cpSync(join(sample, "root"), root, { recursive: true });
    const bills = join(root, "Users", "demo", "Data", "Bill");
    const spoiler = new Spoiler();
    for (const name of readdirSync(bills).filter((file) => file.endsWith(".txt")).sort()) {
        const lines = readBytes(join(bills, name)).split("\n");
        writeBytes(join(bills, name), lines.map((line) => spoiler.spoil(line)).join("\n"));
    }
}

/// A name that is markup: of the user, the account, the template, and of what the settings speak of. A template's has 10
/// bytes at most.
export const hostileName = "\"'><i>&lt;";

const iniOf = (sections) =>
    Object.entries(sections)
        .map(([name, lines]) => `[${name}]\r\n${lines.join("\r\n")}\r\n`)
        .join("");

/// Makes `root` of the sample `sample`, with a hostile name wherever one is given, and returns the options of its report.
export function renameSample(sample, root, { prefix, kind, format, account, template, live }) {
    rmSync(root, { recursive: true, force: true });
    const bills = join(root, "Users", hostileName, "Data", "Bill");
    mkdirSync(bills, { recursive: true });
    const source = join(sample, "root", "Users", "demo", "Data", "Bill");
    const old = `${prefix}${account}.`;
    for (const name of readdirSync(source).filter((file) => file.startsWith(old))) {
        cpSync(join(source, name), join(bills, `${prefix}${hostileName}.${name.slice(old.length)}`));
    }
    const put = (path, text) => {
        mkdirSync(dirname(path), { recursive: true });
        writeFileSync(path, text);
        return path;
    };
    const chain = [`ItemBase=${hostileName}`, "Num=1", `Item01=${hostileName}`];
    put(join(root, "sys", "chain.ini"), iniOf({ CHAINNUM: ["Num=1"], CHAIN001: chain }));
    const units = put(join(root, "units.ini"), iniOf({ UNITS: [`${hostileName}=5`] }));
    const products = put(join(root, "products.ini"), iniOf({ PRODUCTS: [`${hostileName}=${hostileName}`] }));
    const lastDay = live ? new Date().toLocaleDateString("sv") : "2024-02-05"; // live figures are of today
    const options = ["--user", hostileName, "--account", hostileName, "--from", "2024-01-02", "--to", lastDay];
    options.push("--units", units, "--products", products, "--margin-offset", "--kind", kind);
    if (kind === "domestic") options.push("--format", format);
    if (template) {
        const copy = put(join(root, "BillTemplate", `${hostileName}.ini`), "");
        cpSync(join(sample, "root", "BillTemplate", `${template}.ini`), copy);
        options.push("--template", hostileName);
    }
    if (live) {
        const day = "BILL_DATE=20240205";
        const currency = [day, `CURRENCY=${hostileName}`, "KHQY=1.00"];
        const file = iniOf({ BASE: [day], CURRENCY1: currency });
        options.push("--live", put(join(root, "live.ini"), file));
    }
    return options;
}
