// Events become bars: in the roll by their pitch, among the strokes of their instrument where they have
// none, and in each lane by the value of its p-field. The fuller, the louder.
import { keyHeight, keyY, laneY, type Band, type Layout } from './layout';
import type { Raster } from './raster';
import { firstFrom, type Range, type Scene, type SceneBlock } from './scene';
import type { Span } from './span';
import { SHADES, shadesOf, type Tones } from './tones';

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

type HeightOf = (row: number) => number; // the top of its bar, in pixels; NaN: it has none

// Bars of one height for the rows in sight. A gap of a pixel keeps notes apart that follow each other.
function drawBars(raster: Raster, drawing: Drawing, one: SceneBlock, topOf: HeightOf, height: number): void {
    const { start, duration, levels } = one.block.events;
    const colors = shadesOf(drawing.tones, one.rank);
    const { left, perSecond, first, last } = penFor(drawing, one);
    const full = colors.length - 1;
    const range = drawing.scene.levels;
    for (let row = first; row < last; row++) {
        const length = duration[row] ?? 0;
        const top = topOf(row);
        if (!(length > 0) || top !== top) continue;
        const x0 = Math.floor(left + (start[row] ?? 0) * perSecond);
        const x1 = Math.round(left + ((start[row] ?? 0) + length) * perSecond);
        const shade = levels.length > 0 ? shadeOf(levels[row] ?? 0, range) : full;
        raster.bar(x0, x1 - x0 > 4 ? x1 - 1 : x1, top, top + height, colors[shade] ?? 0);
    }
}

function drawRoll(raster: Raster, drawing: Drawing, one: SceneBlock, roll: Band): void {
    const { layout, scale, scroll } = drawing;
    const { keys } = one.block.events;
    const height = Math.max(2, Math.round(keyHeight(layout, roll) * scale));
    const perKey = (roll.height * scale) / (layout.keys.high - layout.keys.low);
    const zero = (keyY(layout, roll, 0) - scroll) * scale - height / 2;
    drawBars(raster, drawing, one, (row) => Math.round(zero - (keys[row] ?? NaN) * perKey), height);
}

function drawStrokes(raster: Raster, drawing: Drawing, one: SceneBlock, band: Band): void {
    const { scale, scroll } = drawing;
    const top = Math.round((band.top + 4 - scroll) * scale);
    drawBars(raster, drawing, one, () => top, Math.round((band.height - 8) * scale));
}

function drawLane(raster: Raster, drawing: Drawing, one: SceneBlock, lane: Layout['lanes'][number]): void {
    const { scale, scroll } = drawing;
    const { pfield } = lane.field;
    const values = one.block.events.columns[pfield - 4];
    if (!values || one.block.pitch?.pfield === pfield) return;
    const height = Math.round(2.5 * scale);
    const zero = laneY(lane, 0);
    const perUnit = laneY(lane, 1) - zero;
    const offset = (zero - scroll) * scale - height / 2;
    drawBars(
        raster,
        drawing,
        one,
        (row) => Math.round(offset + (values[row] ?? NaN) * perUnit * scale),
        height,
    );
}

export function drawEvents(raster: Raster, drawing: Drawing): void {
    const { scene, layout, span, hidden, scroll, scale } = drawing;
    const bottom = scroll + raster.height / scale;
    const lanes = layout.lanes.filter(({ top, height }) => top < bottom && top + height > scroll);
    for (const one of scene.blocks) {
        const { block } = one;
        if (hidden.has(block.instrument) || one.begin > span.to || one.end < span.from) continue;
        const strokes = layout.strokes.get(block.instrument);
        if (block.events.keys.length > 0 && layout.roll) drawRoll(raster, drawing, one, layout.roll);
        else if (strokes) drawStrokes(raster, drawing, one, strokes);
        for (const lane of lanes) drawLane(raster, drawing, one, lane);
    }
}
