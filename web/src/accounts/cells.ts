// The cells of the index's table: marks and links, and texts that unfold where they are pointed at or reached by keys.
import type { CellComponent, ColumnDefinition } from "tabulator-tables";
import type { Column, Table } from "../data/table.ts";
import { h } from "../page/dom.ts";
import { columnDefinition, type TableLook } from "../tables/table_look.ts";
import { isAbove, kStatuses } from "./index_data.ts";
import type { IndexView } from "./view.ts";

const kOrder = [
    ...["status", "user", "account", "kind", "page", "explore", "json", "errors", "warnings", "margin_use", "reason", "worst"],
    ...["equity", "pl", "drawdown", "last_day", "first_day", "notes", "statements", "trades", "closed", "positions"],
    ...["seconds", "peak_memory"],
];
const kLinks = { page: "openPage", explore: "openExplore", json: "openJson" } as const;
/**
 * Widths in pixels. They are told, since the library finds them out by laying the rows out for each column anew, which took
 * half of the time in which the page opens.
 */
const kWidths: Record<string, number> = {
    ...{ status: 112, user: 130, account: 130, kind: 92, page: 94, explore: 98, json: 74, errors: 90, warnings: 116, margin_use: 122 },
    ...{ reason: 300, worst: 340, equity: 150, pl: 150, drawdown: 128, last_day: 112, first_day: 112, notes: 84, statements: 128 },
    ...{ trades: 100, closed: 100, positions: 116, seconds: 112, peak_memory: 146 },
};
const kLeastWidth = 48;
/** Cut where they are long, and told by a tip: no part of them may be the one that tells accounts apart. */
const kNames: ReadonlySet<string> = new Set(["user", "account"]);
const kGroupable: ReadonlySet<string> = new Set(["status", "user", "kind", "last_day"]);
const kRoomAround = 48;
const kLeastHeight = 420;

type Maker = (view: IndexView, column: Column, value: unknown, cell: HTMLElement) => HTMLElement;

const asText: Maker = (view, column, value) => h("span", {}, view.cellText(column, value));

/** Only to files beside the page, whatever the data say. */
const asLink: Maker = (view, column, value) => {
    const address = String(value ?? "");
    if (!address.startsWith("./")) return h("span", {}, view.cellText(column, null));
    return h("a", { href: address, target: "_blank", rel: "noopener" }, view.text(kLinks[column.name as keyof typeof kLinks]));
};

const asStatus: Maker = (view, column, value, cell) => {
    const known = kStatuses.find((status) => status === value);
    if (known !== undefined) cell.classList.add(`status-${known}`);
    return asText(view, column, value, cell);
};

const asProfit: Maker = (view, column, value, cell) => {
    const number = value as number | null;
    if (number !== null && number !== 0) cell.classList.add(number > 0 ? "gain" : "loss");
    return asText(view, column, value, cell);
};

const asMarginUse: Maker = (view, column, value, cell) => {
    const text = view.cellText(column, value);
    if (!isAbove(value as number | null, view.limit)) return h("span", {}, text);
    cell.classList.add("above-limit");
    return h("span", { title: view.text("isAboveLimit") }, `▲ ${text}`);
};

const asCount: Maker = (view, column, value, cell) => {
    if (value !== 0) cell.classList.add(column.name);
    return asText(view, column, value, cell);
};

/** How many lines and the first of them; all of them in a tip. */
const asLong: Maker = (view, column, value) => {
    const text = view.cellText(column, value);
    const lines = text.split("\n");
    const count = lines.length > 1 ? view.text("severalFindings", { n: lines.length }) : "";
    const isThere = value !== null && !view.isHidden(column.name);
    return h("span", { tabindex: isThere ? 0 : null, "data-meaning": isThere ? text : null }, count + lines[0]);
};

const kMakers: Record<string, Maker> = {
    ...{ status: asStatus, pl: asProfit, margin_use: asMarginUse, errors: asCount, warnings: asCount },
    ...{ page: asLink, explore: asLink, json: asLink, reason: asLong, worst: asLong },
};

function definitionOf(view: IndexView, look: TableLook, column: Column): ColumnDefinition {
    const { name } = column;
    const isLink = name in kLinks;
    const make = kMakers[name] ?? asText;
    return {
        ...columnDefinition(look, column, {
            meaning: view.columnMeaning(name),
            canFilter: !isLink && !view.isHidden(name),
            scale: view.scaleOf(name),
        }),
        ...{ width: kWidths[name], minWidth: kLeastWidth },
        tooltip: kNames.has(name) ? (_event: unknown, cell: CellComponent) => view.cellText(column, cell.getValue()) : false,
        formatter: (cell: CellComponent) => make(view, column, cell.getValue(), cell.getElement()),
    };
}

/** Columns in which any account has something, those first that are looked at first. */
function shownColumns(table: Table): Column[] {
    const known = kOrder.flatMap((name) => table.columns.filter((column) => column.name === name));
    return known.filter((column) => table.isFilled(column));
}

export function lookOfIndex(view: IndexView): TableLook {
    const look: TableLook = {
        label: view.text("list"),
        columns: shownColumns(view.index.table),
        hidesAmounts: view.hidesAmounts,
        mostHeight: Math.max(kLeastHeight, innerHeight - kRoomAround),
        text: (key, values) => view.text(key, values),
        columnLabel: (name) => view.columnLabel(name),
        cellText: (column, value) => view.cellText(column, value),
        definitionOf: (column) => definitionOf(view, look, column),
        isGroupable: (name) => kGroupable.has(name),
    };
    return look;
}
