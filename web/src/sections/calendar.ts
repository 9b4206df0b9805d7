// A calendar of the days' results: a column a week, a row a weekday.
import { Chart, tip, tooltipLook } from "../charts/chart.ts";
import { paletteOf } from "../charts/palette.ts";
import { dayText, percent } from "../page/format.ts";
import { h } from "../page/dom.ts";
import type { View } from "../page/view.ts";
import { frameOf, type Section } from "./section.ts";

const kYearHeight = 132;
const kTop = 26;

function isoOf(day: string): string {
    return dayText(day);
}

export function calendarSection(): Section {
    const chart = new Chart(kYearHeight, "chart calendar");
    const scroller = h("div", { class: "scroller", tabindex: 0, role: "group" }, chart.element);
    let isListening = false;
    const draw = (view: View): void => {
        const { account, range } = view.state;
        const { days } = account;
        const palette = paletteOf();
        const shown = days.days.slice(range.from, range.to + 1).map((day, at) => ({ day, pl: days.pl[range.from + at] }));
        const years = [...new Set(shown.map(({ day }) => day.slice(0, 4)))];
        const largest = Math.max(1e-9, ...shown.map(({ pl }) => Math.abs(pl ?? 0)));
        chart.setHeight(years.length * kYearHeight);
        scroller.setAttribute("aria-label", view.text("calendar"));
        const names = view.state.language === "zh" ? "ZH" : "EN";
        chart.show(
            {
                tooltip: {
                    ...tooltipLook(palette),
                    formatter: ({ data }: { data: [string, number] }) => {
                        const at = days.firstFrom(data[0].replaceAll("-", ""));
                        return tip(data[0], [
                            [view.text("plOf"), view.signedMoney(days.pl[at])],
                            [view.text("returnOf"), percent(days.returns[at])],
                        ]);
                    },
                },
                visualMap: {
                    show: false,
                    min: -largest,
                    max: largest,
                    inRange: { color: [palette.loss, palette.paper, palette.gain] },
                },
                calendar: years.map((year, at) => ({
                    top: kTop + at * kYearHeight,
                    left: 56,
                    right: 12,
                    cellSize: ["auto", 13],
                    range: year,
                    splitLine: { lineStyle: { color: palette.soft, width: 1 } },
                    itemStyle: { color: palette.paper, borderColor: palette.line, borderWidth: 1 },
                    dayLabel: { firstDay: 1, nameMap: names, color: palette.soft, fontSize: 10 },
                    monthLabel: { nameMap: names, color: palette.soft },
                    yearLabel: { color: palette.soft, fontSize: 13, margin: 32 },
                })),
                series: years.map((year, calendarIndex) => ({
                    type: "heatmap",
                    coordinateSystem: "calendar",
                    calendarIndex,
                    data: shown.filter(({ day, pl }) => pl !== null && day.startsWith(year)).map(({ day, pl }) => [isoOf(day), pl]),
                })),
            },
            view.text("chartOf", { what: view.text("calendar") }),
        );
    };
    return {
        id: "calendar",
        title: "calendar",
        element: frameOf("calendar", scroller),
        isThere: (view) => view.state.account.days.pl.some((pl) => pl !== null),
        show(view) {
            if (!isListening) {
                chart.library.on("click", (event) => {
                    const day = (event.data as [string, number])[0].replaceAll("-", "");
                    const at = view.state.account.days.firstFrom(day);
                    view.state.setRange(at, at);
                });
            }
            isListening = true;
            draw(view);
        },
    };
}
