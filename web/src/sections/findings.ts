// What is wrong or doubtful in the statements, errors first, with what to do.
import { textIn, type Row } from "../data/table.ts";
import { dayText } from "../page/format.ts";
import { fill, h } from "../page/dom.ts";
import type { View } from "../page/view.ts";
import { kFindings, phraseOf } from "../text/findings.ts";
import { pick } from "../text/texts.ts";
import { frameOf, type Section } from "./section.ts";

type Severity = "error" | "warning" | "note";
const kSeverities: readonly Severity[] = ["error", "warning", "note"];
const kShownAtOnce = 5; // of errors and warnings; notes are shown when they are asked for

function details(view: View, row: Row): string {
    if (view.state.hidesAmounts) return "";
    const parts = [textIn(row, "file"), textIn(row, "row") === "" ? "" : `:${textIn(row, "row")}`];
    const place = parts.join("");
    const inLanguage = (text: string): string => (view.state.language === "zh" ? phraseOf(text) : text);
    const expected = inLanguage(textIn(row, "expected"));
    const found = inLanguage(textIn(row, "found"));
    const both = expected === "" ? "" : `${view.text("expected")} ${expected} · ${view.text("found")} ${found}`;
    return [place, textIn(row, "section"), both].filter((part) => part !== "").join(" · ");
}

function itemOf(view: View, row: Row): HTMLElement {
    const severity = textIn(row, "severity") as Severity;
    const known = kFindings[textIn(row, "code")];
    const { language } = view.state;
    const text = textIn(row, "text");
    const what = known === undefined ? text : pick(language, known.what);
    const isEnglish = language === "en" && text !== "" && !view.state.hidesAmounts;
    return h(
        "li",
        { class: severity },
        h("span", { class: "badge" }, view.text(severity)),
        h("span", { class: "finding" }, h("time", {}, dayText(textIn(row, "day"))), " ", h("b", {}, isEnglish ? text : what), " ", h("span", { class: "soft" }, details(view, row))),
        known === undefined ? null : h("span", { class: "todo" }, `${view.text("whatToDo")}: ${pick(language, known.todo)}`),
    );
}

export function findingsSection(): Section {
    const summary = h("p", { class: "findings-summary" });
    const list = h("ul", { class: "findings" });
    const more = h("div", {});
    let showsAll = false;
    return {
        id: "findings",
        title: "findings",
        element: frameOf("findings", summary, list, more),
        isThere: () => true,
        async show(view, changes) {
            if (changes.has("account")) showsAll = false;
            else if (!changes.has("look")) return;
            const rows = (await view.state.account.table("findings")).rowsOf();
            const counts = kSeverities.map((severity) => rows.filter((row) => row.severity === severity).length);
            const worst = kSeverities.find((_, i) => counts[i] > 0);
            summary.className = `findings-summary ${worst ?? "fine"}`;
            const [e, w, n] = counts;
            fill(summary, rows.length === 0 ? view.text("noFindings") : view.text("findingsCount", { e, w, n }));
            const draw = (): void => {
                const sorted = kSeverities.flatMap((severity) => rows.filter((row) => row.severity === severity));
                const grave = sorted.filter((row) => row.severity !== "note");
                const shown = showsAll ? sorted : grave.slice(0, kShownAtOnce);
                fill(list, ...shown.map((row) => itemOf(view, row)));
                list.hidden = shown.length === 0;
                const isMore = shown.length < rows.length;
                const button = h("button", { type: "button", click: () => ((showsAll = true), draw()) }, `${view.text("showAll")} (${rows.length})`);
                fill(more, isMore ? button : null);
            };
            draw();
        },
    };
}

