// What a large table asks of the page that it stands in: its columns, and how they look.
import type { ColumnDefinition } from "tabulator-tables";
import type { Column } from "../data/table.ts";
import type { TextKey } from "../text/texts.ts";
import { numberFits, textFits } from "./conditions.ts";

export interface TableLook {
    /** Of the table, for those who hear it. */
    readonly label: string;
    /** In the order in which they are shown and saved. */
    readonly columns: readonly Column[];
    readonly hidesAmounts: boolean;
    /** In pixels; as high as its rows are together, if that is less. */
    readonly mostHeight: number;
    text(key: TextKey, values?: Record<string, string | number>): string;
    columnLabel(name: string): string;
    cellText(column: Column, value: unknown): string;
    definitionOf(column: Column): ColumnDefinition;
    isGroupable(name: string): boolean;
}

export interface ColumnLook {
    meaning: string;
    /** A column whose cells are hidden isn't to be guessed by looking for them. */
    canFilter: boolean;
    /** What a number is shown times, which is what it is looked for by. */
    scale?: number;
}

/** Digits that came by multiplying are no part of a number. */
export function scaled(value: number | null, scale: number): number | null {
    return value === null || scale === 1 ? value : Number((value * scale).toPrecision(12));
}

/** All of a column but how its cells are made. */
export function columnDefinition(look: TableLook, column: Column, { meaning, canFilter, scale = 1 }: ColumnLook): ColumnDefinition {
    const isNumber = "values" in column;
    const title = look.columnLabel(column.name);
    return {
        title,
        field: column.name,
        hozAlign: isNumber ? "right" : "left",
        headerHozAlign: isNumber ? "right" : "left",
        headerTooltip: meaning === "" ? false : meaning,
        sorter: isNumber ? "number" : "string",
        sorterParams: { alignEmptyValues: "bottom" } as never,
        minWidth: isNumber ? 100 : 88,
        headerFilter: canFilter ? "input" : undefined,
        headerFilterPlaceholder: look.text(isNumber ? "numberFilterHint" : "filterHint"),
        headerFilterParams: { elementAttributes: { "aria-label": look.text("filterColumn", { name: title }) } } as never,
        headerFilterFunc: (condition: string, value: unknown) =>
            isNumber
                ? numberFits(condition, scaled(value as number | null, scale))
                : textFits(condition, value as string | null, look.cellText(column, value)),
    };
}
