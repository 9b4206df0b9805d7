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
import { copyText, linesOf, save } from "./csv.ts";
import { kRowHeight, RowRenderer } from "./row_renderer.ts";
import type { TableLook } from "./table_look.ts";

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

/** What rows are shown by, and in which order. */
export interface Conditions {
    filters: { field: string; value: string }[];
    sorters: { column: string; dir: "asc" | "desc" }[];
}

/** Told in a row, since a group of rows without any is none for those who hear it. */
function noRows(text: string): HTMLElement {
    return h("div", { class: "tabulator-placeholder-contents", role: "row" }, h("span", { role: "gridcell" }, text));
}

/** A heading that is reached by keys sorts by them, too. */
function sortByKeys(title: HTMLElement): void {
    title.tabIndex = 0;
    title.setAttribute("role", "button");
    title.addEventListener("keydown", (event) => {
        if (event.key !== "Enter" && event.key !== " ") return;
        event.preventDefault();
        title.click();
    });
}

export class LargeTable {
    readonly element = h("div", { class: "large-table" });
    readonly #look: TableLook;
    readonly #name: string;
    readonly #table: Table;
    readonly #columns: readonly Column[];
    /** Ends when the table stands there. */
    readonly built: Promise<void>;
    #tellBuilt!: () => void;
    readonly #count = h("span", { class: "count", "aria-live": "polite" });
    #library: Tabulator | null = null;

    /** `name` is that of the file that it is saved as. */
    constructor(look: TableLook, name: string, table: Table) {
        this.#look = look;
        this.#name = name;
        this.#table = table;
        this.#columns = look.columns;
        this.built = new Promise((resolve) => (this.#tellBuilt = resolve));
    }

    /**
     * Shows those rows for which `keep` is true, the first time under `conditions`, if there are any, later under those
     * that stand.
     */
    show(keep: (row: number) => boolean = () => true, conditions?: Conditions): void {
        const rows = this.#table.rowsOf(keep);
        if (this.#library === null) {
            this.#build(rows, conditions);
        } else {
            this.#library.setHeight(this.#heightOf(rows.length));
            void this.#library.setData(rows);
        }
    }

    destroy(): void {
        this.#library?.destroy();
    }

    /** Has no other condition than this one; none at all if `value` is "". */
    filterBy(field: string, value: string): void {
        this.#library!.clearHeaderFilter();
        if (value !== "") this.#library!.setHeaderFilterValue(field, value);
    }

    conditions(): Conditions {
        const filters = this.#library!.getHeaderFilters().map(({ field, value }) => ({ field, value: String(value) }));
        const sorters = this.#library!.getSorters().map(({ field, dir }) => ({ column: field, dir }));
        return { filters, sorters };
    }

    #heightOf(rows: number): number {
        return Math.min(this.#look.mostHeight, kHeadHeight + Math.max(rows, 2) * kRowHeight);
    }

    #build(rows: Row[], conditions?: Conditions): void {
        const place = h("div", {});
        this.element.append(this.#bar(), place);
        this.#library = new Tabulator(place, {
            data: rows,
            columns: this.#columns.map((column) => this.#look.definitionOf(column)),
            height: this.#heightOf(rows.length),
            layout: "fitDataFill",
            placeholder: noRows(this.#look.text("noRows")),
            columnDefaults: { resizable: "header" },
            groupHeader: (value, count, _data, group) =>
                this.#groupHeader(value, count, (group as unknown as { getField(): string }).getField()) as never,
            groupStartOpen: false,
            renderVertical: RowRenderer as never,
            initialSort: conditions?.sorters,
            initialHeaderFilter: conditions?.filters,
        });
        this.#library.on("tableBuilt", () => {
            this.#nameParts(place);
            this.#tellBuilt();
        });
        this.#library.on("dataFiltered", (_filters, shown) => this.#showCount(shown.length));
        this.#showCount(rows.length);
    }

    /** The part that scrolls takes the keys, so it is the one that holds the rows; readers hear how many there are. */
    #nameParts(grid: HTMLElement): void {
        grid.removeAttribute("aria-owns");
        grid.setAttribute("aria-label", this.#look.label);
        grid.setAttribute("aria-rowcount", String(this.#table.rows + 1));
        grid.querySelector(".tabulator-tableholder")?.setAttribute("role", "rowgroup");
        grid.querySelector(".tabulator-table")?.setAttribute("role", "presentation");
        for (const title of grid.querySelectorAll<HTMLElement>(".tabulator-col-title")) sortByKeys(title);
    }

    #groupHeader(value: unknown, count: number, field: string): HTMLElement {
        const column = this.#columns.find(({ name }) => name === field)!;
        const rows = this.#look.text("rowsInGroup", { n: plain(count) });
        return h("span", {}, this.#look.cellText(column, value), " ", h("span", { class: "soft" }, rows));
    }

    #showCount(shown: number): void {
        fill(this.#count, this.#look.text("rowsShown", { n: plain(shown), all: plain(this.#table.rows) }));
    }

    /** The rows as they are shown, filtered and sorted. Hidden amounts stay hidden. */
    #lines(separator: string): { text: string; count: number } {
        const rows = this.#library!.getData("active") as Row[];
        const head = this.#columns.map(({ name }) => this.#look.columnLabel(name));
        const hides = this.#look.hidesAmounts;
        const cells = rows.map((row) =>
            this.#columns.map((column): Cell => {
                const value = row[column.name];
                return value !== null && (hides || "texts" in column) ? this.#look.cellText(column, value) : value;
            }),
        );
        return { text: linesOf(head, cells, separator), count: rows.length };
    }

    async #copy(): Promise<void> {
        const { text, count } = this.#lines("\t");
        const isCopied = await copyText(text);
        fill(this.#count, isCopied ? this.#look.text("copied", { n: plain(count) }) : this.#look.text("notCopied"));
    }

    #groupChoice(): HTMLSelectElement {
        const group = (event: Event): void => {
            const { value } = event.target as HTMLSelectElement;
            this.#library!.setGroupBy((value === "" ? false : value) as never);
        };
        const columns = this.#columns.filter(({ name }) => this.#look.isGroupable(name));
        return h(
            "select",
            { change: group },
            h("option", { value: "" }, this.#look.text("noGroup")),
            ...columns.map(({ name }) => h("option", { value: name }, this.#look.columnLabel(name))),
        );
    }

    #bar(): HTMLElement {
        const group = this.#groupChoice();
        const button = (key: "copy" | "saveCsv" | "resetTable", click: () => void): HTMLElement =>
            h("button", { type: "button", click }, this.#look.text(key));
        const reset = (): void => {
            this.#library!.clearHeaderFilter();
            this.#library!.clearSort();
            this.#library!.setGroupBy(false as never);
            group.value = "";
        };
        return h(
            "div",
            { class: "table-bar" },
            h("label", {}, h("span", {}, this.#look.text("groupBy")), " ", group),
            button("copy", () => void this.#copy()),
            button("saveCsv", () => save(`${this.#name}.csv`, this.#lines(",").text)),
            button("resetTable", reset),
            this.#count,
        );
    }
}
