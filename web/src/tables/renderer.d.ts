// What the library lets a renderer of rows do, which its types leave out.
import "tabulator-tables";

declare module "tabulator-tables" {
    interface RendererRow {
        type: string;
        getElement(): HTMLElement;
        initialize(force: boolean, isInFragment: boolean): void;
        rendered(): void;
    }

    class Renderer {
        verticalFillMode: string;
        readonly elementVertical: HTMLElement;
        readonly tableElement: HTMLElement;
        readonly table: {
            rowManager: { scrollLeft: number; scrollHorizontal(left: number): void; tableEmpty(): void };
            columnManager: { getWidth(): number };
        };
        rows(): RendererRow[];
        styleRow(row: RendererRow, index: number): void;
        clearRows(): void;
        renderRows(): void;
        rerenderRows(callback?: () => void): void;
        scrollRows(top: number, isUp: boolean): void;
        scrollToRow(row: RendererRow): void;
        scrollToRowNearestTop(row: RendererRow): boolean;
        visibleRows(isWithBuffer: boolean): RendererRow[];
    }
}
