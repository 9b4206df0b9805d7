// The account over time: equity, index or P/L, the drawdown and the margin use below, on one axis of days.
import { Chart, tip, tooltipLook, type Option } from "../charts/chart.ts";
import { paletteOf, type Palette } from "../charts/palette.ts";
import type { Days } from "../data/days.ts";
import { deepest, drawdownsOf } from "../figures/drawdowns.ts";
import { indexBefore, type Range } from "../figures/range.ts";
import { dayText, percent, plain } from "../page/format.ts";
import { fill, h } from "../page/dom.ts";
import type { CourseKind } from "../page/state.ts";
import type { View } from "../page/view.ts";
import { choice, frameOf, type Section } from "./section.ts";

type Numbers = (number | null)[];

/** What the upper chart shows, day by day. */
function courseOf(days: Days, range: Range, kind: CourseKind): Numbers {
    if (kind === "equity") return days.equity;
    if (kind === "index") {
        const before = indexBefore(days, range.from);
        return days.index.map((index) => (index === null || before <= 0 ? null : index / before));
    }
    let sum = 0;
    return days.pl.map((pl, day) => (sum = day < range.from ? 0 : sum + (pl ?? 0)));
}

/** How far the index is below its highest value since the range began. */
function depthsOf(days: Days, range: Range): Numbers {
    let peak = indexBefore(days, range.from);
    return days.index.map((index, day) => {
        if (index === null || day < range.from) return null;
        peak = Math.max(peak, index);
        return peak > 0 ? index / peak - 1 : null;
    });
}

/** The days of the deepest drawdown, from its peak to its recovery. */
function shadeOf(days: Days, range: Range): object[][] {
    const worst = deepest(drawdownsOf(days, range));
    if (worst === null) return [];
    const from = worst.peak === null || worst.peak < days.days[range.from] ? days.days[range.from] : worst.peak;
    return [[{ xAxis: dayText(from) }, { xAxis: dayText(worst.recovery ?? days.days[range.to]) }]];
}

function flowsOf(view: View, course: Numbers, palette: Palette): object[] {
    const { cashFlow, days } = view.state.account.days;
    return cashFlow.flatMap((flow, day) =>
        flow === null || flow === 0 || course[day] === null
            ? []
            : [{
                  value: [dayText(days[day]), course[day]],
                  symbolRotate: flow > 0 ? 0 : 180,
                  itemStyle: { color: palette.accent },
              }],
    );
}

const kGrids = [
    { top: 26, height: 210 },
    { top: 276, height: 70 },
    { top: 386, height: 70 },
];
const kHeight = 530;

function axisText(view: View): (value: number) => string {
    const { course } = view.state;
    return (value) => (course === "index" ? plain(value) : view.shortMoney(value));
}

function axesOf(view: View, palette: Palette, width: number): Option {
    const left = width < 500 ? 56 : 78;
    const names = view.state.account.days.days.map((day) => dayText(day));
    const label = { color: palette.soft };
    const y = { type: "value", axisLabel: label, splitLine: { lineStyle: { color: palette.line } }, splitNumber: 4 };
    const rate = { ...y, splitNumber: 2, axisLabel: { ...label, formatter: (value: number) => percent(value, 0) } };
    return {
        grid: kGrids.map((grid) => ({ ...grid, left, right: 16, outerBoundsMode: "none" })),
        xAxis: kGrids.map((_, gridIndex) => ({
            type: "category",
            gridIndex,
            data: names,
            boundaryGap: false,
            axisLabel: { ...label, show: gridIndex === 2, hideOverlap: true, alignMinLabel: "left", alignMaxLabel: "right" },
            axisLine: { lineStyle: { color: palette.line }, onZero: false },
            axisTick: { show: false },
            axisPointer: { label: { show: gridIndex === 2 } },
        })),
        yAxis: [
            { ...y, gridIndex: 0, scale: view.state.course !== "pl", axisLabel: { ...label, formatter: axisText(view) } },
            { ...rate, gridIndex: 1, max: 0 },
            { ...rate, gridIndex: 2, min: 0 },
        ],
    };
}

function seriesOf(view: View, palette: Palette): object[] {
    const { account, range, course } = view.state;
    const { days } = account;
    const values = courseOf(days, range, course);
    const line = (name: string, at: number, data: Numbers, color: string, more: object = {}): object => ({
        name,
        type: "line",
        xAxisIndex: at,
        yAxisIndex: at,
        data,
        showSymbol: days.count === 1,
        lineStyle: { width: at === 0 ? 1.8 : 1, color },
        itemStyle: { color },
        ...more,
    });
    const area = { areaStyle: { opacity: 0.25 } };
    return [
        line(view.text(course === "pl" ? "cumulativePl" : course), 0, values, palette.accent, {
            markArea: { silent: true, itemStyle: { color: palette.under }, data: shadeOf(days, range) },
        }),
        { name: view.text("cashFlow"), type: "scatter", symbol: "triangle", symbolSize: 9, data: flowsOf(view, values, palette), z: 5 },
        line(view.text("drawdown"), 1, depthsOf(days, range), palette.loss, area),
        line(view.text("marginUse"), 2, days.marginUse, palette.series[1], area),
    ];
}

