// The index: its head, what the batch has come to, and the table of its accounts.
import { fill, h } from "../page/dom.ts";
import { dayText, plain } from "../page/format.ts";
import { installMeaningTip } from "../page/meaning_tip.ts";
import { applyLook, footLines, settings } from "../page/settings.ts";
import { frameOf } from "../sections/section.ts";
import { LargeTable, type Conditions } from "../tables/large_table.ts";
import { lookOfIndex } from "./cells.ts";
import { Summary } from "./summary.ts";
import type { IndexView } from "./view.ts";

function showHead(head: HTMLElement, view: IndexView): void {
    const { day, program } = view.index.head;
    const facts = [
        ...(day === "" ? [] : [view.text("runOn", { day: dayText(day) })]),
        view.text("accountsCount", { n: plain(view.index.table.rows) }),
        program,
    ];
    const line = h("span", { class: "soft" }, facts.join(" · "));
    fill(head, h("div", { class: "head-line" }, h("h1", {}, view.text("indexTitle")), line, settings((key) => view.text(key), view)));
}

/** The table, made anew where its columns look otherwise. */
class AccountList {
    readonly element = frameOf("list");
    readonly #place = h("div", {});
    #table: LargeTable | null = null;

    constructor() {
        this.element.append(this.#place);
    }

    async show(view: IndexView, conditions?: Conditions): Promise<void> {
        this.element.querySelector("h2")!.textContent = view.text("list");
        this.#table?.destroy();
        if (view.index.table.rows === 0) return fill(this.#place, h("p", { class: "hint" }, view.text("noRows")));
        const table = new LargeTable(lookOfIndex(view), "accounts", view.index.table);
        this.#table = table;
        fill(this.#place, table.element);
        table.show(() => true, conditions);
        await table.built;
    }

    conditions(): Conditions | undefined {
        return this.#table?.conditions();
    }

    filterBy(field: string, condition: string): void {
        this.#table?.filterBy(field, condition);
    }
}

export async function showIndex(view: IndexView): Promise<void> {
    const head = h("header", {});
    const foot = h("footer", {});
    const list = new AccountList();
    const summary = new Summary(view, (field, condition) => list.filterBy(field, condition));
    const skip = h("a", { class: "skip", href: "#list" });
    const main = h("main", {}, summary.element, list.element);
    document.querySelector("main.waiting")!.replaceWith(skip, head, main, foot);
    installMeaningTip();

    const showAll = async (): Promise<void> => {
        applyLook(view);
        document.title = view.text("indexTitle");
        skip.textContent = view.text("skip");
        showHead(head, view);
        summary.show();
        fill(foot, ...footLines((key, values) => view.text(key, values), view.index.head.program));
        main.setAttribute("aria-busy", "true");
        await list.show(view);
        main.setAttribute("aria-busy", "false");
        performance.mark("accounts"); // for whoever measures
    };
    view.listen((change) => {
        if (change === "limit") {
            summary.showLimit();
            void list.show(view, list.conditions());
        } else if (change === "colours") {
            applyLook(view);
            showHead(head, view);
        } else {
            void showAll();
        }
    });
    await showAll();
}
