// What answers clicks on the standalone page. The page's policy lets this script run, by its hash, and no handler in an
// attribute. So it is the same on every page: what differs stands in attributes, and a cell makes none.
//
// Many rows stand packed in bodies of their table (packed_rows.h). Their section starts folded; unfolding it shows those
// bodies that no line is for, and each line shows the bodies behind it, and takes their rows away again.
"use strict";

{
    const pictures = document.currentScript.dataset;
    const packed = new Map(); // the base64 of each body, its rows shown or not

    /// The element at `event`, or around it, that `selector` names; null if there is none.
    const elementAt = ({ target }, selector) => {
        const element = target instanceof Element ? target : target.parentElement;
        return element && element.closest(selector);
    };

    const unpack = (base64) => {
        const bytes = Uint8Array.from(atob(base64), (byte) => byte.charCodeAt(0));
        const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("deflate"));
        return new Response(stream).text();
    };

    const bodiesBehind = (first) => {
        const bodies = [];
        for (let next = first.nextElementSibling; packed.has(next); next = next.nextElementSibling) bodies.push(next);
        return bodies;
    };

    /// Shows what is packed behind a body; where it can't be unpacked that is said in its place. `isWanted`: it may be
    /// folded again meanwhile.
    const showBehind = async (first, isWanted) => {
        for (const body of bodiesBehind(first)) {
            if (body.rows.length > 0) continue;
            let rows;
            try {
                rows = await unpack(packed.get(body));
            } catch (error) {
                rows = body.closest("table").querySelector("[data-unpackable]").innerHTML;
            }
            if (!isWanted()) return;
            body.innerHTML = rows;
            await new Promise((goOn) => setTimeout(goOn)); // what is there is shown, and clicks are answered
        }
    };

    const mark = (line, isShown) => {
        line.setAttribute("aria-expanded", isShown);
        const name = line.firstElementChild; // behind an arrow
        name.textContent = (isShown ? "\u25be" : "\u25b8") + name.textContent.slice(1);
    };

    const unfoldLine = (line) => {
        const isShown = line.getAttribute("aria-expanded") === "false";
        const body = line.closest("tbody");
        mark(line, isShown);
        if (isShown) showBehind(body, () => line.getAttribute("aria-expanded") === "true");
        else bodiesBehind(body).forEach((rows) => rows.replaceChildren());
    };

    /// A table whose columns are as wide as its first row says stays one.
    const show = (part) => {
        const note = part.querySelector("[data-unpackable]");
        part.style.display = note ? "" : "block";
        if (note) showBehind(note, () => true);
    };

    /// The button's own picture is the state.
    const fold = ({ button, parts }) => {
        const image = document.getElementById(button);
        const isShown = image.src.includes("BillShrink");
        image.src = isShown ? pictures.expand : pictures.shrink;
        for (const id of parts.split(" ")) {
            const part = document.getElementById(id);
            if (!part) continue;
            if (isShown) part.style.display = "none";
            else show(part);
        }
    };

    const foldPacked = () => {
        for (const body of document.querySelectorAll("[data-packed]")) {
            packed.set(body, body.textContent);
            body.replaceChildren();
        }
        for (const note of document.querySelectorAll("[data-unpackable]")) {
            note.style.display = "none";
            fold(document.querySelector(`[data-parts~="${note.closest("table").id}"]`).dataset);
        }
    };

    document.addEventListener("click", (event) => {
        const title = elementAt(event, "[data-parts]");
        if (title) fold(title.dataset);
        const line = elementAt(event, "[data-unfolds]");
        if (line) unfoldLine(line);
        if (elementAt(event, 'a[href="#"]')) event.preventDefault();
    });
    document.addEventListener("keydown", (event) => {
        const line = elementAt(event, "[data-unfolds]");
        if (!line || !["Enter", " "].includes(event.key)) return;
        event.preventDefault();
        unfoldLine(line);
    });
    document.addEventListener("selectstart", (event) => {
        if (elementAt(event, "[data-unmarkable]")) event.preventDefault();
    });
    if (typeof DecompressionStream === "function") document.addEventListener("DOMContentLoaded", foldPacked);
}
