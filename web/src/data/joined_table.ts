// Tables of several accounts as one.
import { Table, type Column } from "./table.ts";

/** A table and whose it is. */
export interface Part {
    account: string;
    table: Table;
}

/** A row by its part and its place in it. */
type Place = readonly [part: number, row: number];

const kDays = ["BILL_DATE", "day"];

/** All rows, of the same day those of the first part first; as they come where rows have no day. */
function placesOf(parts: readonly Part[]): Place[] {
    const places = parts.flatMap(({ table }, part) => Array.from({ length: table.rows }, (_, row): Place => [part, row]));
    const name = kDays.find((day) => parts.some(({ table }) => table.has(day)));
    if (name === undefined) return places;
    const days = parts.map(({ table }) => table.texts(name));
    const dayOf = ([part, row]: Place): string => days[part][row];
    return places.sort((left, right) => (dayOf(left) < dayOf(right) ? -1 : dayOf(left) > dayOf(right) ? 1 : 0));
}

function textColumn(name: string, kind: "text" | "day", texts: readonly string[]): Column {
    const known = new Map<string, number>();
    const codes = texts.map((text) => {
        if (text === "") return -1;
        const code = known.get(text) ?? known.size;
        known.set(text, code);
        return code;
    });
    return { name, kind, texts: [...known.keys()], codes };
}

function columnOf(like: Column, parts: readonly Part[], places: readonly Place[]): Column {
    if ("values" in like) {
        const values = parts.map(({ table }) => table.numbers(like.name));
        return { name: like.name, kind: like.kind, values: places.map(([part, row]) => values[part][row]) };
    }
    const texts = parts.map(({ table }) => table.texts(like.name));
    return textColumn(like.name, like.kind, places.map(([part, row]) => texts[part][row]));
}

/** The rows of all parts in the order of their days, with a column `account` before the others. */
export function joinedTable(parts: readonly Part[]): Table {
    const places = placesOf(parts);
    const likes = new Map(parts.flatMap(({ table }) => table.columns.map((column): [string, Column] => [column.name, column])));
    const account = textColumn("account", "text", places.map(([part]) => parts[part].account));
    return new Table({
        rows: places.length,
        columns: [account, ...[...likes.values()].map((like) => columnOf(like, parts, places))],
    });
}
