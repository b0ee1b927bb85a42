// Where everything of a picture stands, in pixels of the page:
//
//     axis of seconds | tempo, when it moves | blocks | piano roll | strokes without pitch | a lane a p-field
import type { Range, Scene, SceneBlock, SceneField, SceneInstrument } from './scene';
import type { Span } from './span';

export interface Band {
    readonly top: number;
    readonly height: number;
}

export interface PlacedBracket extends Band {
    readonly of: SceneBlock;
}

export interface PlacedLane extends Band {
    readonly field: SceneField;
}

export interface Layout {
    readonly width: number;
    readonly gutter: number; // left of it stand the names
    readonly height: number; // of all, may be more than is in sight
    readonly axis: Band;
    readonly tempo: Band | null;
    readonly brackets: readonly PlacedBracket[];
    readonly bracketBand: Band;
    readonly roll: Band | null;
    readonly strokes: ReadonlyMap<number, Band>; // by instrument
    readonly lanes: readonly PlacedLane[];
    readonly keys: Range;
}

const AXIS = 28;
const TEMPO = 34;
const BRACKET = 17;
const MOST_BRACKET_ROWS = 5;
const STROKES = 24;
const LANE = 46;
const MOST_SPARE = 90; // that a lane may be higher
const LEAST_ROLL = 150;
const LEAST_SHORT_ROLL = 90; // in a sight that would cut the other
const GAP = 10;

export const isNarrow = (width: number): boolean => width < 480;

// Blocks in as few rows as keep them apart; when there are too many rows the last one takes the rest.
function bracketRows(blocks: readonly SceneBlock[]): { of: SceneBlock; row: number }[] {
    const ends: number[] = [];
    return [...blocks]
        .sort((a, b) => a.begin - b.begin || a.index - b.index)
        .map((of) => {
            const free = ends.findIndex((end) => end <= of.begin + 1e-6);
            const row = free < 0 ? Math.min(ends.length, MOST_BRACKET_ROWS - 1) : free;
            ends[row] = Math.max(ends[row] ?? 0, of.end);
            return { of, row };
        });
}

const isPitched = ({ block }: SceneBlock): boolean => block.events.keys.length > 0;

function strokeInstruments(scene: Scene, shown: readonly SceneBlock[]): SceneInstrument[] {
    const ranks = new Set(shown.filter((block) => !isPitched(block)).map(({ rank }) => rank));
    return scene.instruments.filter(({ rank }) => ranks.has(rank));
}

// Room above and below the outermost keys, which also keeps those apart that are too high to be counted.
function keyRange(keys: Range | null): Range {
    if (!keys) return { low: 59, high: 61 };
    const room = Math.max(1.5, 1e-6 * Math.max(Math.abs(keys.low), Math.abs(keys.high)));
    return { low: Math.floor(keys.low) - room, high: Math.ceil(keys.high) + room };
}

// All that what stands below it leaves; where that is too little, what stands below goes out of sight first.
const rollHeight = (room: number, below: number): number =>
    Math.max(LEAST_SHORT_ROLL, Math.min(room, LEAST_ROLL), room - below);

class Stack {
    at = 0;
    take(height: number, gap = GAP): Band {
        const band = { top: this.at, height };
        this.at += height + gap;
        return band;
    }
}

export function layOut(scene: Scene, hidden: ReadonlySet<number>, width: number, height: number): Layout {
    const shown = scene.blocks.filter(({ block }) => !hidden.has(block.instrument));
    const rows = bracketRows(shown);
    const strokes = strokeInstruments(scene, shown);
    const stack = new Stack();
    const axis = stack.take(AXIS, 4);
    const tempo = scene.tempo.moves ? stack.take(TEMPO) : null;
    const rowCount = rows.reduce((most, { row }) => Math.max(most, row + 1), 0);
    const bracketBand = stack.take(rowCount * BRACKET);
    const below = strokes.length * STROKES + scene.fields.length * (LANE + GAP) + GAP;
    const hasRoll = shown.some(isPitched);
    const roll = hasRoll ? stack.take(rollHeight(height - stack.at - GAP, below)) : null;
    const strokeBands = new Map(strokes.map(({ number }) => [number, stack.take(STROKES, 0)]));
    if (strokes.length > 0) stack.at += GAP;
    // Without a roll the lanes share its place.
    const spare = hasRoll ? 0 : (height - stack.at) / Math.max(1, scene.fields.length) - LANE - GAP;
    const laneHeight = LANE + Math.min(MOST_SPARE, Math.max(0, spare));
    const lanes = scene.fields.map((field) => ({ field, ...stack.take(laneHeight) }));
    return {
        width,
        gutter: isNarrow(width) ? 46 : 62,
        height: Math.max(height, stack.at),
        axis,
        tempo,
        brackets: rows.map(({ of, row }) => ({
            of,
            top: bracketBand.top + row * BRACKET,
            height: BRACKET - 3,
        })),
        bracketBand,
        roll,
        strokes: strokeBands,
        lanes,
        keys: keyRange(scene.keys),
    };
}

export const toX = (layout: Layout, span: Span, seconds: number): number =>
    layout.gutter + ((seconds - span.from) / (span.to - span.from)) * (layout.width - layout.gutter);

export const toSeconds = (layout: Layout, span: Span, x: number): number =>
    span.from + ((x - layout.gutter) / (layout.width - layout.gutter)) * (span.to - span.from);

// The middle of a bar for a key.
export const keyY = (layout: Layout, roll: Band, key: number): number =>
    roll.top + ((layout.keys.high - key) / (layout.keys.high - layout.keys.low)) * roll.height;

export const keyHeight = (layout: Layout, roll: Band): number =>
    Math.min(11, Math.max(3, (roll.height / (layout.keys.high - layout.keys.low)) * 0.8));

const LANE_PADDING = 5;

export function laneY(lane: PlacedLane, value: number): number {
    const { low, high } = lane.field.range;
    const part = high > low ? (value - low) / (high - low) : 0.5;
    return lane.top + lane.height - LANE_PADDING - part * (lane.height - 2 * LANE_PADDING);
}
