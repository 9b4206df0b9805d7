// What products, contracts and sides made: bars, and a table below them. A choice filters the rows of the page.
import { Chart, tip, tooltipLook } from "../charts/chart.ts";
import { paletteOf } from "../charts/palette.ts";
import { ClosedRows, groupsOf, type Group, type GroupKind } from "../figures/groups.ts";
import { decimal, percent, plain } from "../page/format.ts";
import { fill, h } from "../page/dom.ts";
import type { View } from "../page/view.ts";
import { choice, frameOf, type Section } from "./section.ts";
import { showSmallTable, tableHolder, type SmallColumn } from "./small_table.ts";

const kMostBars = 30;

function nameOf(view: View, group: Group): string {
    return group.name === "" ? view.cellText(group.key) : `${group.name} (${group.key})`;
}

function columnsOf(view: View, isForeign: boolean): SmallColumn<Group>[] {
    const column = (name: keyof Group, text: (group: Group) => string, tone?: (group: Group) => string): SmallColumn<Group> => ({
        label: view.columnLabel(name),
        meaning: view.columnMeaning(name),
        value: (group) => group[name],
        text,
        tone,
    });
    const money = (name: "pl" | "longPl" | "shortPl" | "averageWin" | "averageLoss" | "expectancy"): SmallColumn<Group> =>
        column(name, (group) => view.signedMoney(group[name]), (group) => view.toneOf(group[name]));
    return [
        column("key", (group) => nameOf(view, group)),
        ...(isForeign ? [column("currency", (group) => group.currency)] : []),
        money("pl"),
        column("count", (group) => plain(group.count)),
        column("lots", (group) => view.size(group.lots)),
        column("winRate", (group) => percent(group.winRate, 1)),
        column("profitFactor", (group) => decimal(group.profitFactor)),
        money("expectancy"),
        money("averageWin"),
        money("averageLoss"),
        column("medianHoldingDays", (group) => plain(group.medianHoldingDays)),
        column("fees", (group) => view.money(group.fees)),
        money("longPl"),
        money("shortPl"),
    ];
}

export function productsSection(): Section {
    const kinds = h("div", {});
    const hint = h("p", { class: "hint" });
    const chart = new Chart(200);
    const holder = tableHolder();
    let kind: GroupKind = "product";
    let currency = "";
    let bars: Group[] = [];
    let isListening = false;
    const rowsOf = new WeakMap<object, ClosedRows>();

    const choose = (view: View, group: Group): void =>
        view.state.setFilter({ kind, key: group.key, currency: group.currency });

    const showBars = (view: View, groups: readonly Group[]): void => {
        const palette = paletteOf();
        const most = [...groups].sort((left, right) => Math.abs(right.pl) - Math.abs(left.pl)).slice(0, kMostBars);
        bars = most.sort((left, right) => left.pl - right.pl);
        chart.setHeight(Math.max(120, 46 + bars.length * 20));
        const { filter } = view.state;
        chart.show(
            {
                textStyle: { color: palette.ink },
                grid: { left: 8, right: 24, top: 8, bottom: 8, containLabel: true },
                tooltip: {
                    ...tooltipLook(palette),
                    formatter: ({ dataIndex }: { dataIndex: number }) => {
                        const group = bars[dataIndex];
                        return tip(nameOf(view, group), [
                            [view.columnLabel("pl"), view.signedMoney(group.pl)],
                            [view.columnLabel("winRate"), percent(group.winRate, 1)],
                            [view.columnLabel("count"), plain(group.count)],
                        ]);
                    },
                },
                xAxis: {
                    type: "value",
                    axisLabel: { color: palette.soft, formatter: (value: number) => view.shortMoney(value), hideOverlap: true },
                    splitLine: { lineStyle: { color: palette.line } },
                },
                yAxis: {
                    type: "category",
                    data: bars.map((group) => nameOf(view, group)),
                    axisLabel: { color: palette.ink, interval: 0 },
                    axisTick: { show: false },
                    axisLine: { lineStyle: { color: palette.line } },
                },
                series: [
                    {
                        type: "bar",
                        barMaxWidth: 14,
                        data: bars.map((group) => ({
                            value: group.pl,
                            itemStyle: {
                                color: group.pl < 0 ? palette.loss : palette.gain,
                                opacity: filter === null || filter.kind !== kind || filter.key === group.key ? 1 : 0.3,
                            },
                        })),
                    },
                ],
            },
            view.text("chartOf", { what: `${view.text("products")} ${view.text("plOf")}` }),
        );
    };

    const draw = async (view: View): Promise<void> => {
        const { account, range, filter } = view.state;
        const table = await account.table("closed");
        let closed = rowsOf.get(table);
        if (closed === undefined) rowsOf.set(table, (closed = new ClosedRows(table)));
        const { days } = account.days;
        const groups = days.length === 0 ? [] : groupsOf(closed, kind, days[range.from], days[range.to]);
        const all: [GroupKind, string][] = [["product", view.text("byProduct")], ["contract", view.text("byContract")], ["side", view.text("bySide")]];
        const currencies = [...new Set(groups.map((group) => group.currency))];
        if (!currencies.includes(currency)) currency = currencies[0] ?? "";
        const ofCurrency = choice(
            view.text("currencyPick"),
            currencies.map((each): [string, string] => [each, each]),
            currency,
            (chosen) => ((currency = chosen), void draw(view)),
        );
        fill(
            kinds,
            choice(view.text("products"), all, kind, (chosen) => ((kind = chosen), void draw(view))),
            " ",
            currencies.length > 1 ? ofCurrency : null,
        );
        fill(hint, groups.length === 0 ? view.text("noRows") : view.text("productsHint"));
        chart.element.hidden = holder.hidden = groups.length === 0;
        if (groups.length === 0) return;
        holder.setAttribute("aria-label", view.text("products"));
        showBars(view, groups.filter((group) => group.currency === currency));
        showSmallTable(holder, {
            label: view.text("products"),
            columns: columnsOf(view, account.isForeign),
            rows: groups,
            onRow: (group) => choose(view, group),
            most: 15,
            moreText: view.text("showAll"),
            isChosen: (group) => filter?.kind === kind && filter.key === group.key && filter.currency === group.currency,
        });
    };

    return {
        id: "products",
        title: "products",
        element: frameOf("products", kinds, hint, chart.element, holder),
        isThere: (view) => view.state.account.rowsOf("closed") > 0,
        show(view) {
            if (!isListening) chart.library.on("click", ({ dataIndex }) => choose(view, bars[dataIndex]));
            isListening = true;
            return draw(view);
        },
    };
}
