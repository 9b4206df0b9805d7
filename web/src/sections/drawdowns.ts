// The drawdowns of the range, the deepest first.
import type { Drawdown } from "../figures/drawdowns.ts";
import { drawdownsOf } from "../figures/drawdowns.ts";
import { isWhole } from "../figures/range.ts";
import type { Table } from "../data/table.ts";
import { dayText, percent, plain } from "../page/format.ts";
import { fill, h } from "../page/dom.ts";
import type { View } from "../page/view.ts";
import { kFigures } from "../text/terms.ts";
import { frameOf, type Section } from "./section.ts";
import { showSmallTable, tableHolder, type SmallColumn } from "./small_table.ts";

const kShownAtOnce = 10;

/** Those of the whole report are the analysis's own. */
function ownDrawdowns(table: Table): Drawdown[] {
    return table.rowsOf().map((row) => row as unknown as Drawdown);
}

function columnsOf(view: View): SmallColumn<Drawdown>[] {
    const column = (name: "peak" | "valley" | "recovery" | "depth" | "money" | "daysDown" | "daysUp" | "calendarDays", text: (drawdown: Drawdown) => string): SmallColumn<Drawdown> => ({
        label: view.label(kFigures[name]),
        meaning: view.meaning(kFigures[name]),
        value: (drawdown) => drawdown[name],
        text,
    });
    return [
        column("peak", ({ peak }) => (peak === null ? view.text("openingBalance") : dayText(peak))),
        column("valley", ({ valley }) => dayText(valley)),
        column("recovery", ({ recovery }) => (recovery === null ? view.text("lasting") : dayText(recovery))),
        { ...column("depth", ({ depth }) => percent(-depth)), tone: () => "loss" },
        column("money", ({ money }) => view.money(money === null ? null : -money)),
        column("daysDown", ({ daysDown }) => plain(daysDown)),
        column("daysUp", ({ daysUp }) => plain(daysUp)),
        column("calendarDays", ({ calendarDays }) => plain(calendarDays)),
    ];
}

function choose(view: View, drawdown: Drawdown): void {
    const { days } = view.state.account;
    const from = drawdown.peak === null ? 0 : days.firstFrom(drawdown.peak);
    const to = drawdown.recovery === null ? days.count - 1 : days.firstFrom(drawdown.recovery);
    view.state.setRange(from, to);
}

export function drawdownsSection(): Section {
    const hint = h("p", { class: "hint" });
    const holder = tableHolder();
    const draw = async (view: View): Promise<void> => {
        const { account, range } = view.state;
        const all = isWhole(range, account.days) ? ownDrawdowns(await account.table("drawdowns")) : drawdownsOf(account.days, range);
        fill(hint, all.length === 0 ? view.text("noRows") : view.text("drawdownsHint"));
        holder.hidden = all.length === 0;
        holder.setAttribute("aria-label", view.text("drawdowns"));
        showSmallTable(holder, {
            label: view.text("drawdowns"),
            columns: columnsOf(view),
            rows: all,
            onRow: (drawdown) => choose(view, drawdown),
            most: kShownAtOnce,
            moreText: view.text("showAll"),
        });
    };
    return {
        id: "drawdowns",
        title: "drawdowns",
        element: frameOf("drawdowns", hint, holder),
        isThere: (view) => view.state.account.days.count > 0,
        show: (view, changes) => (changes.has("filter") && changes.size === 1 ? undefined : draw(view)),
    };
}
