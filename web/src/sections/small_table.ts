// Small tables, of which all rows are shown: sorted by a click on a heading.
import { h, fill } from "../page/dom.ts";

export interface SmallColumn<Item> {
    label: string;
    meaning?: string;
    /** What the column is sorted by. */
    value: (item: Item) => number | string | null;
    text: (item: Item) => string;
    tone?: (item: Item) => string;
}

export interface SmallTable<Item> {
    label: string;
    columns: SmallColumn<Item>[];
    rows: readonly Item[];
    onRow?: (item: Item) => void;
    isChosen?: (item: Item) => boolean;
    /** Of more rows than `most` those are shown first, with a button named `moreText` for the others. */
    most?: number;
    moreText?: string;
}

interface Sorting {
    column: number;
    isDown: boolean;
}

function compare(left: number | string | null, right: number | string | null): number {
    if (left === null || right === null) return Number(left === null) - Number(right === null);
    return typeof left === "number" && typeof right === "number" ? left - right : String(left).localeCompare(String(right), "zh");
}

function sorted<Item>({ columns, rows }: SmallTable<Item>, sorting: Sorting | null): readonly Item[] {
    if (sorting === null) return rows;
    const { value } = columns[sorting.column];
    const sign = sorting.isDown ? -1 : 1;
    return [...rows].sort((left, right) => {
        const [a, b] = [value(left), value(right)];
        return a === null || b === null ? compare(a, b) : sign * compare(a, b);
    });
}

/** Fills `holder` with the table. Rows that answer a click do so by keys, too. */
export function showSmallTable<Item>(holder: HTMLElement, table: SmallTable<Item>, sorting: Sorting | null = null): void {
    const sort = (column: number): void => {
        const isDown = sorting?.column === column ? !sorting.isDown : true;
        showSmallTable(holder, table, { column, isDown });
        holder.querySelectorAll<HTMLElement>("thead button")[column]?.focus();
    };
    const isText = table.columns.map(({ value }) => table.rows.some((item) => typeof value(item) === "string"));
    const classOf = (at: number, tone = ""): string | null => `${isText[at] ? "text" : ""} ${tone}`.trim() || null;
    const heading = (column: SmallColumn<Item>, at: number): HTMLElement => {
        const state = sorting?.column !== at ? "none" : sorting.isDown ? "descending" : "ascending";
        const meaning = column.meaning ?? "";
        const button = h("button", { type: "button", click: () => sort(at), "data-meaning": meaning === "" ? null : meaning }, column.label);
        return h("th", { scope: "col", class: classOf(at), "aria-sort": state }, button);
    };
    const cell = (item: Item, column: SmallColumn<Item>, at: number): HTMLElement => {
        const text = column.text(item);
        const choose = at === 0 && table.onRow !== undefined ? h("button", { type: "button", class: "row-button" }, text) : text;
        return h(at === 0 ? "th" : "td", { scope: at === 0 ? "row" : null, class: classOf(at, column.tone?.(item)) }, choose);
    };
    const row = (item: Item): HTMLElement =>
        h(
            "tr",
            {
                class: [table.onRow === undefined ? "" : "choosable", table.isChosen?.(item) === true ? "chosen" : ""].join(" ").trim() || null,
                click: () => table.onRow?.(item),
            },
            ...table.columns.map((column, at) => cell(item, column, at)),
        );
    const rows = sorted(table, sorting);
    const { most = rows.length, moreText = "" } = table;
    const showAll = (): void => showSmallTable(holder, { ...table, most: rows.length }, sorting);
    fill(
        holder,
        h(
            "table",
            { class: "small", "aria-label": table.label },
            h("thead", {}, h("tr", {}, ...table.columns.map(heading))),
            h("tbody", {}, ...rows.slice(0, most).map(row)),
        ),
        rows.length > most ? h("button", { type: "button", class: "more", click: showAll }, `${moreText} (${rows.length})`) : null,
    );
}

/** A place for a small table, which scrolls sideways where it is wider. */
export function tableHolder(): HTMLElement {
    return h("div", { class: "scroller", tabindex: 0, role: "group" });
}

