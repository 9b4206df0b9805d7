// Closed positions of a range of days, added up by product, contract or side.
import type { Table } from "../data/table.ts";
import { sumOf } from "./sum.ts";

/** Names are those of the tables "products", "contracts" and "sides". */
export interface Group {
    key: string;
    name: string;
    currency: string;
    count: number;
    lots: number;
    pl: number;
    wins: number;
    losses: number;
    winRate: number | null;
    averageWin: number | null;
    averageLoss: number | null;
    profitFactor: number | null;
    expectancy: number | null;
    medianHoldingDays: number | null;
    fees: number | null;
    longPl: number | null;
    shortPl: number | null;
}

export type GroupKind = "product" | "contract" | "side";

/** The columns of closed positions that groups are made of, each once. */
export class ClosedRows {
    readonly rows: number;
    readonly days: string[];
    readonly keys: Record<GroupKind, string[]>;
    readonly names: string[];
    readonly currencies: string[];
    readonly lots: (number | null)[];
    readonly pl: (number | null)[];
    readonly holdingDays: (number | null)[];
    readonly fees: (number | null)[];

    constructor(table: Table) {
        this.rows = table.rows;
        this.days = table.texts("BILL_DATE");
        this.keys = { product: table.texts("product"), contract: table.texts("fullContract"), side: table.texts("side") };
        this.names = table.texts("productName");
        this.currencies = table.texts("CURRENCY");
        this.lots = table.numbers("MATCH_VOL");
        this.pl = table.numbers("pl");
        this.holdingDays = table.numbers("holdingDays");
        this.fees = table.numbers("fees");
    }
}

function medianOf(values: number[]): number | null {
    if (values.length === 0) return null;
    const sorted = values.sort((left, right) => left - right);
    const middle = sorted.length >> 1;
    return sorted.length % 2 === 1 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2;
}

const ratio = (part: number | null, whole: number): number | null => (part === null || whole === 0 ? null : part / whole);

function groupOf(closed: ClosedRows, rows: number[], kind: GroupKind): Group {
    const results = rows.map((row) => closed.pl[row]!);
    const wins = results.filter((pl) => pl > 0);
    const losses = results.filter((pl) => pl < 0);
    const won = sumOf(wins);
    const lost = sumOf(losses);
    const pl = sumOf(results)!;
    const ofSide = (side: string): number | null =>
        sumOf(rows.filter((row) => closed.keys.side[row] === side).map((row) => closed.pl[row]));
    return {
        key: closed.keys[kind][rows[0]],
        name: kind === "product" ? closed.names[rows[0]] : "",
        currency: closed.currencies[rows[0]],
        count: rows.length,
        lots: sumOf(rows.map((row) => closed.lots[row])) ?? 0,
        pl,
        wins: wins.length,
        losses: losses.length,
        winRate: ratio(wins.length, rows.length),
        averageWin: ratio(won, wins.length),
        averageLoss: ratio(lost, losses.length),
        profitFactor: lost === null ? null : (won ?? 0) / Math.abs(lost),
        expectancy: ratio(pl, rows.length),
        medianHoldingDays: medianOf(rows.map((row) => closed.holdingDays[row]).filter((days) => days !== null)),
        fees: sumOf(rows.map((row) => closed.fees[row])),
        longPl: ofSide("long"),
        shortPl: ofSide("short"),
    };
}

/** Groups of the rows from `firstDay` to `lastDay` whose P/L is known; the best first, by currencies. */
export function groupsOf(closed: ClosedRows, kind: GroupKind, firstDay: string, lastDay: string): Group[] {
    const members = new Map<string, number[]>();
    for (let row = 0; row < closed.rows; ++row) {
        if (closed.pl[row] === null || closed.days[row] < firstDay || closed.days[row] > lastDay) continue;
        const key = `${closed.currencies[row]}\u0000${closed.keys[kind][row]}`;
        const rows = members.get(key);
        if (rows === undefined) members.set(key, [row]);
        else rows.push(row);
    }
    const groups = [...members.values()].map((rows) => groupOf(closed, rows, kind));
    return groups.sort((left, right) => left.currency.localeCompare(right.currency) || right.pl - left.pl);
}
