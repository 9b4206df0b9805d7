// How the reader wants figures to look: his language, with amounts or without.
import { decimal, kNothing, percent, plain, short, signed } from "./format.ts";
import type { State } from "./state.ts";
import { kCellTexts, kColumns, type Term } from "../text/terms.ts";
import { pick, textOf, type TextKey } from "../text/texts.ts";

export class View {
    readonly #state: State;

    constructor(state: State) {
        this.#state = state;
    }

    get state(): State {
        return this.#state;
    }

    text(key: TextKey, values: Record<string, string | number> = {}): string {
        return textOf(this.#state.language, key, values);
    }

    label(term: Term): string {
        return pick(this.#state.language, term.label);
    }

    meaning(term: Term): string {
        return term.meaning === undefined ? "" : pick(this.#state.language, term.meaning);
    }

    columnLabel(name: string): string {
        const term = kColumns[name];
        return term === undefined ? name : this.label(term);
    }

    columnMeaning(name: string): string {
        const term = kColumns[name];
        return term === undefined ? "" : this.meaning(term);
    }

    cellText(text: string): string {
        const known = kCellTexts[text];
        return known === undefined ? text : pick(this.#state.language, known);
    }

    /** An amount as a share of the opening equity, which hidden amounts are shown as; null where that is none. */
    share(amount: number | null): number | null {
        const base = this.#state.account.days.openingEquity;
        return amount === null || base === null || base <= 0 ? null : amount / base;
    }

    #hidden(amount: number | null, digits: number): string {
        if (amount === null) return kNothing;
        const share = this.share(amount);
        return share === null ? this.text("hidden") : percent(share, digits);
    }

    money(amount: number | null, digits = 2): string {
        return this.#state.hidesAmounts ? this.#hidden(amount, 2) : decimal(amount, digits);
    }

    signedMoney(amount: number | null): string {
        return signed(this.money(amount), amount);
    }

    shortMoney(amount: number | null): string {
        return this.#state.hidesAmounts ? this.#hidden(amount, 1) : short(amount, this.#state.language);
    }

    /** A number that tells how large an account is, though it is no money. */
    size(value: number | null): string {
        return this.#state.hidesAmounts && value !== null ? this.text("hidden") : plain(value);
    }

    /** The class of what is above or below 0. */
    toneOf(value: number | null): "gain" | "loss" | "flat" {
        return value === null || value === 0 ? "flat" : value > 0 ? "gain" : "loss";
    }

    accountName(account = this.#state.account): string {
        return account.head.isSum ? this.text("allAccounts") : this.nameText(account.name);
    }

    /** Whose something is, which is hidden as amounts are. */
    nameText(name: string): string {
        return this.#state.hidesAmounts ? this.text("hidden") : name;
    }
}
