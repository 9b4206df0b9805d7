// What is written above a column to see some of its rows alone.

/** "100", ">100", ">=100", "<0", "=5", "5..10". What is none of these keeps all rows. */
export function numberFits(condition: string, value: number | null): boolean {
    const text = condition.trim().replace(/[\s,]/g, "");
    const range = /^(-?[\d.]+)\.\.(-?[\d.]+)$/.exec(text);
    if (range !== null) return value !== null && value >= Number(range[1]) && value <= Number(range[2]);
    const [, sign, digits] = /^([<>]=?|=)?(-?[\d.]+)$/.exec(text) ?? [];
    if (digits === undefined) return true;
    if (value === null) return false;
    const bound = Number(digits);
    switch (sign) {
        case ">":
            return value > bound;
        case ">=":
            return value >= bound;
        case "<":
            return value < bound;
        case "<=":
            return value <= bound;
        default:
            return value === bound;
    }
}

/** A day is looked for as it is shown, 2024-01, and as it is kept, 202401. */
export function textFits(condition: string, value: string | null, shown: string): boolean {
    const text = condition.trim().toLowerCase();
    return text === "" || shown.toLowerCase().includes(text) || (value ?? "").toLowerCase().includes(text);
}
