// Many bars, most of which cover each other. They are taken from front to back. A bar takes one row of cells,
// at its top, and of that only the cells that nothing before it has taken; at the end every cell is drawn as
// high as the bars of its row are. So a bar that is hidden costs next to nothing, however long it is.
//
//     row   . . . 2 2 2 1 1 1 . .      bar 1 first, then 2 from the left as far as 1
//                 [from      to)       taken without a gap by the bars of this plot and block
import type { Columns, Heights, Palette, Sheet } from './bars';
import type { Raster } from './raster';

const ABOVE = 64; // rows above the sight, in which bars may begin that reach into it
const BELOW = 1; // what begins below the sight
const NARROW = 2; // pixels

// The ink where the cell is free.
const unlessTaken = (cell: number, ink: number): number => cell | (ink & ((cell - 1) >> 31));

export class Crowd implements Sheet {
    private readonly cells: Uint8Array; // inks; 0: free
    private readonly heights: Uint16Array; // of the bars of a row; 0: there are none
    private readonly from: Int32Array;
    private readonly to: Int32Array;

    constructor(
        private readonly width: number,
        private readonly height: number,
    ) {
        const rows = ABOVE + height + BELOW;
        this.cells = new Uint8Array(rows * width);
        this.heights = new Uint16Array(rows);
        this.from = new Int32Array(rows);
        this.to = new Int32Array(rows);
    }

    fits({ width, height }: Raster): boolean {
        return width === this.width && height === this.height;
    }

    clear(): void {
        this.cells.fill(0);
        this.heights.fill(0);
    }

    bars(columns: Columns, plot: Heights): void {
        if (columns.widest <= NARROW) this.narrowBars(columns, plot);
        else this.wideBars(columns, plot);
    }

    // Without a branch, which no processor could foresee, and so in half the time: both ends are the whole bar.
    private narrowBars({ count, rows, lefts, rights, inks }: Columns, plot: Heights): void {
        const { values, perUnit, height } = plot;
        const { cells, heights, width } = this;
        const offset = plot.offset + ABOVE + 0.5;
        const lowest = heights.length - 1;
        const last = width - 1;
        for (let at = count - 1; at >= 0; at--) {
            const above = Math.max(0, offset + (values[rows[at] as number] as number) * perUnit);
            const row = Math.min(above, lowest) | 0; // no value, not a number: the first
            const ink = inks[at] as number;
            const left = Math.min(Math.max(lefts[at] as number, 0), last);
            const right = Math.min(Math.max((rights[at] as number) - 1, left), last);
            const begin = row * width + left;
            const end = row * width + right;
            heights[row] = height;
            cells[begin] = unlessTaken(cells[begin] as number, ink);
            cells[end] = unlessTaken(cells[end] as number, ink);
        }
    }

    private wideBars({ count, rows, lefts, rights, inks }: Columns, plot: Heights): void {
        const { values, offset, perUnit, height } = plot;
        const { heights, width } = this;
        this.from.fill(width);
        this.to.fill(width);
        for (let at = count - 1; at >= 0; at--) {
            const row = Math.round(offset + (values[rows[at] as number] as number) * perUnit) + ABOVE;
            const left = lefts[at] as number;
            if (!(row >= 0 && row < heights.length) || left >= width) continue;
            heights[row] = height;
            this.bar(row, left < 0 ? 0 : left, rights[at] as number, inks[at] as number);
        }
    }

    // Cells [left, right), at least one; none begins to the right of the one before it.
    private bar(row: number, left: number, right: number, ink: number): void {
        const { width, from, to } = this;
        const end = right > width ? width : right > left ? right : left + 1;
        const first = from[row] as number;
        const last = to[row] as number;
        if (left === first && end <= last) return;
        from[row] = left;
        if (end < first) {
            to[row] = end;
            this.take(row, left, end, ink);
            return;
        }
        this.take(row, left, first, ink);
        if (end <= last) return;
        to[row] = end;
        this.take(row, last, end, ink);
    }

    private take(row: number, left: number, right: number, ink: number): void {
        const { cells, width } = this;
        const end = row * width + right;
        for (let at = row * width + left; at < end; at++) if (cells[at] === 0) cells[at] = ink;
    }

    drawOn({ pixels }: Raster, palette: Palette): void {
        this.heights.forEach((height, row) => {
            const top = Math.max(0, row - ABOVE);
            const bottom = Math.min(this.height, row - ABOVE + height);
            for (let y = top; y < bottom; y++)
                this.drawRow(row * this.width, pixels, y * this.width, palette);
        });
    }

    private drawRow(from: number, pixels: Int32Array, to: number, palette: Palette): void {
        const { cells, width } = this;
        for (let x = 0; x < width; x++) {
            const ink = cells[from + x] as number;
            if (ink !== 0) pixels[to + x] = palette[ink] as number;
        }
    }
}
