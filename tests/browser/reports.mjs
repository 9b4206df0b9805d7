// The reports that the browser opens: samples of both families, made by the program in copies of their root folders.
import { execFileSync } from "node:child_process";
import { cpSync, existsSync, rmSync } from "node:fs";
import { join } from "node:path";

const tables = [
    { name: "trade", title: "交易统计", button: "Statisticsbtn", parts: ["tabTrade"] },
    { name: "positions", title: "期末持仓", button: "Positionsbtn", parts: ["tabPositions"] },
    { name: "match", title: "成交明细", button: "Matchbtn", parts: ["tabMatch"] },
];

// What each title of a page folds, in the page's order; `chartTables` are the parts with charts over a painted table.
const domestic = {
    sections: [
        { name: "account", title: "账户统计", button: "summarybtn", parts: ["account", "tabStatistics"] },
        ...tables,
        { name: "offset", title: "平仓记录", button: "Offersetbtn", parts: ["tabOffset", "offsetFigure"] },
    ],
    chartTables: { account: 1, tabStatistics: 2 },
    pictures: 16,
    links: 5, // of two links under one end the browser makes three
    input: ["--units", "units.ini"],
};
const foreign = {
    sections: [
        {
            name: "account",
            title: "账户统计",
            button: "summarybtn",
            parts: ["AccountDetail", "AccountFigure", "tabStatistics"],
        },
        ...tables,
    ],
    chartTables: { AccountDetail: 0, tabStatistics: 2 },
    pictures: 13,
    links: 4,
    input: ["--live", "live.ini"],
};

// The last days of the year have every part of its page. All of it makes a page of 74 MB. The standalone page folds what
// is more than some 500 rows: of fewer days it looks as the other one.
const lastDays = ["--from", "2025-01-02"];
const lastTwoDays = ["--from", "2025-01-10"];

const pageFolder = (root) => join(root, "Users", "demo", "Data", "Bill", "Image");

export const folderForm = {
    name: "folder",
    options: () => [],
    page: (root) => join(pageFolder(root), "TradeBill.html"),
};
export const standaloneForm = {
    name: "standalone",
    options: (root) => ["--standalone", standaloneForm.page(root)],
    page: (root) => join(root, "standalone.html"),
};

export const reports = [
    {
        name: "one-year",
        sample: "one-year",
        family: domestic,
        scale: 1,
        options: ["--dpi", "0", ...lastDays],
        forms: [folderForm],
    },
    {
        name: "two-days",
        sample: "one-year",
        family: domestic,
        scale: 1,
        options: ["--dpi", "0", ...lastTwoDays],
        forms: [standaloneForm],
    },
    {
        name: "one-year-192",
        sample: "one-year",
        family: domestic,
        scale: 2,
        options: ["--dpi", "192", ...lastDays],
        forms: [folderForm],
    },
    { name: "foreign", sample: "foreign", family: foreign, scale: 1, options: ["--dpi", "0"], forms: [folderForm] },
    {
        name: "foreign-days",
        sample: "foreign",
        family: foreign,
        scale: 1,
        options: ["--dpi", "0", "--from", "2024-02-01"],
        forms: [standaloneForm],
    },
];

/// Makes `report` and returns the path of its page in `form`, and the folder of the pictures that belong to it.
export function makeReport(program, samples, output, report, form) {
    const sample = join(samples, report.sample);
    const root = join(output, "roots", `${report.name}-${form.name}`);
    rmSync(root, { recursive: true, force: true });
    cpSync(join(sample, "root"), root, { recursive: true });
    rmSync(pageFolder(root), { recursive: true, force: true });
    const [option, file] = report.family.input;
    const request = ["--request", join(sample, "request.ini"), option, join(sample, file)];
    execFileSync(program, ["report", "--quiet", "--root", root, ...request, ...report.options, ...form.options(root)]);
    const page = form.page(root);
    if (!existsSync(page)) throw new Error(`no page at ${page}`);
    return { page, pictures: join(pageFolder(root), "Image_files") };
}

/// The whole year, of which the standalone page folds all sections but the account's.
export const year = { name: "year", sample: "one-year", family: domestic, scale: 1, options: ["--dpi", "0"] };
