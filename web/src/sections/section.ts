// A section of the page: a heading, what stands below it, and what it does when the reader chooses something.
import { h } from "../page/dom.ts";
import type { Change } from "../page/state.ts";
import type { View } from "../page/view.ts";
import type { TextKey } from "../text/texts.ts";

export interface Section {
    readonly id: string;
    readonly title: TextKey;
    readonly element: HTMLElement;
    /** Whether the account has anything for it. */
    isThere(view: View): boolean;
    /** Shows it anew. Runs only while the section is there. */
    show(view: View, changes: ReadonlySet<Change>): void | Promise<void>;
}

/** The frame of a section; its heading is set by whoever shows it. */
export function frameOf(id: string, ...children: Node[]): HTMLElement {
    return h("section", { id, "aria-labelledby": `${id}-title` }, h("h2", { id: `${id}-title` }), ...children);
}

/** A group of buttons of which one is pressed. */
export function choice<Key extends string>(
    label: string,
    choices: readonly [key: Key, text: string][],
    chosen: Key,
    onChoice: (key: Key) => void,
): HTMLElement {
    return h(
        "div",
        { class: "choice", role: "group", "aria-label": label },
        ...choices.map(([key, text]) =>
            h("button", { type: "button", "aria-pressed": String(key === chosen), click: () => onChoice(key) }, text),
        ),
    );
}

/** A name whose definition shows when it is pointed at or reached by keys. */
export function term(label: string, meaning: string): HTMLElement {
    if (meaning === "") return h("span", {}, label);
    return h("span", { class: "term", tabindex: 0, "data-meaning": meaning, "aria-description": meaning }, label);
}
