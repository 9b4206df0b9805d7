// The rows of the statements: a tab a table, each read when it is first shown.
import type { Table } from "../data/table.ts";
import { fill, h } from "../page/dom.ts";
import type { Filter } from "../page/state.ts";
import type { View } from "../page/view.ts";
import { lookOf } from "../tables/columns.ts";
import { LargeTable } from "../tables/large_table.ts";
import { frameOf, type Section } from "./section.ts";

const kTabs = ["trades", "closed", "positions", "position_sums", "days", "cash", "exercises", "deliveries"] as const;
type Tab = (typeof kTabs)[number];

/** Whether a row of `table` is of the chosen product, contract or side; tables that don't know it keep all rows. */
function matchOf(table: Table, filter: Filter | null): (row: number) => boolean {
    const column = filter?.kind === "contract" ? "fullContract" : filter?.kind;
    if (filter === null || column === undefined || !table.has(column)) return () => true;
    const keys = table.texts(column);
    const currencies = filter.currency === "" ? null : table.texts("CURRENCY");
    return (row) => keys[row] === filter.key && (currencies === null || currencies[row] === filter.currency);
}

function keepOf(view: View, table: Table, tab: Tab): (row: number) => boolean {
    const { account, range, filter } = view.state;
    const { days } = account.days;
    const day = table.texts(tab === "days" ? "day" : "BILL_DATE");
    const isOfFilter = matchOf(table, filter);
    if (days.length === 0) return isOfFilter;
    const [first, last] = [days[range.from], days[range.to]];
    return (row) => day[row] >= first && day[row] <= last && isOfFilter(row);
}

export function tablesSection(): Section {
    const tabs = h("div", { class: "tabs", role: "tablist" });
    const filterLine = h("p", { class: "filter-line" });
    const place = h("div", { role: "tabpanel", id: "table-panel", tabindex: 0 });
    let chosen: Tab = "closed";
    let shown: { tab: Tab; table: Table; large: LargeTable } | null = null;
    let isNear = false;

    const showTabs = (view: View): void => {
        const there = kTabs.filter((tab) => view.state.account.rowsOf(tab) > 0);
        if (!there.includes(chosen) && there.length > 0) chosen = there[0];
        const choose = (tab: Tab): void => {
            chosen = tab;
            showTabs(view);
            void showTable(view);
            tabs.querySelector<HTMLElement>("[aria-selected=true]")?.focus();
        };
        const move = (event: Event): void => {
            const step = { ArrowLeft: -1, ArrowRight: 1 }[(event as KeyboardEvent).key];
            if (step === undefined) return;
            event.stopPropagation();
            choose(there[(there.indexOf(chosen) + step + there.length) % there.length]);
        };
        tabs.setAttribute("aria-label", view.text("tables"));
        fill(
            tabs,
            ...there.map((tab) =>
                h(
                    "button",
                    {
                        type: "button",
                        role: "tab",
                        id: `tab-${tab}`,
                        "aria-selected": String(tab === chosen),
                        "aria-controls": "table-panel",
                        tabindex: tab === chosen ? 0 : -1,
                        click: () => choose(tab),
                        keydown: move,
                    },
                    tab === "days" ? view.text("daysTable") : view.text(tab),
                ),
            ),
        );
        place.setAttribute("aria-labelledby", `tab-${chosen}`);
    };

    const showTable = async (view: View): Promise<void> => {
        if (!isNear) return;
        const tab = chosen;
        if (shown?.tab !== tab) fill(place, h("p", { class: "hint" }, view.text("loading")));
        const table = await view.state.account.table(tab);
        if (tab !== chosen) return;
        shown?.large.destroy();
        const large = new LargeTable(lookOf(view, table), tab, table);
        shown = { tab, table, large };
        fill(place, large.element);
        large.show(keepOf(view, table, tab));
        place.dataset.shown = `tab-${tab}`; // for whoever measures
    };

    const showFilter = (view: View): void => {
        const { filter } = view.state;
        filterLine.hidden = filter === null;
        if (filter === null) return;
        const name = `${view.cellText(filter.key)} ${filter.currency}`.trim();
        fill(
            filterLine,
            view.text("filteredBy", { what: name }),
            " ",
            h("button", { type: "button", click: () => view.state.setFilter(null) }, view.text("clearFilter")),
        );
    };

    let latest: View | null = null;
    const element = frameOf("tables", tabs, filterLine, place);
    new IntersectionObserver(
        (entries) => {
            if (isNear || !entries.some((entry) => entry.isIntersecting)) return;
            isNear = true;
            if (latest !== null) void showTable(latest);
        },
        { rootMargin: "600px" },
    ).observe(element);

    return {
        id: "tables",
        title: "tables",
        element,
        isThere: (view) => kTabs.some((tab) => view.state.account.rowsOf(tab) > 0),
        async show(view, changes) {
            latest = view;
            showTabs(view);
            showFilter(view);
            if (changes.has("account") || changes.has("look") || shown === null) return showTable(view);
            shown.large.show(keepOf(view, shown.table, shown.tab));
        },
    };
}
