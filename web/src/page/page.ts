// The page: its head with what can be chosen, its sections, and its foot.
import { currenciesSection } from "../sections/currencies.ts";
import { calendarSection } from "../sections/calendar.ts";
import { courseSection } from "../sections/course.ts";
import { drawdownsSection } from "../sections/drawdowns.ts";
import { findingsSection } from "../sections/findings.ts";
import { marginSection } from "../sections/margin.ts";
import { openSection } from "../sections/open.ts";
import { overviewSection } from "../sections/overview.ts";
import { periodsSection } from "../sections/periods.ts";
import { productsSection } from "../sections/products.ts";
import type { Section } from "../sections/section.ts";
import { tablesSection } from "../sections/tables.ts";
import { fill, h } from "./dom.ts";
import { installMeaningTip } from "./meaning_tip.ts";
import { listenToKeys, showRangeBar } from "./range_bar.ts";
import { applyLook, footLines, settings } from "./settings.ts";
import type { Change } from "./state.ts";
import type { View } from "./view.ts";

const kAll: ReadonlySet<Change> = new Set(["account", "range", "filter", "look"]);

function accountChoice(view: View): HTMLElement {
    const { accounts, account } = view.state;
    const name = h("b", { class: "account-name" }, view.accountName());
    if (accounts.length === 1) return h("span", {}, `${view.text("account")} `, name);
    const choose = (event: Event): void => void view.state.choose(accounts[Number((event.target as HTMLSelectElement).value)]);
    const options = accounts.map((each, at) => h("option", { value: at, selected: each === account }, view.accountName(each)));
    return h("label", {}, `${view.text("account")} `, h("select", { change: choose }, ...options));
}

function showHead(head: HTMLElement, view: View, sections: readonly Section[]): void {
    const links = sections.filter((section) => section.isThere(view)).map((section) => h("a", { href: `#${section.id}` }, view.text(section.title)));
    fill(
        head,
        h("div", { class: "head-line" }, h("h1", {}, view.text("title")), accountChoice(view), settings((key) => view.text(key), view.state)),
        h("nav", { "aria-label": view.text("sections") }, ...links),
    );
}

/** Lets the browser paint and answer; in a page that nobody sees, which isn't painted, for a moment only. */
function breath(): Promise<void> {
    return new Promise((resolve) => {
        const late = setTimeout(resolve, 100);
        requestAnimationFrame(() => setTimeout(() => (clearTimeout(late), resolve())));
    });
}

/** Shows sections anew one after the other, those above first, so that what is looked at is there before the rest. */
class Shower {
    readonly #view: View;
    readonly #due: Map<Section, Set<Change>>;
    #isAtWork = false;

    constructor(view: View, sections: readonly Section[]) {
        this.#view = view;
        this.#due = new Map(sections.map((section) => [section, new Set<Change>()]));
    }

    add(changes: ReadonlySet<Change>): void {
        for (const due of this.#due.values()) for (const change of changes) due.add(change);
        if (!this.#isAtWork) void this.#work();
    }

    /** Without letting anything happen in between, as printing wants it. */
    showAll(): void {
        for (const section of this.#due.keys()) void this.#show(section, kAll);
    }

    async #work(): Promise<void> {
        this.#setBusy(true);
        for (;;) {
            const next = [...this.#due].find(([, due]) => due.size > 0);
            if (next === undefined) break;
            const [section, due] = next;
            this.#due.set(section, new Set());
            await this.#show(section, due);
            if (section.id === "course" || section.element.getBoundingClientRect().top > innerHeight) await breath();
        }
        this.#setBusy(false);
    }

    #setBusy(isBusy: boolean): void {
        this.#isAtWork = isBusy;
        document.querySelector("main")?.setAttribute("aria-busy", String(isBusy));
    }

    async #show(section: Section, changes: ReadonlySet<Change>): Promise<void> {
        const view = this.#view;
        section.element.hidden = !section.isThere(view);
        section.element.querySelector("h2")!.textContent = view.text(section.title);
        if (section.element.hidden) return;
        try {
            await section.show(view, changes);
            performance.mark(section.id); // for whoever measures
        } catch (error) {
            const why = error instanceof Error ? error.message : String(error);
            section.element.append(h("p", { role: "alert" }, view.text("damaged", { why })));
        }
    }
}

function listenToPrint(view: View, shower: Shower): void {
    addEventListener("beforeprint", () => {
        document.documentElement.classList.add("printing");
        shower.showAll();
    });
    addEventListener("afterprint", () => {
        document.documentElement.classList.remove("printing");
        shower.showAll();
    });
    matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => view.state.repaint());
}

export async function showPage(view: View): Promise<void> {
    const { state } = view;
    const head = h("header", {});
    const bar = h("div", { class: "range-bar", role: "group" });
    const foot = h("footer", {});
    const sections = [
        overviewSection(),
        findingsSection(),
        courseSection(),
        periodsSection(),
        calendarSection(),
        drawdownsSection(),
        productsSection(),
        marginSection(),
        openSection(),
        currenciesSection(),
        tablesSection(),
    ];
    const skip = h("a", { class: "skip", href: "#overview" });
    for (const section of sections) section.element.hidden = true; // until it is shown
    const main = h("main", {}, bar, ...sections.map((section) => section.element));
    document.querySelector("main.waiting")!.replaceWith(skip, head, main, foot); // beside the blocks of data
    installMeaningTip();

    const shower = new Shower(view, sections);
    const show = (changes: ReadonlySet<Change>): void => {
        applyLook(state);
        document.title = `${view.accountName()} · ${view.text("title")}`;
        skip.textContent = view.text("skip");
        if (changes.has("account") || changes.has("look")) {
            showHead(head, view, sections);
            fill(foot, ...footLines((key, values) => view.text(key, values), state.program));
        }
        bar.setAttribute("aria-label", view.text("range"));
        showRangeBar(bar, view);
        shower.add(changes);
    };
    state.listen(show);
    listenToKeys(view);
    listenToPrint(view, shower);
    show(kAll);
}
