// What the reader has chosen. Whoever shows something listens to it.
import type { Account } from "../data/account.ts";
import { wholeOf, type Range } from "../figures/range.ts";
import type { Language } from "../text/texts.ts";

export interface Filter {
    kind: "product" | "contract" | "side";
    key: string;
    currency: string;
}

export type CourseKind = "equity" | "index" | "pl";

export type Change = "account" | "range" | "filter" | "look";

type Listener = (changes: ReadonlySet<Change>) => void;

export class State {
    readonly accounts: readonly Account[];
    readonly program: string;
    account: Account;
    range: Range = { from: 0, to: -1 };
    filter: Filter | null = null;
    course: CourseKind = "equity";
    language: Language = "zh";
    isRedGain = true;
    hidesAmounts = false;
    readonly #listeners: Listener[] = [];

    constructor(accounts: readonly Account[], program: string) {
        this.accounts = accounts;
        this.program = program;
        this.account = accounts[0];
    }

    listen(listener: Listener): void {
        this.#listeners.push(listener);
    }

    #tell(...changes: Change[]): void {
        const all = new Set(changes);
        for (const listener of this.#listeners) listener(all);
    }

    async choose(account: Account): Promise<void> {
        await account.open();
        this.account = account;
        this.range = wholeOf(account.days);
        this.filter = null;
        this.#tell("account", "range", "filter");
    }

    setRange(from: number, to: number): void {
        const last = this.account.days.count - 1;
        const range = { from: Math.max(0, Math.min(from, last)), to: Math.min(last, Math.max(to, 0)) };
        if (range.from > range.to) [range.from, range.to] = [range.to, range.from];
        if (range.from === this.range.from && range.to === this.range.to) return;
        this.range = range;
        this.#tell("range");
    }

    setFilter(filter: Filter | null): void {
        const isSame = filter !== null && JSON.stringify(filter) === JSON.stringify(this.filter);
        this.filter = isSame ? null : filter;
        this.#tell("filter");
    }

    /** Changes how things look, and nothing of what is shown. */
    setLook(look: Partial<Pick<State, "language" | "isRedGain" | "hidesAmounts" | "course">>): void {
        Object.assign(this, look);
        this.#tell("look");
    }

    /** The system's colours have changed. */
    repaint(): void {
        this.#tell("look");
    }
}
