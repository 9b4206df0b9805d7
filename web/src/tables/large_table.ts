// One large table: sorted, filtered and grouped by its columns, copied and saved as CSV.
import {
    EditModule,
    FilterModule,
    FormatModule,
    GroupRowsModule,
    InteractionModule,
    ResizeColumnsModule,
    ResizeTableModule,
    SortModule,
    Tabulator,
    TooltipModule,
} from "tabulator-tables";
import type { Cell, Column, Row, Table } from "../data/table.ts";
import { fill, h } from "../page/dom.ts";
import { plain } from "../page/format.ts";
import type { View } from "../page/view.ts";
import { cellText, definitionOf, isGroupable, shownColumns } from "./columns.ts";
import { copyText, linesOf, save } from "./csv.ts";
import { kRowHeight, RowRenderer } from "./row_renderer.ts";

Tabulator.registerModule([
    EditModule,
    FilterModule,
    FormatModule,
    GroupRowsModule,
    InteractionModule,
    ResizeColumnsModule,
    ResizeTableModule,
    SortModule,
    TooltipModule,
]);

const kHeadHeight = 110;
const kMostHeight = 560;

function heightOf(rows: number): number {
    return Math.min(kMostHeight, kHeadHeight + Math.max(rows, 2) * kRowHeight);
}

export class LargeTable {
    readonly element = h("div", { class: "large-table" });
    readonly #view: View;
    readonly #name: string;
    readonly #table: Table;
    readonly #columns: Column[];
    readonly #count = h("span", { class: "count", "aria-live": "polite" });
    #library: Tabulator | null = null;

    constructor(view: View, name: string, table: Table) {
        this.#view = view;
        this.#name = name;
        this.#table = table;
        this.#columns = shownColumns(table);
    }

    /** Shows those rows for which `keep` is true, the first time under no condition, later under those that stand. */
    show(keep: (row: number) => boolean): void {
        const rows = this.#table.rowsOf(keep);
        if (this.#library === null) {
            this.#build(rows);
        } else {
            this.#library.setHeight(heightOf(rows.length));
            void this.#library.setData(rows);
        }
    }

    destroy(): void {
        this.#library?.destroy();
    }

    #build(rows: Row[]): void {
        const place = h("div", {});
        this.element.append(this.#bar(), place);
        this.#library = new Tabulator(place, {
            data: rows,
            columns: this.#columns.map((column) => definitionOf(this.#view, column)),
            height: heightOf(rows.length),
            layout: "fitDataFill",
            placeholder: this.#view.text("noRows"),
            columnDefaults: { resizable: "header" },
            groupHeader: (value, count, _data, group) =>
                this.#groupHeader(value, count, (group as unknown as { getField(): string }).getField()) as never,
            groupStartOpen: false,
            renderVertical: RowRenderer as never,
        });
        this.#library.on("tableBuilt", () => this.#nameParts(place));
        this.#library.on("dataFiltered", (_filters, shown) => this.#showCount(shown.length));
        this.#showCount(rows.length);
    }

    /** The part that scrolls takes the keys, so it is the one that holds the rows; readers hear how many there are. */
    #nameParts(grid: HTMLElement): void {
        grid.removeAttribute("aria-owns");
        grid.setAttribute("aria-label", this.#view.text("tables"));
        grid.setAttribute("aria-rowcount", String(this.#table.rows + 1));
        grid.querySelector(".tabulator-tableholder")?.setAttribute("role", "rowgroup");
        grid.querySelector(".tabulator-table")?.setAttribute("role", "presentation");
    }

    #groupHeader(value: unknown, count: number, field: string): HTMLElement {
        const column = this.#columns.find(({ name }) => name === field)!;
        const rows = this.#view.text("rowsInGroup", { n: plain(count) });
        return h("span", {}, cellText(this.#view, column, value), " ", h("span", { class: "soft" }, rows));
    }

    #showCount(shown: number): void {
        fill(this.#count, this.#view.text("rowsShown", { n: plain(shown), all: plain(this.#table.rows) }));
    }

    /** The rows as they are shown, filtered and sorted. Hidden amounts stay hidden. */
    #lines(separator: string): { text: string; count: number } {
        const rows = this.#library!.getData("active") as Row[];
        const head = this.#columns.map(({ name }) => this.#view.columnLabel(name));
        const hides = this.#view.state.hidesAmounts;
        const cells = rows.map((row) =>
            this.#columns.map((column): Cell => {
                const value = row[column.name];
                return value !== null && (hides || "texts" in column) ? cellText(this.#view, column, value) : value;
            }),
        );
        return { text: linesOf(head, cells, separator), count: rows.length };
    }

    async #copy(): Promise<void> {
        const { text, count } = this.#lines("\t");
        const isCopied = await copyText(text);
        fill(this.#count, isCopied ? this.#view.text("copied", { n: plain(count) }) : this.#view.text("notCopied"));
    }

    #groupChoice(): HTMLSelectElement {
        const group = (event: Event): void => {
            const { value } = event.target as HTMLSelectElement;
            this.#library!.setGroupBy((value === "" ? false : value) as never);
        };
        const columns = this.#columns.filter(({ name }) => isGroupable(name));
        return h(
            "select",
            { change: group },
            h("option", { value: "" }, this.#view.text("noGroup")),
            ...columns.map(({ name }) => h("option", { value: name }, this.#view.columnLabel(name))),
        );
    }

    #bar(): HTMLElement {
        const group = this.#groupChoice();
        const button = (key: "copy" | "saveCsv" | "resetTable", click: () => void): HTMLElement =>
            h("button", { type: "button", click }, this.#view.text(key));
        const reset = (): void => {
            this.#library!.clearHeaderFilter();
            this.#library!.clearSort();
            this.#library!.setGroupBy(false as never);
            group.value = "";
        };
        return h(
            "div",
            { class: "table-bar" },
            h("label", {}, h("span", {}, this.#view.text("groupBy")), " ", group),
            button("copy", () => void this.#copy()),
            button("saveCsv", () => save(`${this.#name}.csv`, this.#lines(",").text)),
            button("resetTable", reset),
            this.#count,
        );
    }
}
