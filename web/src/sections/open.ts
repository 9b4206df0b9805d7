// Open positions of the last statement.
import { numberIn, textIn, type Row } from "../data/table.ts";
import { dayText, plain } from "../page/format.ts";
import type { View } from "../page/view.ts";
import { frameOf, type Section } from "./section.ts";
import { showSmallTable, tableHolder, type SmallColumn } from "./small_table.ts";

function columnsOf(view: View): SmallColumn<Row>[] {
    const column = (name: string, text: (row: Row) => string, tone?: (row: Row) => string): SmallColumn<Row> => ({
        label: view.columnLabel(name),
        meaning: view.columnMeaning(name),
        value: (row) => row[name],
        text,
        tone,
    });
    return [
        ...(view.state.account.head.isSum ? [column("account", (row) => view.nameText(textIn(row, "account")))] : []),
        column("contract", (row) => textIn(row, "contract")),
        ...(view.state.account.isForeign ? [column("currency", (row) => textIn(row, "currency"))] : []),
        column("side", (row) => view.cellText(textIn(row, "side"))),
        column("lots", (row) => view.size(numberIn(row, "lots"))),
        column("openDay", (row) => dayText(textIn(row, "openDay"))),
        column("daysHeld", (row) => plain(numberIn(row, "daysHeld"))),
        column("floatPl", (row) => view.signedMoney(numberIn(row, "floatPl")), (row) => view.toneOf(numberIn(row, "floatPl"))),
        column("margin", (row) => view.money(numberIn(row, "margin"))),
    ];
}

export function openSection(): Section {
    const holder = tableHolder();
    return {
        id: "open",
        title: "open",
        element: frameOf("open", holder),
        isThere: (view) => view.state.account.rowsOf("open") > 0,
        async show(view, changes) {
            if (!changes.has("account") && !changes.has("look")) return;
            const rows = (await view.state.account.table("open")).rowsOf();
            holder.setAttribute("aria-label", view.text("open"));
            showSmallTable(holder, { label: view.text("open"), columns: columnsOf(view), rows, most: 15, moreText: view.text("showAll") });
        },
    };
}
