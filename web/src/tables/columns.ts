// The columns of large tables: which are shown, and how.
import type { ColumnDefinition } from "tabulator-tables";
import type { Column, Table } from "../data/table.ts";
import { dayText, kNothing, percent, plain } from "../page/format.ts";
import type { View } from "../page/view.ts";
import { columnDefinition, type TableLook } from "./table_look.ts";

/** Money that tells how large an account is. Prices don't. */
const kMoney: ReadonlySet<string> = new Set([
    ...["TURNOVER", "turnover", "POUNDAGE", "OFFSETPL", "ROYALTY", "FLOATPL", "DSYK", "DEPOSIT", "pl", "fees", "equity", "cashFlow"],
    ...["margin", "CASH_IN", "CASH_OUT", "EXERCISE_AMOUNT", "EXERCISE_PL", "EXERCISE_FEE", "DELIVERY_AMOUNT", "DELIVERY_FEE"],
    ...["DELIVERY_PL", "moneyIndex", "QCQY", "CRJ", "QMJC", "KYZJ", "PCYK", "CCDSYK", "KHQY", "SXF", "BZJZY", "XQSXF", "QLJSZ"],
    ...["HOST_CURRENT", "HOST_FROZEN_A", "HOST_FROZEN_B", "HOST_POSITION_MARGIN", "HOST_POSITION_PL"],
]);
const kSizes: ReadonlySet<string> = new Set([
    ...["MATCH_VOL", "POSITION_VOL", "BID_POSITION_VOL", "ASK_POSITION_VOL", "lots"],
    ...["EXERCISE_VOL", "DELIVERED_VOL", "RESIDUAL_VOL"],
]);
const kToned: ReadonlySet<string> = new Set(["pl", "OFFSETPL", "FLOATPL", "DSYK", "EXERCISE_PL", "DELIVERY_PL", "return"]);
const kRates: ReadonlySet<string> = new Set(["return", "marginUse"]);
const kGroupable: ReadonlySet<string> = new Set([
    ...["BILL_DATE", "EXCH_NAME", "product", "fullContract", "CONTRACT", "BID", "side", "OFFSET", "HEDGE", "CURRENCY", "CASH_TYPE"],
    ...["OPEN_DATE", "account"],
]);
/** The day table's records beside the analysis's figures of the same day, and what other columns say better. */
const kLeftOut: ReadonlySet<string> = new Set([
    ...["tradeSide", "productName", "moneyIndex", "HOST_CURRENT", "HOST_FROZEN_A", "HOST_FROZEN_B", "HOST_POSITION_MARGIN"],
    ...["HOST_POSITION_PL", "XQSXF"],
]);

const kMostHeight = 560;

const kFirst = ["day", "BILL_DATE", "account", "product", "fullContract", "side", "BID", "pl"];

/** Those that say something: what a row is about first, then the others in the order of the table. */
function shownColumns(table: Table): Column[] {
    const replaced = table.has("fullContract") ? ["CONTRACT", "DELIVERY"] : table.has("day") ? ["BILL_DATE"] : [];
    const shown = table.columns.filter(
        (column) => !kLeftOut.has(column.name) && !replaced.includes(column.name) && table.isFilled(column),
    );
    const placeOf = ({ name }: Column): number => (kFirst.includes(name) ? kFirst.indexOf(name) : kFirst.length);
    return shown.sort((left, right) => placeOf(left) - placeOf(right));
}

function cellText(view: View, column: Column, value: unknown): string {
    if (value === null || value === undefined || value === "") return kNothing;
    if ("values" in column) {
        const number = value as number;
        if (kMoney.has(column.name)) return view.money(number);
        if (kSizes.has(column.name)) return view.size(number);
        return kRates.has(column.name) ? percent(number) : plain(number);
    }
    const text = String(value);
    if (column.name === "account") return view.nameText(text);
    return column.kind === "day" ? dayText(text) : view.cellText(text);
}

function definitionOf(view: View, look: TableLook, column: Column): ColumnDefinition {
    const isHidden = view.state.hidesAmounts && (kMoney.has(column.name) || kSizes.has(column.name) || column.name === "account");
    return {
        ...columnDefinition(look, column, { meaning: view.columnMeaning(column.name), canFilter: !isHidden }),
        formatter: (cell) => {
            const value: unknown = cell.getValue();
            if (kToned.has(column.name)) cell.getElement().classList.add(view.toneOf(value as number | null));
            const text = document.createElement("span");
            text.textContent = cellText(view, column, value);
            return text;
        },
    };
}

/** How a table of an account's rows looks. */
export function lookOf(view: View, table: Table): TableLook {
    const look: TableLook = {
        label: view.text("tables"),
        columns: shownColumns(table),
        hidesAmounts: view.state.hidesAmounts,
        mostHeight: kMostHeight,
        text: (key, values) => view.text(key, values),
        columnLabel: (name) => view.columnLabel(name),
        cellText: (column, value) => cellText(view, column, value),
        definitionOf: (column) => definitionOf(view, look, column),
        isGroupable: (name) => kGroupable.has(name),
    };
    return look;
}
