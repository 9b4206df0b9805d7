// What stands above the table: how many accounts have which status, totals, and who is above the limit.
import { fill, h } from "../page/dom.ts";
import { plain } from "../page/format.ts";
import { frameOf } from "../sections/section.ts";
import { showSmallTable, tableHolder, type SmallColumn } from "../sections/small_table.ts";
import { limitOf, type KindTotals } from "./index_data.ts";
import type { IndexView } from "./view.ts";

/** Shows those rows of the table alone. */
export type Filter = (field: string, condition: string) => void;

function toneOf(value: number | null): string {
    return value === null || value === 0 ? "" : value > 0 ? "gain" : "loss";
}

function totalsColumns(view: IndexView): SmallColumn<KindTotals>[] {
    return [
        { label: view.columnLabel("kind"), value: ({ kind }) => kind, text: ({ kind }) => view.codeText("kind", kind) },
        { label: view.text("accounts"), value: ({ accounts }) => accounts, text: ({ accounts }) => plain(accounts) },
        { label: view.text("withEquity"), value: ({ withEquity }) => withEquity, text: ({ withEquity }) => plain(withEquity) },
        { label: view.columnLabel("equity"), value: ({ equity }) => equity, text: ({ equity }) => view.money(equity) },
        { label: view.columnLabel("pl"), value: ({ pl }) => pl, text: ({ pl }) => view.money(pl), tone: ({ pl }) => toneOf(pl) },
    ];
}

export class Summary {
    readonly element = frameOf("summary");
    readonly #view: IndexView;
    readonly #filter: Filter;
    readonly #statuses = h("div", { class: "statuses", role: "group" });
    readonly #totals = tableHolder();
    readonly #hint = h("p", { class: "hint" });
    readonly #limitLabel = h("span");
    readonly #limit = h("input", { type: "text", inputmode: "decimal", size: 5, class: "limit", change: () => this.#takeLimit() });
    readonly #above = h("button", { type: "button", class: "above", click: () => this.#showAbove() });
    readonly #wrong = h("span", { role: "alert", class: "error-text" });

    constructor(view: IndexView, filter: Filter) {
        this.#view = view;
        this.#filter = filter;
        const limit = h("label", {}, this.#limitLabel, " ", this.#limit, " %");
        this.element.append(this.#statuses, h("div", { class: "limit-line" }, limit, this.#above, this.#wrong), this.#totals, this.#hint);
    }

    show(): void {
        const view = this.#view;
        this.element.querySelector("h2")!.textContent = view.text("summary");
        this.#showStatuses();
        this.#totals.setAttribute("aria-label", view.text("totals"));
        const totals = view.index.totals();
        showSmallTable(this.#totals, { label: view.text("totals"), columns: totalsColumns(view), rows: totals });
        fill(this.#hint, totals.length > 1 ? view.text("kindTotals") : null);
        this.showLimit();
    }

    showLimit(): void {
        const view = this.#view;
        const count = view.index.countAbove(view.limit);
        fill(this.#limitLabel, view.text("riskLimit"));
        this.#limit.value = view.limitText();
        fill(this.#above, view.text("aboveLimit", { limit: view.limitText(), n: plain(count) }));
        this.#above.classList.toggle("none", count === 0);
        fill(this.#wrong);
    }

    #showStatuses(): void {
        const view = this.#view;
        const button = (field: string, text: string, code: string): HTMLElement =>
            h("button", { type: "button", class: `status-${code}`, click: () => this.#filter(field, code === "all" ? "" : view.codeText(field, code)) }, text);
        this.#statuses.setAttribute("aria-label", view.text("byStatus"));
        fill(
            this.#statuses,
            button("status", view.text("allStatuses", { n: plain(view.index.table.rows) }), "all"),
            ...view.index.statusCounts().map(({ status, count }) =>
                button("status", view.text("statusOf", { status: view.codeText("status", status), n: plain(count) }), status),
            ),
        );
    }

    #showAbove(): void {
        this.#filter("margin_use", `>${this.#view.limitText()}`);
    }

    #takeLimit(): void {
        const limit = limitOf(this.#limit.value);
        if (limit === null) fill(this.#wrong, this.#view.text("noLimit"));
        else if (limit === this.#view.limit) this.showLimit();
        else this.#view.setLimit(limit);
    }
}