function tooltipOf(view: View): Option {
    const show = (params: { dataIndex: number; seriesType: string }[]): HTMLElement | string => {
        const day = params.find(({ seriesType }) => seriesType === "line")?.dataIndex;
        if (day === undefined) return "";
        const { account, range } = view.state;
        const { days } = account;
        const lines: [string, string][] = [
            [view.text("equity"), view.money(days.equity[day])],
            [view.text("index"), plain(days.index[day])],
            [view.text("plOf"), view.signedMoney(days.pl[day])],
            [view.text("returnOf"), percent(days.returns[day])],
            [view.text("drawdown"), percent(depthsOf(days, range)[day])],
            [view.text("marginUse"), percent(days.marginUse[day])],
        ];
        const flow = days.cashFlow[day];
        if (flow !== null && flow !== 0) lines.push([view.text(flow > 0 ? "deposit" : "withdrawal"), view.money(Math.abs(flow))]);
        return tip(dayText(days.days[day]), lines);
    };
    return { trigger: "axis", formatter: show, axisPointer: { type: "line" } };
}

function optionOf(view: View, palette: Palette, width: number): Option {
    const { range } = view.state;
    return {
        aria: { enabled: false },
        textStyle: { color: palette.ink },
        tooltip: { ...tooltipLook(palette), ...tooltipOf(view) },
        axisPointer: { link: [{ xAxisIndex: "all" }], label: { backgroundColor: palette.soft } },
        toolbox: { show: true, itemSize: 0, feature: { dataZoom: { yAxisIndex: "none", xAxisIndex: [0, 1, 2] } } },
        ...axesOf(view, palette, width),
        dataZoom: [
            {
                type: "slider",
                xAxisIndex: [0, 1, 2],
                startValue: range.from,
                endValue: range.to,
                bottom: 4,
                height: 26,
                brushSelect: false,
                showDetail: false,
                borderColor: palette.line,
                textStyle: { color: palette.soft },
            },
        ],
        series: seriesOf(view, palette),
    };
}

/** Where the names of the three charts stand. */
function captions(view: View): HTMLElement {
    const names = [view.text(view.state.course === "pl" ? "cumulativePl" : view.state.course), view.text("drawdown"), view.text("marginUse")];
    return h("div", { class: "captions", "aria-hidden": "true" }, ...names.map((name, at) => h("span", { style: `top: ${kGrids[at].top - 27}px` }, name)));
}

function labelOf(view: View): string {
    const { days } = view.state.account;
    const { from, to } = view.state.range;
    const ends = [from, to].map((day) => `${dayText(days.days[day])} ${view.money(days.equity[day])}`);
    return `${view.text("chartOf", { what: view.text("equity") })}: ${ends.join(" → ")}`;
}

export function courseSection(): Section {
    const kinds = h("div", {});
    const hint = h("p", { class: "hint" });
    const chart = new Chart(kHeight);
    const holder = h("div", { class: "course" }, chart.element);
    let names: HTMLElement = h("div", {});
    holder.prepend(names);

    const listen = (view: View): void => {
        let frame = 0;
        chart.library.on("datazoom", () => {
            cancelAnimationFrame(frame);
            frame = requestAnimationFrame(() => {
                const [zoom] = (chart.library.getOption() as { dataZoom: { startValue: number; endValue: number }[] }).dataZoom;
                view.state.setRange(zoom.startValue, zoom.endValue);
            });
        });
    };
    let isListening = false;
    /** Lets a range be dragged. It takes the library as long as to paint, so it waits for who wants to drag. */
    const takeDrags = (): void => chart.library.dispatchAction({ type: "takeGlobalCursor", key: "dataZoomSelect", dataZoomSelectActive: true });

    return {
        id: "course",
        title: "course",
        element: frameOf("course", kinds, holder, hint),
        isThere: (view) => view.state.account.days.count > 0,
        show(view, changes) {
            const palette = paletteOf();
            if (!isListening) listen(view);
            isListening = true;
            const { range } = view.state;
            if (changes.has("account") || changes.has("look")) {
                const all: [CourseKind, string][] = [["equity", view.text("equity")], ["index", view.text("index")], ["pl", view.text("cumulativePl")]];
                fill(kinds, choice(view.text("course"), all, view.state.course, (course) => view.state.setLook({ course })));
                fill(hint, view.text("rangeKeys"));
                const next = captions(view);
                names.replaceWith(next);
                names = next;
                chart.show(optionOf(view, palette, chart.element.clientWidth), labelOf(view));
                chart.element.addEventListener("pointerenter", takeDrags, { once: true });
            } else if (changes.has("range")) {
                chart.element.setAttribute("aria-label", labelOf(view));
                chart.library.setOption({ series: seriesOf(view, palette) });
                chart.library.dispatchAction({ type: "dataZoom", dataZoomIndex: 0, startValue: range.from, endValue: range.to });
            }
        },
    };
}
