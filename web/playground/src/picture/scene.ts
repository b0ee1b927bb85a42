// What a picture shows of a result: the engine's own columns, with what has to be known of each block to
// draw it (how long its longest event is, so that those in sight are found by bisection) and the ranges of
// all values. Nothing is copied; 100,000 events take a few milliseconds.
import type { Block, Result, TempoCurve } from 'vorn-wasm';

export interface Range {
    low: number;
    high: number;
}

export interface SceneBlock {
    readonly index: number; // in the result
    readonly block: Block;
    readonly rank: number; // of its instrument, in the order in which they come; decides its colour
    readonly longest: number; // seconds
    readonly begin: number;
    readonly end: number;
}

export interface SceneInstrument {
    readonly number: number;
    readonly rank: number;
    readonly events: number; // without rests
    readonly hasPitch: boolean;
}

export interface SceneField {
    readonly pfield: number;
    readonly isLevel: boolean;
    readonly range: Range;
}

export interface Scene {
    readonly blocks: readonly SceneBlock[];
    readonly instruments: readonly SceneInstrument[];
    readonly keys: Range | null; // MIDI keys
    readonly levels: Range; // decibels
    readonly fields: readonly SceneField[]; // all that are not the pitch
    readonly seconds: number;
    readonly events: number;
    readonly tempo: TempoCurve;
}

const QUIETEST = -96; // decibels that still make a difference to the eye

const nothing = (): Range => ({ low: Infinity, high: -Infinity });

// Only what is drawn counts: a rest has no length, and a key far below all others.
function widen(range: Range, values: Float32Array, durations: Float32Array): void {
    let { low, high } = range;
    for (let row = 0; row < values.length; row++) {
        const value = values[row] ?? NaN;
        if (!((durations[row] ?? 0) > 0)) continue;
        if (value < low && value > -Infinity) low = value;
        if (value > high && value < Infinity) high = value;
    }
    range.low = low;
    range.high = high;
}

const isRange = ({ low, high }: Range): boolean => low <= high;

function longestOf(durations: Float32Array): number {
    let longest = 0;
    for (const duration of durations) if (duration > longest && duration < Infinity) longest = duration;
    return longest;
}

function ranksOf(blocks: readonly Block[]): Map<number, number> {
    const ranks = new Map<number, number>();
    for (const { instrument, isSkipped } of blocks) {
        if (!isSkipped && !ranks.has(instrument)) ranks.set(instrument, ranks.size);
    }
    return ranks;
}

function fieldsOf(blocks: readonly Block[]): SceneField[] {
    const fields = new Map<number, { range: Range; isLevel: boolean }>();
    for (const block of blocks) {
        block.events.columns.forEach((values, column) => {
            const pfield = column + 4;
            if (block.pitch?.pfield === pfield) return;
            const field = fields.get(pfield) ?? { range: nothing(), isLevel: true };
            widen(field.range, values, block.events.duration);
            field.isLevel &&= block.level?.pfield === pfield;
            fields.set(pfield, field);
        });
    }
    return [...fields]
        .filter(([, { range }]) => isRange(range))
        .sort(([a], [b]) => a - b)
        .map(([pfield, { range, isLevel }]) => ({ pfield, range, isLevel }));
}

// Those that are no rests.
export function countEvents(block: Block): number {
    return block.events.duration.reduce((count, duration) => count + (duration > 0 ? 1 : 0), 0);
}

function instrumentsOf(blocks: readonly Block[], ranks: Map<number, number>): SceneInstrument[] {
    const all = [...ranks].map(([number, rank]) => ({ number, rank, events: 0, hasPitch: false }));
    for (const block of blocks) {
        const own = all[ranks.get(block.instrument) ?? -1];
        if (!own) continue;
        own.events += countEvents(block);
        own.hasPitch ||= block.events.keys.length > 0;
    }
    return all;
}

function common(blocks: readonly Block[], column: (block: Block) => Float32Array): Range {
    const range = nothing();
    for (const block of blocks) widen(range, column(block), block.events.duration);
    return range;
}

export function makeScene(result: Result): Scene {
    const ranks = ranksOf(result.blocks);
    const places = new Map(result.blocks.map((block, index) => [block, index]));
    const shown = result.blocks.filter((block) => !block.isSkipped && block.events.size > 0);
    const keys = common(shown, (block) => block.events.keys);
    const levels = common(shown, (block) => block.events.levels);
    return {
        blocks: shown.map((block) => ({
            index: places.get(block) ?? -1,
            block,
            rank: ranks.get(block.instrument) ?? 0,
            longest: longestOf(block.events.duration),
            begin: block.startSeconds,
            end: Math.max(block.endSeconds, block.startSeconds),
        })),
        instruments: instrumentsOf(shown, ranks).filter(({ events }) => events > 0),
        keys: isRange(keys) ? keys : null,
        levels: { low: Math.max(levels.low, QUIETEST), high: levels.high },
        fields: fieldsOf(shown),
        seconds: result.seconds,
        events: result.eventCount,
        tempo: result.tempo,
    };
}

// The first row whose start is not before `seconds`. Starts within a block never fall.
export function firstFrom(starts: Float32Array, seconds: number): number {
    let low = 0;
    let high = starts.length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if ((starts[middle] ?? 0) < seconds) low = middle + 1;
        else high = middle;
    }
    return low;
}
