// Opens a page, and tells the reader if what it holds is damaged.
import { textOf } from "../text/texts.ts";
import { h } from "./dom.ts";

function tellDamage(error: unknown): void {
    const why = error instanceof Error ? error.message : String(error);
    const lines = (["zh", "en"] as const).map((language) => h("p", { role: "alert" }, textOf(language, "damaged", { why })));
    document.body.prepend(...lines);
}

export function openPage(start: () => Promise<void>): void {
    void start().catch(tellDamage);
}
