// Unpacks the viewer and runs it. What the page's policy lets run is told by hashes: this script and the viewer.
import { inflated } from "./data/inflate.ts";

async function start(): Promise<void> {
    const script = document.createElement("script");
    script.textContent = await inflated(document.getElementById("viewer")!).text();
    document.head.append(script);
}

if (typeof DecompressionStream === "undefined") {
    document.getElementById("waiting")!.textContent =
        "本页需要较新的浏览器（Chrome 80、Edge 80、Firefox 113、Safari 16.4 或更新）。This page needs a newer browser.";
} else {
    void start();
}
