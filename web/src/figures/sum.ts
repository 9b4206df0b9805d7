// Sums whose rounding doesn't grow with their length, by Neumaier's method.

/** The sum of those that are numbers; null if none is. */
export function sumOf(values: Iterable<number | null>): number | null {
    let sum = 0;
    let lost = 0;
    let isAny = false;
    for (const value of values) {
        if (value === null) continue;
        isAny = true;
        const next = sum + value;
        lost += Math.abs(sum) >= Math.abs(value) ? sum - next + value : value - next + sum;
        sum = next;
    }
    return isAny ? sum + lost : null;
}
