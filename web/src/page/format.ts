// How numbers and days look. Groups of digits are kept apart by a thin space, large ones have the units of the language.
import type { Language } from "../text/texts.ts";

const kThin = "\u202f";
const kMinus = "\u2212";
export const kNothing = "\u2013";

const kUnits: Record<Language, [number, string][]> = {
    zh: [
        [1e8, "亿"],
        [1e4, "万"],
    ],
    en: [
        [1e9, "bn"],
        [1e6, "m"],
        [1e3, "k"],
    ],
};

function grouped(digits: string): string {
    return digits.replace(/\B(?=(\d{3})+(?!\d))/g, kThin);
}

/** A number with so many digits behind the point, "1 234.50". */
export function decimal(value: number | null, digits = 2): string {
    if (value === null) return kNothing;
    const [whole, fraction] = Math.abs(value).toFixed(digits).split(".");
    const isZero = Number(`${whole}.${fraction ?? 0}`) === 0;
    return (value < 0 && !isZero ? kMinus : "") + grouped(whole) + (fraction === undefined ? "" : `.${fraction}`);
}

/** As many digits behind the point as the number has, at most `most`. */
export function plain(value: number | null, most = 4): string {
    if (value === null) return kNothing;
    const digits = Number(Math.abs(value).toFixed(most)).toString().split(".")[1]?.length ?? 0;
    return decimal(value, Math.min(digits, most));
}

/** A fraction as per cent. */
export function percent(value: number | null, digits = 2): string {
    return value === null ? kNothing : `${decimal(value * 100, digits)}${kThin}%`;
}

/** A large number in short, for axes: "12.5 万", "1.2 m". */
export function short(value: number | null, language: Language): string {
    if (value === null) return kNothing;
    const unit = kUnits[language].find(([size]) => Math.abs(value) >= size);
    if (unit === undefined) return plain(value, 2);
    return `${plain(value / unit[0], 2)}${kThin}${unit[1]}`;
}

export function signed(text: string, value: number | null): string {
    return value !== null && value > 0 ? `+${text}` : text;
}

/** yyyymmdd as 2024-01-31; yyyymm as 2024-01; anything else as it is. */
export function dayText(day: string | null): string {
    if (day === null || day === "") return kNothing;
    return /^\d{6}(\d\d)?$/.test(day) ? day.replace(/^(\d{4})(\d\d)(\d\d)?$/, (_, y, m, d) => [y, m, d].filter(Boolean).join("-")) : day;
}
