// One chart: an element that tells readers what it shows, and the library's chart in it.
import * as echarts from "echarts/core";
import { BarChart, HeatmapChart, LineChart, ScatterChart } from "echarts/charts";
import {
    AriaComponent,
    BrushComponent,
    CalendarComponent,
    DataZoomComponent,
    GridComponent,
    LegendComponent,
    MarkAreaComponent,
    MarkLineComponent,
    ToolboxComponent,
    TooltipComponent,
    VisualMapComponent,
} from "echarts/components";
import { CanvasRenderer } from "echarts/renderers";
import { h } from "../page/dom.ts";
import type { Palette } from "./palette.ts";

echarts.use([
    LineChart,
    BarChart,
    HeatmapChart,
    ScatterChart,
    AriaComponent,
    BrushComponent,
    CalendarComponent,
    DataZoomComponent,
    GridComponent,
    LegendComponent,
    MarkAreaComponent,
    MarkLineComponent,
    ToolboxComponent,
    TooltipComponent,
    VisualMapComponent,
    CanvasRenderer,
]);

export type Option = echarts.EChartsCoreOption;

export class Chart {
    readonly element: HTMLElement;
    readonly library: echarts.ECharts;

    constructor(height: number, className = "chart") {
        this.element = h("div", { class: className, role: "img", style: `height: ${height}px` });
        this.library = echarts.init(this.element, null, { renderer: "canvas", width: 100, height });
        new ResizeObserver(() => this.fit()).observe(this.element);
    }

    fit(): void {
        const { clientWidth, clientHeight } = this.element;
        if (clientWidth > 0) this.library.resize({ width: clientWidth, height: clientHeight });
    }

    setHeight(height: number): void {
        this.element.style.height = `${height}px`;
        this.fit();
    }

    show(option: Option, label: string): void {
        this.fit();
        this.element.setAttribute("aria-label", label);
        this.library.setOption({ animation: false, ...option }, { notMerge: true });
    }
}

/** How the tooltips of all charts look. */
export function tooltipLook({ paper, line, ink }: Palette): object {
    return { confine: true, backgroundColor: paper, borderColor: line, textStyle: { color: ink } };
}

/** What the tooltip of a chart shows: texts, never markup. */
export function tip(title: string, lines: readonly [name: string, value: string][]): HTMLElement {
    return h(
        "div",
        { class: "tip" },
        h("strong", {}, title),
        ...lines.map(([name, value]) => h("div", {}, h("span", {}, name), " ", h("b", {}, value))),
    );
}
