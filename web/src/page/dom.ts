// Elements, made in one expression. What is shown goes in as text: no string becomes markup.

type Child = Node | string | null | false;
type Attributes = Record<string, string | number | boolean | null | ((event: Event) => void)>;

/** An element with its attributes and children. A function is a listener; true is an attribute without value. */
export function h<Tag extends keyof HTMLElementTagNameMap>(
    tag: Tag,
    attributes: Attributes = {},
    ...children: Child[]
): HTMLElementTagNameMap[Tag] {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes)) {
        if (typeof value === "function") element.addEventListener(name, value);
        else if (value !== null && value !== false) element.setAttribute(name, value === true ? "" : String(value));
    }
    element.append(...children.filter((child) => child !== null && child !== false));
    return element;
}

/** Gives `element` other children. */
export function fill(element: Element, ...children: Child[]): void {
    element.replaceChildren(...children.filter((child) => child !== null && child !== false));
}
