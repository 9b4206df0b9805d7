// What stands above the table of a batch's index, and how its cells look.
//
// Usage: node accounts_test.mjs MODULES
import assert from "node:assert/strict";
import { test } from "node:test";

import { viewerModules } from "./viewer_modules.mjs";

const [, , modules] = process.argv;
const viewer = await viewerModules(modules, [
    "accounts/index_data.ts",
    "accounts/texts.ts",
    "accounts/view.ts",
    "data/table.ts",
    "tables/table_look.ts",
]);
const thin = "\u202f";

function textColumn(name, cells) {
    const texts = [...new Set(cells)];
    return { name, kind: "text", texts, codes: cells.map((cell) => texts.indexOf(cell)) };
}

const numberColumn = (name, values) => ({ name, kind: "number", values });

/// An index of accounts [kind, status, equity, pl, margin use].
function indexOf(accounts) {
    const of = (at) => accounts.map((account) => account[at]);
    const table = new viewer.Table({
        rows: accounts.length,
        columns: [
            textColumn("kind", of(0)), textColumn("status", of(1)),
            numberColumn("equity", of(2)), numberColumn("pl", of(3)), numberColumn("margin_use", of(4)),
        ],
    });
    return new viewer.Index({ schema: 1, program: "tradebill", day: "20240108", riskLimit: 0.8 }, table);
}

test("amounts of domestic and foreign accounts are never added up together", () => {
    const index = indexOf([
        ["domestic", "ok", 100, 1, null], ["foreign", "ok", 7, -2, null], ["domestic", "failed", null, null, null], ["domestic", "ok", 0.5, null, null],
    ]);
    assert.deepEqual(index.totals(), [
        { kind: "domestic", accounts: 3, withEquity: 2, equity: 100.5, pl: 1 },
        { kind: "foreign", accounts: 1, withEquity: 1, equity: 7, pl: -2 },
    ]);
});

test("a total of nothing is nothing, and a kind without accounts isn't there", () => {
    assert.deepEqual(indexOf([["foreign", "crashed", null, null, null]]).totals(), [{ kind: "foreign", accounts: 1, withEquity: 0, equity: null, pl: null }]);
    assert.deepEqual(indexOf([]).totals(), []);
});

test("accounts are counted by status, those first that want a hand", () => {
    const rows = ["ok", "findings", "ok", "timeout", "ok", "failed"].map((status) => ["domestic", status, null, null, null]);
    assert.deepEqual(indexOf(rows).statusCounts(), [
        { status: "failed", count: 1 }, { status: "timeout", count: 1 }, { status: "findings", count: 1 }, { status: "ok", count: 3 },
    ]);
});

test("an account at the limit isn't above it, nor is one without margin use", () => {
    const index = indexOf([0.8, 0.81, null, 0, 1.5].map((use) => ["domestic", "ok", null, null, use]));
    assert.equal(index.countAbove(0.8), 2);
    assert.equal(index.countAbove(0), 3);
    assert.equal(index.countAbove(1.5), 0);
});

test("a limit is typed in per cent", () => {
    const cases = [["80", 0.8], [" 92.5 % ", 0.925], ["0", 0], ["110", 1.1], ["", null], ["-1", null], ["a", null], ["8e1", null], ["1,000", null]];
    for (const [text, expected] of cases) assert.equal(viewer.limitOf(text), expected, text);
});

test("numbers are looked for by what is shown of them", () => {
    assert.equal(viewer.scaled(0.81, 100), 81); // not 81.00000000000001
    assert.equal(viewer.scaled(3145728, 1 / 1048576), 3);
    assert.equal(viewer.scaled(null, 100), null);
});

test("cells have units, and nothing where an account has nothing", () => {
    const view = new viewer.IndexView(indexOf([]));
    const number = (name, value) => view.cellText({ name, kind: "number", values: [] }, value);
    assert.equal(number("margin_use", 0.935), `93.50${thin}%`);
    assert.equal(number("equity", -1234.5), `\u22121${thin}234.50`);
    assert.equal(number("equity", null), "\u2013");
    assert.equal(number("equity", 0), "0.00");
    assert.equal(number("peak_memory", 3670016), "3.5");
    assert.equal(view.cellText({ name: "status", kind: "text", texts: [], codes: [] }, "timeout"), "超时");
    assert.equal(view.cellText({ name: "first_day", kind: "day", texts: [], codes: [] }, "20240105"), "2024-01-05");
    assert.equal(view.limitText(), "80");
});

test("hidden amounts hide whose they are, too", () => {
    const view = new viewer.IndexView(indexOf([]));
    view.setLook({ hidesAmounts: true });
    const text = (name, value) => view.cellText({ name, kind: "text", texts: [], codes: [] }, value);
    for (const name of ["user", "account", "reason", "worst", "page", "explore", "json"]) assert.equal(text(name, "90010002"), "•••", name);
    assert.equal(view.cellText({ name: "equity", kind: "number", values: [] }, 5), "•••");
    assert.equal(view.cellText({ name: "margin_use", kind: "number", values: [] }, 0.5), `50.00${thin}%`);
    assert.equal(text("status", "ok"), "正常");
});

test("no text of a status is part of another one, in either language", () => {
    for (const names of Object.values(viewer.kIndexCells)) {
        for (const language of [0, 1]) {
            const texts = Object.values(names).map((text) => text[language].toLowerCase());
            for (const text of texts) assert.equal(texts.filter((each) => each.includes(text)).length, 1, text);
        }
    }
});

test("every text has Chinese and English", () => {
    const sameInBoth = ["JSON"];
    const texts = [
        ...Object.values(viewer.kIndexTexts),
        ...Object.values(viewer.kIndexColumns).flatMap(({ label, meaning }) => [label, ...(meaning ? [meaning] : [])]),
        ...Object.values(viewer.kIndexCells).flatMap((names) => Object.values(names)),
    ];
    for (const [zh, en] of texts) {
        if (sameInBoth.includes(en) || /^\{status\}/.test(en)) continue;
        assert.match(zh, /[\u4e00-\u9fff]/, en);
        assert.doesNotMatch(en, /[\u4e00-\u9fff]/);
        assert.notEqual(en.trim(), "");
    }
});
