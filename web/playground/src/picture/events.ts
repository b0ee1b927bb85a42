// Events become bars: in the roll by their pitch, among the strokes of their instrument where they have
// none, and in each lane by the value of its p-field. The fuller, the louder.
import { Columns, type Heights, type Sheet } from './bars';
import { Crowd } from './crowd';
import { keyHeight, keyY, laneY, type Band, type Layout, type PlacedLane } from './layout';
import type { Raster } from './raster';
import { firstFrom, type Range, type Scene, type SceneBlock } from './scene';
import type { Span } from './span';
import { firstInk, paletteOf, SHADES, type Tones } from './tones';

export interface Drawing {
    readonly scene: Scene;
    readonly layout: Layout;
    readonly span: Span;
    readonly tones: Tones;
    readonly hidden: ReadonlySet<number>;
    readonly scale: number; // pixels of the screen to one of the page
    readonly scroll: number; // pixels of the page above the sight
}

// One of the shades for a level.
export function shadeOf(level: number, { low, high }: Range): number {
    if (!(high > low)) return SHADES.length - 1;
    const part = (level - low) / (high - low);
    if (!(part > 0)) return 0;
    return Math.min(SHADES.length - 1, Math.floor(part * SHADES.length));
}

// From a row of a block to pixels.
interface Pen {
    readonly left: number; // of time 0
    readonly perSecond: number;
    readonly first: number;
    readonly last: number;
}

function penFor(drawing: Drawing, block: SceneBlock): Pen {
    const { layout, span, scale } = drawing;
    const perSecond = ((layout.width - layout.gutter) * scale) / (span.to - span.from);
    const starts = block.block.events.start;
    return {
        left: -span.from * perSecond,
        perSecond,
        first: firstFrom(starts, span.from - block.longest),
        last: firstFrom(starts, span.to),
    };
}

// The shade of each row, by index into the colours; computed once for each table of events.
const shadesByLevels = new WeakMap<Float32Array, { range: Range; shades: Uint8Array }>();

function shadesFor(levels: Float32Array, range: Range): Uint8Array {
    const known = shadesByLevels.get(levels);
    if (known?.range === range) return known.shades;
    const shades = Uint8Array.from(levels, (level) => shadeOf(level, range));
    shadesByLevels.set(levels, { range, shades });
    return shades;
}

const columns = new Columns();

// The rows in sight become columns of pixels. A gap of a pixel keeps notes apart that follow each other.
function putColumns(drawing: Drawing, one: SceneBlock): void {
    const { start, duration, levels } = one.block.events;
    const { left, perSecond, first, last } = penFor(drawing, one);
    const ink = firstInk(drawing.tones, one.rank);
    const shades = shadesFor(levels, drawing.scene.levels);
    const full = SHADES.length - 1;
    columns.clear(last - first);
    for (let row = first; row < last; row++) {
        const length = duration[row] as number;
        if (!(length > 0)) continue;
        const begin = left + (start[row] as number) * perSecond;
        const x0 = Math.floor(begin);
        const end = Math.round(begin + length * perSecond);
        if (end <= 0 && x0 < 0) continue;
        const x1 = end - x0 > 4 ? end - 1 : end;
        columns.put(row, x0, x1, ink + (shades[row] ?? full));
    }
}

function drawBlocks(sheet: Sheet, drawing: Drawing, drawn: readonly Drawn[]): void {
    const palette = paletteOf(drawing.tones);
    for (const { one, plots } of drawn) {
        putColumns(drawing, one);
        for (const plot of plots) sheet.bars(columns, plot, palette);
    }
}

function inRoll(drawing: Drawing, one: SceneBlock, roll: Band): Heights {
    const { layout, scale, scroll } = drawing;
    const height = Math.max(2, Math.round(keyHeight(layout, roll) * scale));
    const perUnit = (-roll.height * scale) / (layout.keys.high - layout.keys.low);
    const offset = (keyY(layout, roll, 0) - scroll) * scale - height / 2;
    return { values: one.block.events.keys, offset, perUnit, height };
}

function amongStrokes(drawing: Drawing, one: SceneBlock, band: Band): Heights {
    const { scale, scroll } = drawing;
    const offset = (band.top + 4 - scroll) * scale;
    const height = Math.round((band.height - 8) * scale);
    // Any column of finite values will do: it counts nothing.
    return { values: one.block.events.start, offset, perUnit: 0, height };
}

function inLane(drawing: Drawing, one: SceneBlock, lane: PlacedLane): Heights | undefined {
    const { scale, scroll } = drawing;
    const { pfield } = lane.field;
    const values = one.block.events.columns[pfield - 4];
    if (!values || one.block.pitch?.pfield === pfield) return undefined;
    const height = Math.round(2.5 * scale);
    const zero = laneY(lane, 0);
    const perUnit = (laneY(lane, 1) - zero) * scale;
    return { values, offset: (zero - scroll) * scale - height / 2, perUnit, height };
}

function plotsOf(drawing: Drawing, one: SceneBlock, lanes: readonly PlacedLane[]): Heights[] {
    const { layout } = drawing;
    const { events, instrument } = one.block;
    const strokes = layout.strokes.get(instrument);
    const inLanes = lanes.map((lane) => inLane(drawing, one, lane)).filter((plot) => plot !== undefined);
    if (events.keys.length > 0 && layout.roll) return [inRoll(drawing, one, layout.roll), ...inLanes];
    return strokes ? [amongStrokes(drawing, one, strokes), ...inLanes] : inLanes;
}

interface Drawn {
    readonly one: SceneBlock;
    readonly plots: readonly Heights[];
}

function inSight(raster: Raster, drawing: Drawing): Drawn[] {
    const { scene, layout, span, hidden, scroll, scale } = drawing;
    const bottom = scroll + raster.height / scale;
    const lanes = layout.lanes.filter(({ top, height }) => top < bottom && top + height > scroll);
    const isShown = ({ block, begin, end }: SceneBlock): boolean =>
        !hidden.has(block.instrument) && begin <= span.to && end >= span.from;
    return scene.blocks.filter(isShown).map((one) => ({ one, plots: plotsOf(drawing, one, lanes) }));
}

function countBars(drawing: Drawing, drawn: readonly Drawn[]): number {
    return drawn.reduce((sum, { one, plots }) => {
        const { first, last } = penFor(drawing, one);
        return sum + (last - first) * plots.length;
    }, 0);
}

const FEW = 12_000; // bars that are drawn one by one, with their corners, well within a frame

let crowd = new Crowd(0, 0);

function drawCrowd(raster: Raster, drawing: Drawing, drawn: readonly Drawn[]): void {
    if (!crowd.fits(raster)) crowd = new Crowd(raster.width, raster.height);
    crowd.clear();
    drawBlocks(crowd, drawing, [...drawn].reverse());
    crowd.drawOn(raster, paletteOf(drawing.tones));
}

export function drawEvents(raster: Raster, drawing: Drawing): void {
    const drawn = inSight(raster, drawing);
    if (countBars(drawing, drawn) > FEW) drawCrowd(raster, drawing, drawn);
    else drawBlocks(raster, drawing, drawn);
}
