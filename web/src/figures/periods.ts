// Months and years of a range of days.
import type { Days } from "../data/days.ts";
import { indexBefore, type Range } from "./range.ts";
import { sumOf } from "./sum.ts";

export interface Period {
    period: string; // yyyymm or yyyy
    return: number | null;
    pl: number | null;
    fees: number | null;
    first: number; // places of its first and last day among the account's days
    last: number;
}

/** `length` is that of the period's name: 6 for months, 4 for years. Those at the range's ends may be cut. */
export function periodsOf(days: Days, range: Range, length: 4 | 6): Period[] {
    const periods: Period[] = [];
    for (let first = range.from; first <= range.to; ) {
        const period = days.days[first].slice(0, length);
        let last = first;
        while (last < range.to && days.days[last + 1].startsWith(period)) ++last;
        const hasReturn = days.returns.slice(first, last + 1).some((value) => value !== null);
        const before = indexBefore(days, first);
        periods.push({
            period,
            return: hasReturn && before > 0 ? days.index[last]! / before - 1 : null,
            pl: sumOf(days.pl.slice(first, last + 1)),
            fees: sumOf(days.fees.slice(first, last + 1)),
            first,
            last,
        });
        first = last + 1;
    }
    return periods;
}
