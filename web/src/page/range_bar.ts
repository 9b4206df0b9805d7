// The buttons, fields and keys by which a range of days is chosen.
import { h, fill } from "./dom.ts";
import type { View } from "./view.ts";

const kMonths = [12, 6, 3, 1];

function isoOf(day: string): string {
    return `${day.slice(0, 4)}-${day.slice(4, 6)}-${day.slice(6, 8)}`;
}

/** The day so many months before `day`. */
function monthsBefore(day: string, months: number): string {
    const date = new Date(Date.UTC(Number(day.slice(0, 4)), Number(day.slice(4, 6)) - 1 - months, Number(day.slice(6, 8))));
    return date.toISOString().slice(0, 10).replaceAll("-", "");
}

function chooseMonths(view: View, months: number): void {
    const { days } = view.state.account;
    const last = days.count - 1;
    view.state.setRange(Math.min(days.firstFrom(monthsBefore(days.days[last], months)) , last), last);
}

function chooseLastYear(view: View): void {
    const { days } = view.state.account;
    const last = days.count - 1;
    view.state.setRange(days.firstFrom(`${days.days[last].slice(0, 4)}0101`), last);
}

function dayField(view: View, label: "rangeFrom" | "rangeTo"): HTMLElement {
    const { account, range } = view.state;
    const { days } = account;
    const at = label === "rangeFrom" ? range.from : range.to;
    const choose = (event: Event): void => {
        const day = (event.target as HTMLInputElement).value.replaceAll("-", "");
        if (day.length !== 8) return;
        if (label === "rangeFrom") view.state.setRange(Math.min(days.firstFrom(day), view.state.range.to), view.state.range.to);
        else view.state.setRange(view.state.range.from, Math.max(view.state.range.from, days.firstFrom(`${day}~`) - 1));
    };
    return h("label", {}, h("span", { class: "soft" }, view.text(label)), h("input", {
        type: "date",
        value: isoOf(days.days[at]),
        min: isoOf(days.days[0]),
        max: isoOf(days.days[days.count - 1]),
        change: choose,
    }));
}

export function showRangeBar(bar: HTMLElement, view: View): void {
    const { days } = view.state.account;
    bar.hidden = days.count === 0;
    if (days.count === 0) return;
    const button = (text: string, click: () => void): HTMLElement => h("button", { type: "button", click }, text);
    fill(
        bar,
        button(view.text("wholeRange"), () => view.state.setRange(0, days.count - 1)),
        button(view.text("thisYear"), () => chooseLastYear(view)),
        ...kMonths.map((n) => button(n === 1 ? view.text("lastMonth") : view.text("lastMonths", { n }), () => chooseMonths(view, n))),
        dayField(view, "rangeFrom"),
        dayField(view, "rangeTo"),
    );
}

/** Moves or resizes the range by a share of its length. */
export function listenToKeys(view: View): void {
    const moves: Record<string, (step: number) => [number, number]> = {
        ArrowLeft: (step) => [-step, -step],
        ArrowRight: (step) => [step, step],
        "+": (step) => [step, -step],
        "=": (step) => [step, -step],
        "-": (step) => [-step, step],
    };
    document.addEventListener("keydown", (event) => {
        const target = event.target as Element;
        if (event.ctrlKey || event.metaKey || event.altKey) return;
        if (target.closest("input, select, textarea, .tabulator, [role=grid]") !== null) return;
        const { range, account } = view.state;
        const last = account.days.count - 1;
        if (last < 0) return;
        if (event.key === "0" || event.key === "Escape") return view.state.setRange(0, last);
        const move = moves[event.key];
        if (move === undefined) return;
        event.preventDefault();
        const length = range.to - range.from;
        const step = Math.max(1, Math.round((length + 1) / 10));
        let [from, to] = move(step);
        if (from === to) from = to = Math.max(-range.from, Math.min(to, last - range.to)); // its length stays
        if (range.from + from <= range.to + to) view.state.setRange(range.from + from, range.to + to);
    });
}
