// The index as its reader wants to see it: language, colours, amounts, and what is above which limit.
import type { Column } from "../data/table.ts";
import { dayText, decimal, kNothing, percent, plain } from "../page/format.ts";
import type { Look } from "../page/settings.ts";
import { scaled } from "../tables/table_look.ts";
import { filledIn, pick, textOf, type Language, type TextKey } from "../text/texts.ts";
import type { Index } from "./index_data.ts";
import { kIndexCells, kIndexColumns, kIndexTexts, type IndexTextKey } from "./texts.ts";

export type IndexChange = "look" | "colours" | "limit";

const kMegabyte = 1 << 20;
const kMoney: ReadonlySet<string> = new Set(["equity", "pl"]);
const kSizes: ReadonlySet<string> = new Set(["trades", "closed", "positions"]);
/** Findings and reasons tell amounts and numbers of accounts, and links have them in their addresses. */
const kPrivate: ReadonlySet<string> = new Set(["user", "account", "reason", "worst", "page", "explore", "json"]);
const kScales: Record<string, number> = { margin_use: 100, drawdown: 100, peak_memory: 1 / kMegabyte };

export class IndexView implements Look {
    readonly index: Index;
    language: Language = "zh";
    isRedGain = true;
    hidesAmounts = false;
    limit: number;
    #listener: (change: IndexChange) => void = () => undefined;

    constructor(index: Index) {
        this.index = index;
        this.limit = index.head.riskLimit;
    }

    listen(listener: (change: IndexChange) => void): void {
        this.#listener = listener;
    }

    setLook(look: Partial<Look>): void {
        const isColour = "isRedGain" in look;
        Object.assign(this, look);
        this.#listener(isColour ? "colours" : "look");
    }

    setLimit(limit: number): void {
        if (limit === this.limit) return;
        this.limit = limit;
        this.#listener("limit");
    }

    text(key: TextKey | IndexTextKey, values: Record<string, string | number> = {}): string {
        if (!(key in kIndexTexts)) return textOf(this.language, key as TextKey, values);
        return filledIn(pick(this.language, kIndexTexts[key as IndexTextKey]), values);
    }

    columnLabel(name: string): string {
        return pick(this.language, kIndexColumns[name]?.label ?? [name, name]);
    }

    columnMeaning(name: string): string {
        const meaning = kIndexColumns[name]?.meaning;
        return meaning === undefined ? "" : pick(this.language, meaning);
    }

    codeText(name: string, code: string): string {
        const known = kIndexCells[name]?.[code];
        return known === undefined ? code : pick(this.language, known);
    }

    money(amount: number | null): string {
        return this.hidesAmounts && amount !== null ? this.text("hidden") : decimal(amount);
    }

    /** In per cent, without digits that say nothing. */
    limitText(): string {
        return String(scaled(this.limit, 100));
    }

    isHidden(name: string): boolean {
        return this.hidesAmounts && (kMoney.has(name) || kSizes.has(name) || kPrivate.has(name));
    }

    scaleOf(name: string): number {
        return kScales[name] ?? 1;
    }

    cellText({ name, kind }: Column, value: unknown): string {
        if (value === null || value === undefined || value === "") return kNothing;
        if (this.isHidden(name)) return this.text("hidden");
        if (kind === "day") return dayText(String(value));
        if (kind === "text") return this.codeText(name, String(value));
        const number = value as number;
        if (kMoney.has(name)) return decimal(number);
        if (this.scaleOf(name) === 100) return percent(number);
        return plain(scaled(number, this.scaleOf(name)), 1);
    }
}
