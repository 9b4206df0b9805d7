// Rows as a text for spreadsheets.
import type { Cell } from "../data/table.ts";

/** A text that begins with what a spreadsheet takes for a formula is kept from being one. */
function fieldOf(cell: Cell, separator: string): string {
    if (cell === null) return "";
    if (typeof cell === "number") return String(cell);
    const text = /^[=+\-@\t\r]/.test(cell) ? `'${cell}` : cell;
    return text.includes(separator) || /["\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text;
}

/** Lines of fields with `separator` between them, a head line first. */
export function linesOf(head: readonly string[], rows: readonly (readonly Cell[])[], separator: string): string {
    return [head, ...rows].map((row) => row.map((cell) => fieldOf(cell, separator)).join(separator)).join("\r\n") + "\r\n";
}

/** Offers `text` as a file, with the mark by which spreadsheets know UTF-8. */
export function save(name: string, text: string): void {
    const link = document.createElement("a");
    link.href = URL.createObjectURL(new Blob(["\ufeff", text], { type: "text/csv;charset=utf-8" }));
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
}

/** Whether the clipboard took it: some browsers ask, or don't let a file from disk. */
export async function copyText(text: string): Promise<boolean> {
    try {
        await navigator.clipboard.writeText(text);
        return true;
    } catch {
        return false;
    }
}
