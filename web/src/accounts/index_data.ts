// What a batch has come to, and the figures of it that stand above the table.
import type { Table } from "../data/table.ts";
import { sumOf } from "../figures/sum.ts";

export interface IndexHead {
    schema: number;
    program: string;
    /** yyyymmdd; "" if it isn't told. */
    day: string;
    riskLimit: number;
}

/** Those first that want a hand. */
export const kStatuses = ["failed", "crashed", "timeout", "findings", "ok"] as const;
export type Status = (typeof kStatuses)[number];

const kKinds = ["domestic", "foreign"] as const;
export type Kind = (typeof kKinds)[number];

/** Amounts of one kind of accounts; those of two are never added up. */
export interface KindTotals {
    kind: Kind;
    accounts: number;
    withEquity: number;
    equity: number | null;
    pl: number | null;
}

export class Index {
    readonly head: IndexHead;
    readonly table: Table;

    constructor(head: IndexHead, table: Table) {
        this.head = head;
        this.table = table;
    }

    /** How many accounts have each status that any has. */
    statusCounts(): { status: Status; count: number }[] {
        const statuses = this.table.texts("status");
        const counts = kStatuses.map((status) => ({ status, count: statuses.filter((each) => each === status).length }));
        return counts.filter(({ count }) => count > 0);
    }

    /** Of each kind that there is. */
    totals(): KindTotals[] {
        const kinds = this.table.texts("kind");
        const of = (name: string, kind: Kind): (number | null)[] => this.table.numbers(name).filter((_, row) => kinds[row] === kind);
        const totals = kKinds.map((kind) => {
            const equity = of("equity", kind);
            return {
                kind,
                accounts: equity.length,
                withEquity: equity.filter((value) => value !== null).length,
                equity: sumOf(equity),
                pl: sumOf(of("pl", kind)),
            };
        });
        return totals.filter(({ accounts }) => accounts > 0);
    }

    /** How many accounts have used more margin than `limit`, a fraction. */
    countAbove(limit: number): number {
        return this.table.numbers("margin_use").filter((use) => isAbove(use, limit)).length;
    }
}

export function isAbove(use: number | null, limit: number): boolean {
    return use !== null && use > limit;
}

/** A limit as it is typed, in per cent, as a fraction; null if it is none. */
export function limitOf(text: string): number | null {
    const digits = text.trim().replace(/\s*%$/, "");
    return /^\d+(\.\d*)?$/.test(digits) ? Number((Number(digits) / 100).toPrecision(12)) : null;
}
