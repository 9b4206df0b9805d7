// The head of the page: what the account came to in the chosen range.
import { figuresOf, isWhole, type RangeFigures } from "../figures/range.ts";
import { dayText, decimal, percent, signed } from "../page/format.ts";
import { fill, h } from "../page/dom.ts";
import type { View } from "../page/view.ts";
import { kFigures, type Term } from "../text/terms.ts";
import { frameOf, term, type Section } from "./section.ts";

type Tone = "gain" | "loss" | "flat";

function tile(view: View, figure: Term, value: string, tone: Tone = "flat", note = "", reason = ""): HTMLElement {
    return h(
        "div",
        { class: "tile" },
        h("dt", {}, term(view.label(figure), view.meaning(figure))),
        h("dd", { class: tone, title: reason === "" ? null : reason }, value, note === "" ? null : h("small", {}, note)),
    );
}

function mainTiles(view: View, figures: RangeFigures): HTMLElement[] {
    const { drawdown } = figures;
    return [
        tile(view, kFigures.openingEquity, view.money(figures.openingEquity)),
        tile(view, kFigures.closingEquity, view.money(figures.closingEquity)),
        tile(view, kFigures.pl, view.signedMoney(figures.pl), view.toneOf(figures.pl)),
        tile(view, kFigures.return, signed(percent(figures.return), figures.return), view.toneOf(figures.return)),
        tile(
            view,
            kFigures.drawdown,
            percent(drawdown === null ? null : -drawdown.depth),
            view.toneOf(drawdown === null ? null : -drawdown.depth),
            drawdown === null ? "" : `${dayText(drawdown.peak)} → ${dayText(drawdown.valley)}`,
        ),
        tile(view, kFigures.highestMarginUse, percent(figures.highestMarginUse), "flat", figures.highestMarginDay === null ? "" : dayText(figures.highestMarginDay)),
        tile(view, kFigures.cashFlow, view.signedMoney(figures.cashFlow)),
        tile(view, kFigures.fees, view.money(figures.fees)),
        tile(view, kFigures.winDays, `${figures.winDays} / ${figures.lossDays}`),
    ];
}

const kRatios = ["annualReturn", "volatility", "sharpe", "sortino", "calmar", "moneyWeightedReturn"] as const;
const kRates: ReadonlySet<string> = new Set(["annualReturn", "volatility", "moneyWeightedReturn"]);

/** Figures that only the whole report has: they are the analysis's own. */
function ratioTiles(view: View): HTMLElement[] {
    const { values, reasons } = view.state.account.figures;
    return kRatios.map((name) => {
        const value = values.get(`ratios.${name}`) ?? null;
        const text = kRates.has(name) ? percent(value) : decimal(value);
        return tile(view, kFigures[name], text, "flat", "", value === null ? (reasons.get(`ratios.${name}`) ?? "") : "");
    });
}

export function overviewSection(): Section {
    const line = h("p", { class: "range-line", "aria-live": "polite" });
    const tiles = h("dl", { class: "tiles" });
    return {
        id: "overview",
        title: "overview",
        element: frameOf("overview", line, tiles),
        isThere: () => true,
        show(view) {
            const { account, range } = view.state;
            const { days } = account;
            if (days.count === 0) {
                fill(line, view.text("noDays"));
                fill(tiles);
                return;
            }
            const whole = isWhole(range, days);
            const span = `${dayText(days.days[range.from])} ${view.text("to")} ${dayText(days.days[range.to])}`;
            const count = `${range.to - range.from + 1} ${view.text("days")}`;
            fill(line, h("b", {}, span), ` · ${count} · ${view.text(whole ? "wholeReport" : "shownRange")}`);
            if (view.state.hidesAmounts) line.append(` · ${view.text("amountsAreShares")}`);
            fill(tiles, ...mainTiles(view, figuresOf(days, range)), ...(whole ? ratioTiles(view) : []));
        },
    };
}
