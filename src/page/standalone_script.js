// What answers clicks on the standalone page. The page's policy lets this script run, by its hash, and no handler in an
// attribute. So it is the same on every page: what differs stands in attributes, and a cell makes none.
"use strict";

{
    const pictures = document.currentScript.dataset;

    /// The element at `event`, or around it, that `selector` names; null if there is none.
    const elementAt = ({ target }, selector) => {
        const element = target instanceof Element ? target : target.parentElement;
        return element && element.closest(selector);
    };

    /// The button's own picture is the state.
    const fold = ({ button, parts }) => {
        const image = document.getElementById(button);
        const isShown = image.src.includes("BillShrink");
        image.src = isShown ? pictures.expand : pictures.shrink;
        for (const id of parts.split(" ")) {
            const part = document.getElementById(id);
            if (part) part.style.display = isShown ? "none" : "block";
        }
    };

    document.addEventListener("click", (event) => {
        const title = elementAt(event, "[data-parts]");
        if (title) fold(title.dataset);
        if (elementAt(event, 'a[href="#"]')) event.preventDefault();
    });
    document.addEventListener("selectstart", (event) => {
        if (elementAt(event, "[data-unmarkable]")) event.preventDefault();
    });
}
