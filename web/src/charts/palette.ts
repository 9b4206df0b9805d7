// Colours of charts: those of the page's style, which follow the system's light or dark.

export interface Palette {
    ink: string;
    soft: string;
    line: string;
    paper: string;
    accent: string;
    gain: string;
    loss: string;
    under: string;
    series: string[];
}

export function paletteOf(): Palette {
    const style = getComputedStyle(document.documentElement);
    const colour = (name: string): string => style.getPropertyValue(`--${name}`).trim();
    return {
        ink: colour("ink"),
        soft: colour("soft"),
        line: colour("line"),
        paper: colour("paper"),
        accent: colour("accent"),
        gain: colour("gain"),
        loss: colour("loss"),
        under: colour("under"),
        series: Array.from({ length: 10 }, (_, i) => colour(`series-${i}`)),
    };
}
