// Times in which the index is below its highest value before, within a range of days.
import type { Days } from "../data/days.ts";
import type { Range } from "./range.ts";

export interface Drawdown {
    peak: string | null; // null: the balance before the first day
    valley: string;
    recovery: string | null; // null: it lasts
    depth: number;
    money: number | null;
    daysDown: number;
    daysUp: number | null;
    calendarDays: number;
}

const kSameIndex = 1e-12;

export function dayNumber(day: string): number {
    return Date.UTC(Number(day.slice(0, 4)), Number(day.slice(4, 6)) - 1, Number(day.slice(6, 8))) / 86_400_000;
}

interface Place {
    at: number; // of a day; one less than the range's first for the balance before it
    index: number;
}

function moneyAt(days: Days, at: number): number | null {
    return at < 0 ? days.openingEquity : days.moneyIndex[at];
}

function drawdownOf(days: Days, { to }: Range, peak: Place, valley: Place, recovery: number | null): Drawdown {
    const first = Math.max(peak.at, 0);
    const high = moneyAt(days, peak.at);
    const low = moneyAt(days, valley.at);
    return {
        peak: peak.at < 0 ? null : days.days[peak.at],
        valley: days.days[valley.at],
        recovery: recovery === null ? null : days.days[recovery],
        depth: 1 - valley.index / peak.index,
        money: high === null || low === null ? null : high - low,
        daysDown: valley.at - peak.at,
        daysUp: recovery === null ? null : recovery - valley.at,
        calendarDays: dayNumber(days.days[recovery ?? to]) - dayNumber(days.days[first]),
    };
}

/** The deepest first, of equal ones the earlier. The balance before the range counts as a peak. */
export function drawdownsOf(days: Days, range: Range): Drawdown[] {
    const found: Drawdown[] = [];
    let peak: Place = { at: range.from - 1, index: range.from === 0 ? 1 : (days.index[range.from - 1] ?? 1) };
    let valley: Place | null = null;
    for (let at = range.from; at <= range.to; ++at) {
        const index = days.index[at];
        if (index === null) continue;
        if (index >= peak.index * (1 - kSameIndex)) {
            if (valley !== null) found.push(drawdownOf(days, range, peak, valley, at));
            valley = null;
            peak = { at, index: Math.max(index, peak.index) };
        } else if (valley === null || index < valley.index * (1 - kSameIndex)) {
            valley = { at, index };
        }
    }
    if (valley !== null) found.push(drawdownOf(days, range, peak, valley, null));
    // What is equally deep differs by rounding only, which must not decide.
    const depth = (drawdown: Drawdown): number => Math.round(drawdown.depth / kSameIndex);
    return found.sort((left, right) => depth(right) - depth(left));
}

export function deepest(drawdowns: readonly Drawdown[]): Drawdown | null {
    return drawdowns[0] ?? null;
}
