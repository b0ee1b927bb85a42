// The colours of data: those five of the palette of Okabe and Ito, "Color Universal Design" (2008), that
// stand out from light and from dark paper. They are those of kit/picture/theme.cpp, which a test compares.
export interface Tones {
    readonly paper: number; // 0xrrggbb, as all of them
    readonly ink: number;
    readonly muted: number;
    readonly grid: number;
    readonly instruments: readonly number[];
}

export const LIGHT: Tones = {
    paper: 0xffffff,
    ink: 0x1a1a1a,
    muted: 0x5c5f66,
    grid: 0xdcdfe4,
    instruments: [0x0072b2, 0xd55e00, 0x009e73, 0xcc79a7, 0x000000],
};

export const DARK: Tones = {
    paper: 0x14161a,
    ink: 0xf0f1f3,
    muted: 0xa3a8b0,
    grid: 0x33373e,
    instruments: [0x56b4e9, 0xe69f00, 0x009e73, 0xcc79a7, 0xf0e442],
};

// How much of its colour each shade has; the rest is paper. The louder, the fuller.
export const SHADES = [0.5, 0.62, 0.75, 0.87, 1] as const;

export const hex = (color: number): string => '#' + color.toString(16).padStart(6, '0');

// `part` of the colour, mixed with the paper, so that lines behind it do not show.
export function mixed(color: number, paper: number, part: number): number {
    let result = 0;
    for (const shift of [16, 8, 0]) {
        const low = (paper >> shift) & 255;
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

// The pixels of all shades of an instrument, faint to full.
export const shadesOf = (tones: Tones, rank: number): number[] =>
    SHADES.map((part) => pixel(mixed(colorOf(tones, rank), tones.paper, part)));
