// The money of each currency of a foreign account on the range's last day, side by side, and the base currency's.
import { numberIn, textIn, type Row } from "../data/table.ts";
import { plain } from "../page/format.ts";
import type { View } from "../page/view.ts";
import { frameOf, type Section } from "./section.ts";
import { showSmallTable, tableHolder, type SmallColumn } from "./small_table.ts";

const kMoney = ["QCQY", "CRJ", "PCYK", "SXF", "QMJC", "KHQY", "BZJZY", "KYZJ"] as const;
const kFlows: ReadonlySet<string> = new Set(["CRJ", "PCYK", "SXF"]);

interface CurrencyRow {
    account: string; // of a sum
    currency: string;
    isBase: boolean;
    rate: number | null;
    amounts: Record<string, number | null>;
}

/** Balances of the last row, flows of all rows added up; the opening balance of the first. */
function rowOf(account: string, currency: string, rows: readonly Row[], isBase: boolean): CurrencyRow {
    const last = rows[rows.length - 1];
    const amounts = Object.fromEntries(
        kMoney.map((name) => {
            if (name === "QCQY") return [name, numberIn(rows[0], name)];
            if (!kFlows.has(name)) return [name, numberIn(last, name)];
            const stated = rows.map((row) => numberIn(row, name)).filter((value) => value !== null);
            return [name, stated.length === 0 ? null : stated.reduce((sum, value) => sum + value, 0)];
        }),
    );
    return { account, currency, isBase, rate: numberIn(last, "EXCHANGE_RATE"), amounts };
}

export function currenciesSection(): Section {
    const holder = tableHolder();
    return {
        id: "currencies",
        title: "currencies",
        element: frameOf("currencies", holder),
        isThere: (view) => view.state.account.rowsOf("currency_days") > 0,
        async show(view: View, changes) {
            if (changes.has("filter") && changes.size === 1) return;
            const { account, range } = view.state;
            const { days } = account.days;
            const inRange = (day: unknown): boolean => String(day) >= days[range.from] && String(day) <= days[range.to];
            const [ofCurrencies, base] = await Promise.all([account.table("currency_days"), account.table("days")]);
            const groups = new Map<string, Row[]>();
            for (const row of ofCurrencies.rowsOf()) {
                if (!inRange(row.BILL_DATE)) continue;
                const key = `${textIn(row, "account")}\0${textIn(row, "CURRENCY")}`;
                const group = groups.get(key);
                if (group === undefined) groups.set(key, [row]);
                else group.push(row);
            }
            const baseRows = base.rowsOf().filter((row) => inRange(row.day));
            const rows = [...groups.values()].map((all) => rowOf(textIn(all[0], "account"), textIn(all[0], "CURRENCY"), all, false));
            if (baseRows.length > 0 && !account.head.isSum) rows.push(rowOf("", view.text("baseCurrency"), baseRows, true));
            const columns: SmallColumn<CurrencyRow>[] = [
                ...(account.head.isSum ? [{ label: view.columnLabel("account"), value: (row: CurrencyRow) => row.account, text: (row: CurrencyRow) => view.nameText(row.account) }] : []),
                { label: view.columnLabel("CURRENCY"), value: (row) => row.currency, text: (row) => row.currency },
                { label: view.columnLabel("EXCHANGE_RATE"), meaning: view.columnMeaning("EXCHANGE_RATE"), value: (row) => row.rate, text: (row) => plain(row.rate) },
                ...kMoney.map((name) => ({
                    label: view.columnLabel(name),
                    value: (row: CurrencyRow) => row.amounts[name],
                    text: (row: CurrencyRow) => view.money(row.amounts[name]),
                })),
            ];
            holder.setAttribute("aria-label", view.text("currencies"));
            showSmallTable(holder, { label: view.text("currencies"), columns, rows, isChosen: (row) => row.isBase });
        },
    };
}
