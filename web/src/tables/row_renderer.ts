// The rows of a large table that are seen, and a few around them. All rows are equally high, so nothing has to be measured: the
// library's own renderer lays a table out twice for each jump and keeps two windows of rows more, which took 150 to 500 ms.
import { Renderer, type RendererRow } from "tabulator-tables";

/** As the style sheet has it. */
export const kRowHeight = 27;
const kRowsAround = 6;
/** The widths of columns go by those rows that are there first. */
const kFirstRows = 45;

export class RowRenderer extends Renderer {
    override verticalFillMode = "fill";
    #first = 0; // of the rows that are in the page
    #end = 0; // behind the last of them

    override clearRows(): void {
        const { style } = this.tableElement;
        this.tableElement.replaceChildren();
        style.padding = style.minWidth = style.minHeight = style.display = style.visibility = "";
        this.#first = this.#end = 0;
    }

    override renderRows(): void {
        this.#put(0, Math.max(kFirstRows, this.#windowAt(0)[1]));
    }

    override rerenderRows(callback?: () => void): void {
        const { scrollTop } = this.elementVertical;
        const left = this.table.rowManager.scrollLeft;
        this.clearRows();
        callback?.();
        const { length } = this.rows();
        if (length === 0) return this.table.rowManager.tableEmpty();
        const most = Math.max(0, length * kRowHeight - this.elementVertical.clientHeight);
        this.#put(...this.#windowAt(Math.min(scrollTop, most)));
        this.elementVertical.scrollTop = scrollTop;
        this.table.rowManager.scrollHorizontal(left);
    }

    override scrollRows(top: number): void {
        const [first, end] = this.#windowAt(top);
        if (first < this.#first || end > this.#end || this.#end - this.#first > 2 * (end - first)) this.#put(first, end);
    }

    override scrollToRow(row: RendererRow): void {
        const at = this.rows().indexOf(row);
        if (at < 0) return;
        this.#put(...this.#windowAt(at * kRowHeight));
        this.elementVertical.scrollTop = at * kRowHeight;
    }

    override scrollToRowNearestTop(row: RendererRow): boolean {
        const at = this.rows().indexOf(row);
        return Math.abs(at - this.#first) <= Math.abs(at - this.#end);
    }

    override visibleRows(): RendererRow[] {
        return this.rows().slice(this.#first, this.#end);
    }

    /** The first row for a place of the bar, and the one behind the last. */
    #windowAt(top: number): [number, number] {
        const { length } = this.rows();
        const height = this.elementVertical.clientHeight;
        const first = Math.floor(top / kRowHeight) - kRowsAround;
        const end = Math.ceil((top + height) / kRowHeight) + kRowsAround;
        return [Math.max(0, Math.min(first, length)), Math.min(end, length)];
    }

    #put(first: number, wantedEnd: number): void {
        const rows = this.rows();
        const end = Math.min(wantedEnd, rows.length);
        for (let at = this.#first; at < Math.min(this.#end, rows.length); ++at) {
            if (at < first || at >= end) rows[at].getElement().remove();
        }
        const [keptFirst, keptEnd] = [Math.max(first, this.#first), Math.min(end, this.#end)];
        if (keptFirst >= keptEnd) {
            this.tableElement.append(this.#made(rows, first, end));
        } else {
            this.tableElement.prepend(this.#made(rows, first, keptFirst));
            this.tableElement.append(this.#made(rows, keptEnd, end));
        }
        [this.#first, this.#end] = [first, end];
        const { style } = this.tableElement;
        style.paddingTop = `${first * kRowHeight}px`;
        style.paddingBottom = `${(rows.length - end) * kRowHeight}px`;
        const isOfGroups = rows.slice(first, end).every(({ type }) => type === "group");
        style.minWidth = isOfGroups ? `${this.table.columnManager.getWidth()}px` : "";
    }

    #made(rows: readonly RendererRow[], first: number, end: number): DocumentFragment {
        const made = document.createDocumentFragment();
        for (let at = first; at < end; ++at) {
            this.styleRow(rows[at], at);
            rows[at].initialize(false, true);
            made.append(rows[at].getElement());
            rows[at].rendered();
        }
        return made;
    }
}
