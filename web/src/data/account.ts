// An account of the page, and its tables, each of which is unpacked when it is first shown.
import { readBlock } from "./blocks.ts";
import { Days } from "./days.ts";
import { joinedTable } from "./joined_table.ts";
import { Table, type TableBlock } from "./table.ts";

/** What the page says of an account before any of its tables is read. */
export interface AccountHead {
    user: string;
    account: string;
    kind: "domestic" | "foreign";
    /** Of all accounts together; `user` and `account` are empty then. */
    isSum: boolean;
    /** Equity before the first day of a sum. */
    opening?: number | null;
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

/** Tables of which a sum has none of its own: they are those of its accounts, one behind the other. */
const kJoined: ReadonlySet<string> = new Set([
    ...["trades", "closed", "positions", "position_sums", "cash", "exercises", "deliveries"],
    ...["currency_days", "open", "findings"],
]);

export class Account {
    readonly head: AccountHead;
    /** As it is told from the other accounts of the page; empty for their sum. */
    readonly name: string;
    readonly #index: number;
    readonly #members: readonly Account[];
    readonly #tables = new Map<string, Promise<Table>>();
    days!: Days;
    figures!: Figures;

    /** `index` is that of its blocks; `members` are the accounts of a sum. */
    constructor(head: AccountHead, index: number, name: string, members: readonly Account[] = []) {
        this.head = head;
        this.name = name;
        this.#index = index;
        this.#members = members;
    }

    get isForeign(): boolean {
        return this.head.kind === "foreign";
    }

    /** The number of rows, which is known before the table is read. */
    rowsOf(name: string): number {
        if (!this.#joins(name)) return this.head.tables[name] ?? 0;
        return this.#members.reduce((rows, member) => rows + member.rowsOf(name), 0);
    }

    #joins(name: string): boolean {
        return this.head.isSum && kJoined.has(name);
    }

    async #read(name: string): Promise<Table> {
        if (!this.#joins(name)) return new Table(await readBlock<TableBlock>(`${this.#index}.${name}`));
        const tables = await Promise.all(this.#members.map((member) => member.table(name)));
        return joinedTable(tables.map((table, at) => ({ account: this.#members[at].name, table })));
    }

    table(name: string): Promise<Table> {
        const known = this.#tables.get(name);
        if (known !== undefined) return known;
        const table = this.#read(name);
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
        const opening = this.head.isSum ? this.head.opening : this.figures.values.get("money.OpeningEquity");
        this.days = new Days(days, opening ?? null);
    }
}

/** A number alone where no two accounts have the same. */
function nameOf(head: AccountHead, heads: readonly AccountHead[]): string {
    const isAlone = heads.filter(({ account }) => account === head.account).length === 1;
    return isAlone ? head.account : `${head.user} ${head.account}`;
}

/** Reads what the page holds: the accounts, their sum before them. Throws where that is damaged. */
export async function readAccounts(): Promise<{ program: string; accounts: Account[] }> {
    const head = await readBlock<Head>("head");
    if (head === null) throw new Error("the page has no data");
    const heads = head.accounts;
    const members = heads.flatMap((each, at) => (each.isSum ? [] : [new Account(each, at, nameOf(each, heads))]));
    const sums = heads.flatMap((each, at) => (each.isSum ? [new Account(each, at, "", members)] : []));
    return { program: head.program, accounts: [...sums, ...members] };
}
