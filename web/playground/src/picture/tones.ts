// The colours of data, after the palette of Okabe and Ito, "Color Universal Design" (2008): each in two tones that
// both stand out from the paper. They are those of kit/picture/theme.cpp, which a test compares.
export interface Tones {
    readonly paper: number; // 0xrrggbb, as all of them
    readonly ink: number;
    readonly muted: number;
    readonly grid: number;
    readonly band: number; // behind the black keys
    readonly instruments: readonly number[]; // the fullest shade of each
    readonly faint: readonly number[]; // the lowest
}

export const LIGHT: Tones = {
    paper: 0xffffff,
    ink: 0x1a1a1a,
    muted: 0x5c5f66,
    grid: 0xdcdfe4,
    band: 0xf2f3f6,
    instruments: [0x0053b1, 0x9a4300, 0x006138, 0x853f73, 0x000000],
    faint: [0x1b92e2, 0xf06700, 0x129e68, 0xcf76b5, 0x8c8c8c],
};

export const DARK: Tones = {
    paper: 0x14161a,
    ink: 0xf0f1f3,
    muted: 0xa3a8b0,
    grid: 0x33373e,
    band: 0x1e2127,
    instruments: [0x56b4e9, 0xe69f00, 0x009e73, 0xcc79a7, 0xf0e442],
    faint: [0x4181a7, 0xa37308, 0x067257, 0x91597a, 0xaaa235],
};

// How much of its fullest tone each shade has; the rest is the faint one. The louder, the fuller.
export const SHADES = [0, 0.25, 0.5, 0.75, 1] as const;

export const hex = (color: number): string => '#' + color.toString(16).padStart(6, '0');

// `part` of the colour, the rest another, so that lines behind it do not show.
export function mixed(color: number, other: number, part: number): number {
    let result = 0;
    for (const shift of [16, 8, 0]) {
        const low = (other >> shift) & 255;
        const high = (color >> shift) & 255;
        result |= Math.round(low + (high - low) * part) << shift;
    }
    return result;
}

// As a pixel in memory: alpha, blue, green, red from its highest byte on.
export const pixel = (color: number): number =>
    (0xff000000 | ((color & 255) << 16) | (color & 0xff00) | ((color >> 16) & 255)) >>> 0;

export const colorOf = (tones: Tones, rank: number): number =>
    tones.instruments[rank % tones.instruments.length] ?? tones.ink;

const faintOf = (tones: Tones, rank: number): number => tones.faint[rank % tones.faint.length] ?? tones.muted;

// The pixels of all shades of all tones, faint to full, behind one that is clear.
export function paletteOf(tones: Tones): Int32Array {
    const shades = tones.instruments.flatMap((_, rank) =>
        SHADES.map((part) => pixel(mixed(colorOf(tones, rank), faintOf(tones, rank), part))),
    );
    return Int32Array.of(0, ...shades);
}

// Where the shades of an instrument begin in the palette.
export const firstInk = (tones: Tones, rank: number): number =>
    1 + (rank % tones.instruments.length) * SHADES.length;
