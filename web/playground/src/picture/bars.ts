// Bars on their way to pixels: where the events of a block lie in time is worked out once, how high they stand
// anew for each plot that shows them. Arrays of numbers, for there may be a million of them in a frame.
export class Columns {
    count = 0;
    widest = 0; // pixels
    rows = new Int32Array(0); // of the table of events
    lefts = new Int32Array(0);
    rights = new Int32Array(0); // the pixel behind
    inks = new Uint8Array(0); // by their index in the palette

    clear(most: number): void {
        this.count = 0;
        this.widest = 0;
        if (most <= this.rows.length) return;
        this.rows = new Int32Array(most);
        this.lefts = new Int32Array(most);
        this.rights = new Int32Array(most);
        this.inks = new Uint8Array(most);
    }

    put(row: number, left: number, right: number, ink: number): void {
        const at = this.count++;
        this.rows[at] = row;
        this.lefts[at] = left;
        this.rights[at] = right;
        this.inks[at] = ink;
        this.widest = Math.max(this.widest, right - left);
    }
}

// Which values decide how high a bar stands: its top is offset + value * perUnit, in pixels.
export interface Heights {
    readonly values: Float32Array;
    readonly offset: number;
    readonly perUnit: number;
    readonly height: number; // of a bar
}

// Pixels by the index of their ink; 0 is none.
export type Palette = Int32Array;

// Where bars go, those of one plot at a time, in the order of their beginnings.
export interface Sheet {
    bars(columns: Columns, heights: Heights, palette: Palette): void;
}
