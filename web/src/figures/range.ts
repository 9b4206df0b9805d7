// A range of an account's days, both ends included, and the figures of it that the head shows.
import type { Days } from "../data/days.ts";
import { deepest, drawdownsOf, type Drawdown } from "./drawdowns.ts";
import { sumOf } from "./sum.ts";

export interface Range {
    from: number;
    to: number;
}

export function wholeOf(days: Days): Range {
    return { from: 0, to: days.count - 1 };
}

export function isWhole(range: Range, days: Days): boolean {
    return range.from === 0 && range.to === days.count - 1;
}

export interface RangeFigures {
    openingEquity: number | null;
    closingEquity: number | null;
    pl: number | null;
    /** Index of the last day / index before the first, less 1. */
    return: number | null;
    cashFlow: number | null;
    fees: number | null;
    lots: number | null;
    drawdown: Drawdown | null;
    highestMarginUse: number | null;
    highestMarginDay: string | null;
    winDays: number;
    lossDays: number;
}

/** The index before a range: 1 before the first day. */
export function indexBefore(days: Days, from: number): number {
    return from === 0 ? 1 : (days.index[from - 1] ?? 1);
}

function returnOf(days: Days, { from, to }: Range): number | null {
    const before = indexBefore(days, from);
    const after = days.index[to];
    const hasReturn = days.returns.slice(from, to + 1).some((value) => value !== null);
    return hasReturn && before > 0 && after !== null ? after / before - 1 : null;
}

export function figuresOf(days: Days, range: Range): RangeFigures {
    const part = (values: (number | null)[]): (number | null)[] => values.slice(range.from, range.to + 1);
    const uses = part(days.marginUse);
    const highest = uses.reduce<number>(
        (best, use, at) => (use !== null && (best < 0 || use > uses[best]!) ? at : best),
        -1,
    );
    const results = part(days.pl);
    return {
        openingEquity: range.from === 0 ? days.openingEquity : days.equity[range.from - 1],
        closingEquity: days.count === 0 ? null : days.equity[range.to],
        pl: sumOf(results),
        return: days.count === 0 ? null : returnOf(days, range),
        cashFlow: sumOf(part(days.cashFlow)),
        fees: sumOf(part(days.fees)),
        lots: sumOf(part(days.lots)),
        drawdown: deepest(drawdownsOf(days, range)),
        highestMarginUse: highest < 0 ? null : uses[highest],
        highestMarginDay: highest < 0 ? null : days.days[range.from + highest],
        winDays: results.filter((pl) => pl !== null && pl > 0.00005).length,
        lossDays: results.filter((pl) => pl !== null && pl < -0.00005).length,
    };
}
