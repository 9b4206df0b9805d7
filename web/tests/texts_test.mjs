// How figures look, what is looked for above columns, what is copied, and whether both languages are complete.
//
// Usage: node texts_test.mjs MODULES PROGRAM VIEWER DOCS, where VIEWER is the folder with the pages without data
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";

import { viewerModules } from "./viewer_modules.mjs";

const [, , modules, program, pages, documents] = process.argv;
const viewer = await viewerModules(modules, [
    "page/format.ts",
    "tables/conditions.ts",
    "tables/csv.ts",
    "text/findings.ts",
    "text/terms.ts",
]);
const thin = "\u202f";

test("groups of digits are kept apart by a thin space", () => {
    assert.equal(viewer.decimal(1234567.891), `1${thin}234${thin}567.89`);
    assert.equal(viewer.decimal(-1000, 0), `\u22121${thin}000`);
    assert.equal(viewer.decimal(-0.001), "0.00"); // no sign before a zero
    assert.equal(viewer.decimal(null), "\u2013");
    assert.equal(viewer.plain(3820), `3${thin}820`);
    assert.equal(viewer.plain(3820.5), `3${thin}820.5`);
    assert.equal(viewer.percent(0.1234), `12.34${thin}%`);
});

test("large numbers have the units of the language", () => {
    assert.equal(viewer.short(12345, "zh"), `1.23${thin}万`);
    assert.equal(viewer.short(-250000000, "zh"), `\u22122.5${thin}亿`);
    assert.equal(viewer.short(9999, "zh"), `9${thin}999`);
    assert.equal(viewer.short(1200000, "en"), `1.2${thin}m`);
    assert.equal(viewer.short(5000, "en"), `5${thin}k`);
});

test("days look as days, and what is none as it is", () => {
    assert.equal(viewer.dayText("20240131"), "2024-01-31");
    assert.equal(viewer.dayText("202401"), "2024-01");
    assert.equal(viewer.dayText("2024"), "2024");
    assert.equal(viewer.dayText(""), "\u2013");
});

test("numbers are looked for by comparing", () => {
    const cases = [
        [">100", 101, true], [">100", 100, false], [">=100", 100, true], ["<0", -1, true], ["<=0", 0, true], ["=5", 5, true],
        ["5", 6, false], ["5..10", 10, true], ["5..10", 11, false], ["-10..-5", -7, true], [">1,000", 1001, true], [">100", null, false],
        ["", null, true], ["abc", 7, true], [">", 7, true],
    ];
    for (const [condition, value, expected] of cases) assert.equal(viewer.numberFits(condition, value), expected, `${condition} ${value}`);
});

test("texts are looked for as they are shown and as they are kept", () => {
    assert.ok(viewer.textFits("2024-01", "20240131", "2024-01-31"));
    assert.ok(viewer.textFits("202401", "20240131", "2024-01-31"));
    assert.ok(viewer.textFits("RB", "rb2405", "rb2405"));
    assert.ok(!viewer.textFits("m", null, "\u2013"));
});

test("what is copied obeys spreadsheets' rules and none of their formulas", () => {
    assert.equal(viewer.linesOf(["a", "b"], [["x,y", 1.5], ['say "x"', null], ["=1+1", -2]], ","), 'a,b\r\n"x,y",1.5\r\n"say ""x""",\r\n\'=1+1,-2\r\n');
    assert.equal(viewer.linesOf(["a"], [["x\ty"]], "\t"), 'a\r\n"x\ty"\r\n');
});

test("every finding of the program is told in both languages", () => {
    const codes = execFileSync(program, ["check", "--codes"], { encoding: "utf8" }).split("\n").map((line) => /^\s*([a-z][a-z-]*)\s/.exec(line)?.[1]);
    const known = codes.filter((code) => code !== undefined);
    assert.ok(known.length > 20);
    for (const code of known) assert.ok(code in viewer.kFindings, code);
});

test("every text has Chinese and English", () => {
    const texts = [
        ...Object.values(viewer.kColumns).flatMap(({ label, meaning }) => [label, ...(meaning ? [meaning] : [])]),
        ...Object.values(viewer.kFigures).flatMap(({ label, meaning }) => [label, meaning]),
        ...Object.values(viewer.kFindings).flatMap(({ what, todo }) => [what, todo]),
    ];
    for (const [zh, en] of texts) {
        assert.match(zh, /[\u4e00-\u9fff]/, en);
        assert.doesNotMatch(en, /[\u4e00-\u9fff]/);
        assert.notEqual(en.trim(), "");
    }
});

/// Names and versions of the libraries that a page has licences of, and the licences.
function librariesOf(page) {
    const licences = /<script type="text\/plain" id="licences">([^]*?)<\/script>/.exec(readFileSync(join(pages, page), "utf8"))[1];
    const heads = [...licences.matchAll(/^([\w@/.-]+) ([\d.]+) \(([^)]+)\)$/gm)];
    return { names: heads.map(([, name, version]) => `${name} ${version}`).sort(), licences };
}

test("the libraries are those that are told, with their licences", () => {
    const { names, licences } = librariesOf("explore.html");
    const told = readFileSync(join(documents, "viewer-licences.md"), "utf8");
    const rows = [...told.matchAll(/^\| ([\w@/.-]+) \| ([\d.]+) \|/gm)].map(([, name, version]) => `${name} ${version}`).sort();
    assert.deepEqual(names, rows);
    for (const words of ["Apache License", "Permission is hereby granted", "Redistribution and use"]) assert.ok(licences.includes(words), words);
});

test("the index of a batch is without charts", () => {
    const { names, licences } = librariesOf("accounts.html");
    assert.deepEqual(names.map((name) => name.split(" ")[0]), ["tabulator-tables"]);
    assert.ok(licences.includes("Permission is hereby granted"));
});
