// The days of an account, oldest first, with the figures that the analysis has of each.
import type { Table } from "./table.ts";

type Numbers = (number | null)[];

export class Days {
    readonly days: string[]; // yyyymmdd
    readonly equity: Numbers;
    readonly cashFlow: Numbers;
    readonly margin: Numbers;
    readonly pl: Numbers;
    readonly returns: Numbers;
    readonly index: Numbers;
    readonly moneyIndex: Numbers;
    readonly marginUse: Numbers;
    readonly fees: Numbers;
    readonly turnover: Numbers;
    readonly lots: Numbers;
    /** Equity before the first day. */
    readonly openingEquity: number | null;

    /** Rows without a day, which are none of the analysis, stand behind the others and are left out. */
    constructor(table: Table, openingEquity: number | null) {
        const days = table.texts("day");
        const end = days.indexOf("");
        const count = end < 0 ? days.length : end;
        const of = (name: string): Numbers => table.numbers(name).slice(0, count);
        this.days = days.slice(0, count);
        this.equity = of("equity");
        this.cashFlow = of("cashFlow");
        this.margin = of("margin");
        this.pl = of("pl");
        this.returns = of("return");
        this.index = of("index");
        this.moneyIndex = of("moneyIndex");
        this.marginUse = of("marginUse");
        this.fees = of("fees");
        this.turnover = of("turnover");
        this.lots = of("lots");
        this.openingEquity = openingEquity;
    }

    get count(): number {
        return this.days.length;
    }

    /** The first day at or after `day`, or `count`. */
    firstFrom(day: string): number {
        let low = 0;
        let high = this.days.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (this.days[middle] < day) low = middle + 1;
            else high = middle;
        }
        return low;
    }
}
