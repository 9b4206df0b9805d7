// Months by years, as a table whose cells are coloured, and a calendar of the days.
import { periodsOf, type Period } from "../figures/periods.ts";
import { percent } from "../page/format.ts";
import { fill, h } from "../page/dom.ts";
import type { View } from "../page/view.ts";
import { choice, frameOf, type Section } from "./section.ts";

type Kind = "return" | "pl";

/** How strong a cell's colour is: 0 to 4 fifths, by the largest of all. */
export function strength(value: number | null, largest: number): string {
    if (value === null || value === 0 || largest === 0) return "";
    const step = Math.max(1, Math.ceil((Math.abs(value) / largest) * 5));
    return `${value > 0 ? "up" : "down"}-${step}`;
}

function cellOf(view: View, period: Period | undefined, kind: Kind, largest: number): HTMLElement {
    if (period === undefined) return h("td", {});
    const value = period[kind];
    const text = kind === "return" ? percent(value, 1) : view.shortMoney(value);
    const button = h("button", { type: "button", click: () => view.state.setRange(period.first, period.last) }, text);
    return h("td", { class: `heat ${strength(value, largest)}` }, button);
}

export function periodsSection(): Section {
    const kinds = h("div", {});
    const table = h("table", { class: "months" });
    const scroller = h("div", { class: "scroller", tabindex: 0, role: "group" }, table);
    let kind: Kind = "return";
    const draw = (view: View): void => {
        const { account, range } = view.state;
        const months = periodsOf(account.days, range, 6);
        const years = periodsOf(account.days, range, 4);
        const largest = Math.max(0, ...months.map((month) => Math.abs(month[kind] ?? 0)));
        const all: [Kind, string][] = [["return", view.text("returnOf")], ["pl", view.text("plOf")]];
        fill(kinds, choice(view.text("periods"), all, kind, (chosen) => ((kind = chosen), draw(view))));
        scroller.setAttribute("aria-label", view.text("periods"));
        const numbers = Array.from({ length: 12 }, (_, i) => i + 1);
        const byName = new Map(months.map((month) => [month.period, month]));
        const head = [view.text("year"), ...numbers.map((n) => view.text("month", { n })), view.text("wholeYear")];
        fill(
            table,
            h("thead", {}, h("tr", {}, ...head.map((text) => h("th", { scope: "col" }, text)))),
            h(
                "tbody",
                {},
                ...years.map((year) =>
                    h(
                        "tr",
                        {},
                        h("th", { scope: "row" }, year.period),
                        ...numbers.map((n) => cellOf(view, byName.get(year.period + String(n).padStart(2, "0")), kind, largest)),
                        cellOf(view, year, kind, Infinity),
                    ),
                ),
            ),
        );
    };
    return {
        id: "periods",
        title: "periods",
        element: frameOf("periods", kinds, scroller),
        isThere: (view) => view.state.account.days.count > 0,
        show: (view) => draw(view),
    };
}
