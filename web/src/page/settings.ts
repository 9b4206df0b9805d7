// What the reader may choose of how a page looks, and what stands at its foot: the same on every page.
import type { Language, TextKey } from "../text/texts.ts";
import { h } from "./dom.ts";

export interface Look {
    language: Language;
    isRedGain: boolean;
    hidesAmounts: boolean;
}

export interface LookState extends Look {
    setLook(look: Partial<Look>): void;
}

type TextOf = (key: TextKey, values?: Record<string, string>) => string;

export function settings(text: TextOf, state: LookState): HTMLElement {
    const button = (label: string, isPressed: boolean | null, click: () => void): HTMLElement =>
        h("button", { type: "button", "aria-pressed": isPressed === null ? null : String(isPressed), click }, label);
    return h(
        "div",
        { class: "settings", role: "group", "aria-label": text("settings") },
        button(text("language"), null, () => state.setLook({ language: state.language === "zh" ? "en" : "zh" })),
        button(text(state.isRedGain ? "colours" : "coloursSwapped"), null, () => state.setLook({ isRedGain: !state.isRedGain })),
        button(text(state.hidesAmounts ? "showAmounts" : "hideAmounts"), state.hidesAmounts, () => state.setLook({ hidesAmounts: !state.hidesAmounts })),
        button(text("print"), null, () => print()),
    );
}

/** Language and colours, which the style sheet goes by. */
export function applyLook({ language, isRedGain }: Look): void {
    document.documentElement.lang = language === "zh" ? "zh-CN" : "en";
    document.documentElement.dataset.gain = isRedGain ? "red" : "green";
}

/** Who made the page, and the texts of the licences, which stand in the page in a block of their own. */
export function footLines(text: TextOf, program: string): HTMLElement[] {
    const licences = document.getElementById("licences")?.textContent ?? "";
    return [
        h("p", {}, text("madeBy", { program })),
        h("details", {}, h("summary", {}, text("licences")), h("pre", { tabindex: 0 }, licences.trim())),
    ];
}
