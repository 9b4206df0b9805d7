// What the viewer works out for a chosen range: over the whole report it must be what the analysis has, and for parts of it
// what small accounts come to by hand.
//
// Usage: node figures_test.mjs MODULES PROGRAM SAMPLES OUTPUT
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { existsSync, mkdirSync, readdirSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";

import { blocksOf } from "./explored_page.mjs";
import { viewerModules } from "./viewer_modules.mjs";

const [, , modules, program, samples, output] = process.argv;
const { ClosedRows, Days, Table, drawdownsOf, figuresOf, groupsOf, joinedTable, periodsOf, sumOf, wholeOf } = await viewerModules(modules, [
    "data/days.ts",
    "data/joined_table.ts",
    "data/table.ts",
    "figures/drawdowns.ts",
    "figures/groups.ts",
    "figures/periods.ts",
    "figures/range.ts",
    "figures/sum.ts",
]);

function assertClose(found, expected, what) {
    if (found === null || expected === null || typeof expected === "string") return assert.equal(found, expected, what);
    assert.ok(Math.abs(found - expected) <= 1e-9 * Math.max(1, Math.abs(expected)), `${what}: ${found} isn't ${expected}`);
}

/// Those of `names` in `found` are those of `expected`.
function assertFigures(found, expected, names, what) {
    for (const name of names) assertClose(found[name], expected[name], `${what}, ${name}`);
}

class Account {
    constructor(blocks, index) {
        this.blocks = blocks;
        this.index = index;
        const names = this.table("figures").texts("name");
        this.opening = this.table("figures").numbers("value")[names.indexOf("money.OpeningEquity")];
        this.figure = (name) => this.table("figures").numbers("value")[names.indexOf(name)];
        this.days = new Days(this.table("days"), this.opening);
    }

    table(name) {
        return new Table(this.blocks.get(`${this.index}.${name}`) ?? null);
    }
}

const groupNames = [
    ...["count", "lots", "pl", "wins", "losses", "winRate", "averageWin", "averageLoss", "profitFactor", "expectancy"],
    ...["medianHoldingDays", "fees"],
];

function checkGroups(account, kind, table) {
    const { days } = account.days;
    const closed = new ClosedRows(account.table("closed"));
    const found = groupsOf(closed, kind, days[0], days[days.length - 1]);
    const expected = account.table(table).rowsOf();
    const keyOf = (group) => `${group.currency ?? ""} ${group[kind] ?? group.key ?? ""}`;
    const byKey = new Map(expected.map((group) => [keyOf(group), group]));
    assert.deepEqual(found.map((group) => `${group.currency} ${group.key}`).sort(), [...byKey.keys()].sort());
    for (const group of found) assertFigures(group, byKey.get(`${group.currency} ${group.key}`), groupNames, `${kind} ${group.key}`);
}

mkdirSync(output, { recursive: true });
const accounts = readdirSync(samples).filter((name) => existsSync(join(samples, name, "request.ini")));
assert.ok(accounts.length > 5, "hardly an account to check");
for (const sample of accounts) {
    const page = join(output, `${sample}.html`);
    const folder = join(samples, sample);
    execFileSync(program, ["explore", "--root", join(folder, "root"), "--request", join(folder, "request.ini"), "--quiet", "-o", page]);
    const blocks = blocksOf(page);
    for (const [index, head] of blocks.get("head").accounts.entries()) {
        const account = new Account(blocks, index);
        const { days } = account;
        const range = wholeOf(days);
        const name = `${sample} ${head.account}`;

        test(`${name}: the head of the whole report`, () => {
            if (days.count === 0) return assert.equal(account.table("months").rows, 0);
            const found = figuresOf(days, range);
            assertClose(found.pl, sumOf(account.table("years").numbers("pl")), "pl");
            assertClose(found.fees, sumOf(account.table("years").numbers("fees")), "fees");
            assertClose(found.highestMarginUse, account.figure("margin.max"), "margin use");
            assertClose(found.drawdown?.depth ?? null, account.table("drawdowns").numbers("depth")[0] ?? null, "drawdown");
            const growth = account.table("years").numbers("return").reduce((product, rate) => product * (1 + (rate ?? 0)), 1);
            assertClose(found.return ?? 0, growth - 1, "return");
        });

        test(`${name}: drawdowns`, () => {
            const expected = account.table("drawdowns").rowsOf();
            const found = drawdownsOf(days, range);
            assert.equal(found.length, expected.length);
            const names = ["peak", "valley", "recovery", "depth", "money", "daysDown", "daysUp", "calendarDays"];
            found.forEach((drawdown, at) => assertFigures(drawdown, expected[at], names, `drawdown ${at}`));
        });

        for (const [table, column, length] of [["months", "month", 6], ["years", "year", 4]]) {
            test(`${name}: ${table}`, () => {
                const expected = account.table(table).rowsOf();
                const found = periodsOf(days, range, length);
                assert.deepEqual(found.map(({ period }) => period), expected.map((row) => row[column]));
                found.forEach((period, at) => assertFigures(period, expected[at], ["return", "pl", "fees"], period.period));
            });
        }

        for (const [kind, table] of [["product", "products"], ["contract", "contracts"], ["side", "sides"]]) {
            test(`${name}: ${table}`, () => checkGroups(account, kind, table));
        }
    }
}

/// An account by its days: [day, equity, cash flow, pl, return, index].
function made(opening, rows) {
    const names = ["equity", "cashFlow", "pl", "return", "index"];
    const numbers = names.map((name, at) => ({ name, kind: "number", values: rows.map((row) => row[at + 1]) }));
    const moneyIndex = rows.map((_, at) => rows[at][1] - rows.slice(0, at + 1).reduce((sum, row) => sum + row[2], 0));
    const columns = [
        { name: "day", kind: "day", texts: rows.map(([day]) => day), codes: rows.map((_, at) => at) },
        ...numbers,
        { name: "moneyIndex", kind: "number", values: moneyIndex },
        { name: "marginUse", kind: "number", values: rows.map((_, at) => (at === 1 ? 0.6 : 0.1)) },
    ];
    return new Days(new Table({ rows: rows.length, columns }), opening);
}

const small = made(1000, [
    ["20240102", 1100, 0, 100, 0.1, 1.1],
    ["20240103", 990, 0, -110, -0.1, 0.99],
    ["20240201", 1490, 500, 0, 0, 0.99],
    ["20240202", 1341, 0, -149, -0.1, 0.891],
    ["20240205", 1475.1, 0, 134.1, 0.1, 0.9801],
]);

test("a part of an account begins with the equity and the index of the day before", () => {
    const found = figuresOf(small, { from: 2, to: 4 });
    assert.equal(found.openingEquity, 990);
    assert.equal(found.closingEquity, 1475.1);
    assertClose(found.pl, -14.9, "pl"); // 0 - 149 + 134.1
    assertClose(found.return, -0.01, "return"); // 0.9801 / 0.99 - 1
    assert.equal(found.cashFlow, 500);
    assert.equal(found.highestMarginUse, 0.1);
    assert.deepEqual([found.winDays, found.lossDays], [1, 1]);
});

test("a part's deepest drawdown starts at its own highest value, not at that of the report", () => {
    const [whole] = drawdownsOf(small, { from: 0, to: 4 });
    assertClose(whole.depth, 0.19, "depth"); // 1 - 0.891 / 1.1
    assert.deepEqual([whole.peak, whole.valley, whole.recovery], ["20240102", "20240202", null]);
    const [part] = drawdownsOf(small, { from: 2, to: 4 });
    assertClose(part.depth, 0.1, "depth"); // 1 - 0.891 / 0.99
    assert.deepEqual([part.peak, part.valley, part.recovery], ["20240201", "20240202", null]);
    assertClose(part.money, 149, "money"); // 1490 - 500 less 1341 - 500
    assert.equal(part.calendarDays, 4); // 1 to 5 February
});

test("a month that the range cuts has the days inside alone", () => {
    const [january, february] = periodsOf(small, { from: 1, to: 3 }, 6);
    assertClose(january.return, -0.1, "January"); // 0.99 / 1.1 - 1
    assertClose(february.return, -0.1, "February"); // 0.891 / 0.99 - 1
    assertClose(february.pl, -149, "P/L");
    assert.deepEqual([february.first, february.last], [2, 3]);
});

test("rows without a known P/L, and of other days, are in no group", () => {
    const closed = new ClosedRows(
        new Table({
            rows: 4,
            columns: [
                { name: "BILL_DATE", kind: "day", texts: ["20240102", "20240103", "20240201"], codes: [0, 1, 1, 2] },
                { name: "product", kind: "text", texts: ["rb"], codes: [0, 0, 0, 0] },
                { name: "side", kind: "text", texts: ["long", "short"], codes: [0, 1, -1, 0] },
                { name: "MATCH_VOL", kind: "number", values: [2, 1, 5, 1] },
                { name: "pl", kind: "number", values: [300, -100, null, 999] },
                { name: "holdingDays", kind: "count", values: [4, null, 1, 1] },
            ],
        }),
    );
    const [rebar, ...others] = groupsOf(closed, "product", "20240102", "20240103");
    assert.equal(others.length, 0);
    const { count, lots, pl, winRate, profitFactor, expectancy, medianHoldingDays, longPl, shortPl } = rebar;
    assert.deepEqual({ count, lots, pl, winRate, profitFactor }, { count: 2, lots: 3, pl: 200, winRate: 0.5, profitFactor: 3 });
    assert.deepEqual({ expectancy, medianHoldingDays, longPl, shortPl }, { expectancy: 100, medianHoldingDays: 4, longPl: 300, shortPl: -100 });
});

test("sums don't lose what is small beside what is large", () => {
    assert.equal(sumOf([1e16, 1, -1e16, null]), 1);
    assert.equal(sumOf([null, null]), null);
});

test("tables of several accounts are one in the order of their days, with whose a row is", () => {
    const days = (...codes) => ({ name: "BILL_DATE", kind: "day", texts: ["20240102", "20240103", "20240104"], codes });
    const first = new Table({
        rows: 3,
        columns: [days(0, 1, 1), { name: "product", kind: "text", texts: ["rb", "cu"], codes: [0, 1, -1] }, { name: "pl", kind: "number", values: [1, null, 3] }],
    });
    const second = new Table({
        rows: 2,
        columns: [days(2, 1), { name: "product", kind: "text", texts: ["cu"], codes: [0, 0] }, { name: "lots", kind: "count", values: [7, 8] }],
    });
    const both = joinedTable([{ account: "A", table: first }, { account: "B", table: second }, { account: "C", table: new Table(null) }]);
    assert.equal(both.rows, 5);
    assert.deepEqual(both.columns.map(({ name, kind }) => `${name} ${kind}`), ["account text", "BILL_DATE day", "product text", "pl number", "lots count"]);
    assert.deepEqual(both.texts("account"), ["A", "A", "A", "B", "B"]);
    assert.deepEqual(both.texts("BILL_DATE"), ["20240102", "20240103", "20240103", "20240103", "20240104"]);
    assert.deepEqual(both.texts("product"), ["rb", "cu", "", "cu", "cu"]);
    assert.deepEqual(both.numbers("pl"), [1, null, 3, null, null]);
    assert.deepEqual(both.numbers("lots"), [null, null, null, 8, 7]);
    assert.equal(joinedTable([]).rows, 0);
});
