// An account of the page, and its tables, each of which is unpacked when it is first shown.
import { readBlock } from "./blocks.ts";
import { Days } from "./days.ts";
import { Table, type TableBlock } from "./table.ts";

/** What the page says of an account before any of its tables is read. */
export interface AccountHead {
    name: string;
    user: string;
    account: string;
    kind: "domestic" | "foreign";
    isSum: boolean;
    tables: Record<string, number>;
}

export interface Head {
    schema: number;
    program: string;
    accounts: AccountHead[];
}

/** The figures of the whole report by their names; null where there is none, with the reason. */
export interface Figures {
    values: Map<string, number | null>;
    reasons: Map<string, string>;
}

export class Account {
    readonly head: AccountHead;
    readonly #index: number;
    readonly #tables = new Map<string, Promise<Table>>();
    days!: Days;
    figures!: Figures;

    constructor(head: AccountHead, index: number) {
        this.head = head;
        this.#index = index;
    }

    get isForeign(): boolean {
        return this.head.kind === "foreign";
    }

    /** The number of rows, which is known before the table is read. */
    rowsOf(name: string): number {
        return this.head.tables[name] ?? 0;
    }

    table(name: string): Promise<Table> {
        const known = this.#tables.get(name);
        if (known !== undefined) return known;
        const table = readBlock<TableBlock>(`${this.#index}.${name}`).then((block) => new Table(block));
        this.#tables.set(name, table);
        return table;
    }

    /** Reads what the first look at the account needs. */
    async open(): Promise<void> {
        if (this.days !== undefined) return;
        const [days, figures] = await Promise.all([this.table("days"), this.table("figures")]);
        const names = figures.texts("name");
        const reasons = figures.texts("reason");
        const values = figures.numbers("value");
        this.figures = {
            values: new Map(names.map((name, row) => [name, values[row]])),
            reasons: new Map(names.map((name, row) => [name, reasons[row]])),
        };
        this.days = new Days(days, this.figures.values.get("money.OpeningEquity") ?? null);
    }
}

/** Reads what the page holds. Throws where that is damaged. */
export async function readAccounts(): Promise<{ program: string; accounts: Account[] }> {
    const head = await readBlock<Head>("head");
    if (head === null) throw new Error("the page has no data");
    return { program: head.program, accounts: head.accounts.map((account, index) => new Account(account, index)) };
}
