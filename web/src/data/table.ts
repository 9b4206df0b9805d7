// A table in columns, as a block holds it. Columns have the names of the tables that are written for other programs.

export interface NumberColumn {
    name: string;
    kind: "number" | "count";
    values: (number | null)[];
}

/** `codes` are places in `texts`, -1 for nothing. Days are texts of yyyymmdd. */
export interface TextColumn {
    name: string;
    kind: "text" | "day";
    texts: string[];
    codes: number[];
}

export type Column = NumberColumn | TextColumn;

export interface TableBlock {
    rows: number;
    columns: Column[];
}

export type Cell = string | number | null;
export type Row = Record<string, Cell>;

export class Table {
    readonly rows: number;
    readonly columns: readonly Column[];
    readonly #byName: Map<string, Column>;

    constructor(block: TableBlock | null) {
        this.rows = block?.rows ?? 0;
        this.columns = block?.columns ?? [];
        this.#byName = new Map(this.columns.map((column) => [column.name, column]));
    }

    has(name: string): boolean {
        return this.#byName.has(name);
    }

    /** The numbers of a column; null for each row where there is none, or no such column. */
    numbers(name: string): (number | null)[] {
        const column = this.#byName.get(name);
        if (column === undefined || !("values" in column)) return new Array<null>(this.rows).fill(null);
        return column.values;
    }

    /** The texts of a column, "" for each row where there is none, or no such column. */
    texts(name: string): string[] {
        const column = this.#byName.get(name);
        if (column === undefined || "values" in column) return new Array<string>(this.rows).fill("");
        return column.codes.map((code) => (code < 0 ? "" : column.texts[code]));
    }

    cell(column: Column, row: number): Cell {
        if ("values" in column) return column.values[row];
        const code = column.codes[row];
        return code < 0 ? null : column.texts[code];
    }

    /** Whether a column says anything at all. */
    isFilled(column: Column): boolean {
        return "values" in column ? column.values.some((value) => value !== null) : column.texts.length > 0;
    }

    /** Those of the rows for which `keep` is true, as objects by the names of the columns. */
    rowsOf(keep: (row: number) => boolean = () => true): Row[] {
        const found: Row[] = [];
        for (let row = 0; row < this.rows; ++row) if (keep(row)) found.push(this.#rowAt(row));
        return found;
    }

    #rowAt(row: number): Row {
        const object: Row = {};
        for (const column of this.columns) object[column.name] = this.cell(column, row);
        return object;
    }
}

/** The number in a row; null where there is none. */
export function numberIn(row: Row, name: string): number | null {
    const cell = row[name];
    return typeof cell === "number" ? cell : null;
}

/** The text in a row; "" where there is none. */
export function textIn(row: Row, name: string): string {
    return String(row[name] ?? "");
}
