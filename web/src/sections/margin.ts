// Margin of the open positions by product, day by day, one upon the other.
import { Chart, tip, tooltipLook } from "../charts/chart.ts";
import { paletteOf } from "../charts/palette.ts";
import type { Table } from "../data/table.ts";
import { dayText } from "../page/format.ts";
import type { View } from "../page/view.ts";
import { frameOf, type Section } from "./section.ts";

const kMostProducts = 9;

interface Stack {
    name: string;
    margins: (number | null)[]; // by places of the range
    highest: number;
}

/** The products with the highest margins, and all others together. */
function stacksOf(view: View, table: Table, rest: string): Stack[] {
    const { account, range } = view.state;
    const { days } = account.days;
    const places = new Map(days.slice(range.from, range.to + 1).map((day, at) => [day, at]));
    const size = places.size;
    const [dayOf, product, currency, margin] = [table.texts("day"), table.texts("product"), table.texts("currency"), table.numbers("margin")];
    const byName = new Map<string, Stack>();
    for (let row = 0; row < table.rows; ++row) {
        const at = places.get(dayOf[row]);
        const value = margin[row];
        if (at === undefined || value === null) continue;
        const name = currency[row] === "" ? product[row] : `${product[row]} ${currency[row]}`;
        let stack = byName.get(name);
        if (stack === undefined) byName.set(name, (stack = { name, margins: new Array<number | null>(size).fill(null), highest: 0 }));
        stack.margins[at] = (stack.margins[at] ?? 0) + value;
        stack.highest = Math.max(stack.highest, stack.margins[at]!);
    }
    const stacks = [...byName.values()].sort((left, right) => right.highest - left.highest);
    if (stacks.length <= kMostProducts + 1) return stacks;
    const others = stacks.slice(kMostProducts);
    const margins = others[0].margins.map((_, at) => others.reduce<number | null>((sum, { margins: m }) => (m[at] === null ? sum : (sum ?? 0) + m[at]!), null));
    return [...stacks.slice(0, kMostProducts), { name: rest, margins, highest: 0 }];
}

export function marginSection(): Section {
    const chart = new Chart(300);
    return {
        id: "margin",
        title: "margin",
        element: frameOf("margin", chart.element),
        isThere: (view) => view.state.account.rowsOf("margin_days") > 0,
        async show(view, changes) {
            if (changes.has("filter") && changes.size === 1) return;
            const { account, range } = view.state;
            const table = await account.table("margin_days");
            const palette = paletteOf();
            const days = account.days.days.slice(range.from, range.to + 1);
            const stacks = stacksOf(view, table, "…");
            chart.show(
                {
                    textStyle: { color: palette.ink },
                    legend: { type: "scroll", top: 0, textStyle: { color: palette.ink }, pageTextStyle: { color: palette.ink } },
                    grid: { left: 8, right: 16, top: 36, bottom: 8, containLabel: true },
                    tooltip: {
                        trigger: "axis",
                        ...tooltipLook(palette),
                        formatter: (params: { dataIndex: number }[]) => {
                            const at = params[0].dataIndex;
                            const filled = stacks.filter(({ margins }) => (margins[at] ?? 0) !== 0);
                            return tip(dayText(days[at]), filled.map(({ name, margins }) => [name, view.money(margins[at], 0)]));
                        },
                    },
                    xAxis: {
                        type: "category",
                        data: days.map((day) => dayText(day)),
                        boundaryGap: false,
                        axisLabel: { color: palette.soft, hideOverlap: true },
                        axisLine: { lineStyle: { color: palette.line } },
                    },
                    yAxis: {
                        type: "value",
                        axisLabel: { color: palette.soft, formatter: (value: number) => view.shortMoney(value) },
                        splitLine: { lineStyle: { color: palette.line } },
                    },
                    series: stacks.map(({ name, margins }, at) => ({
                        name,
                        type: "line",
                        stack: "margin",
                        showSymbol: days.length === 1,
                        lineStyle: { width: 0 },
                        areaStyle: { opacity: 0.85 },
                        itemStyle: { color: palette.series[at % palette.series.length] },
                        data: margins.map((margin) => margin ?? 0),
                    })),
                },
                view.text("chartOf", { what: view.text("margin") }),
            );
        },
    };
}
