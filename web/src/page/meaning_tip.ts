// The definition of what is pointed at or reached by keys.
import { h } from "./dom.ts";

export function installMeaningTip(): void {
    const box = h("div", { class: "meaning", role: "tooltip", hidden: true });
    (document.querySelector("main") ?? document.body).append(box);
    const show = (event: Event): void => {
        const term = (event.target as Element).closest?.("[data-meaning]");
        if (term === null || term === undefined) return;
        box.textContent = term.getAttribute("data-meaning");
        box.hidden = false;
        const at = term.getBoundingClientRect();
        const { offsetWidth, offsetHeight } = box;
        box.style.left = `${Math.max(8, Math.min(at.left, innerWidth - offsetWidth - 8))}px`;
        const below = at.bottom + 6;
        const above = Math.max(8, at.top - offsetHeight - 6);
        box.style.top = `${below + offsetHeight > innerHeight ? above : below}px`;
    };
    const hide = (): void => void (box.hidden = true);
    document.addEventListener("mouseover", (event) => ((event.target as Element).closest?.("[data-meaning]") === null ? hide() : show(event)));
    document.addEventListener("focusin", show);
    document.addEventListener("focusout", hide);
    document.addEventListener("scroll", hide, { passive: true });
    document.addEventListener("keydown", (event) => event.key === "Escape" && hide());
}
