// How often the values of a field occur: from the lowest to the highest in equal steps, by instrument.
import type { Result } from 'vorn-wasm';

export interface Histogram {
    readonly low: number;
    readonly high: number;
    readonly counts: readonly {
        readonly rank: number;
        readonly instrument: number;
        readonly bins: Uint32Array;
    }[];
    readonly total: number;
    readonly mean: number;
}

// "start", "duration", "P4" and so on, those that the score has.
export function fieldNames(result: Result): string[] {
    const columns = Math.max(0, ...result.blocks.map((block) => block.events.columns.length));
    const fields = Array.from({ length: columns }, (_, column) => `P${column + 4}`);
    return ['interval', 'duration', ...fields];
}

// The time from each start to the next later one.
function intervals(starts: Float32Array): Float32Array {
    const gaps: number[] = [];
    for (let row = 1; row < starts.length; row++) {
        const gap = (starts[row] ?? 0) - (starts[row - 1] ?? 0);
        if (gap > 0) gaps.push(gap);
    }
    return Float32Array.from(gaps);
}

function valuesOf(block: Result['blocks'][number], field: string): Float32Array {
    if (field === 'interval') return intervals(block.events.start);
    if (field === 'duration') return block.events.duration.filter((value) => value > 0);
    const values = block.events.columns[Number(field.slice(1)) - 4] ?? new Float32Array();
    return values.filter((_, row) => (block.events.duration[row] ?? 0) > 0); // without rests
}

export function makeHistogram(result: Result, field: string, binCount: number): Histogram {
    const columns = result.blocks
        .filter((block) => !block.isSkipped)
        .map((block) => ({ instrument: block.instrument, values: valuesOf(block, field) }));
    let [low, high, sum, total] = [Infinity, -Infinity, 0, 0];
    for (const { values } of columns) {
        for (const value of values) {
            if (!Number.isFinite(value)) continue;
            if (value < low) low = value;
            if (value > high) high = value;
            sum += value;
            total += 1;
        }
    }
    const perUnit = high > low ? binCount / (high - low) : 0;
    const ranks = new Map<number, { rank: number; bins: Uint32Array }>();
    for (const { instrument, values } of columns) {
        const own = ranks.get(instrument) ?? { rank: ranks.size, bins: new Uint32Array(binCount) };
        ranks.set(instrument, own);
        for (const value of values) {
            if (!Number.isFinite(value)) continue;
            const bin =
                perUnit > 0 ? Math.min(binCount - 1, Math.floor((value - low) * perUnit)) : binCount >> 1;
            own.bins[bin] = (own.bins[bin] ?? 0) + 1;
        }
    }
    const counts = [...ranks].map(([instrument, { rank, bins }]) => ({ instrument, rank, bins }));
    return { low, high, counts, total, mean: total > 0 ? sum / total : 0 };
}

// How many values lie in each step, of all instruments.
export function binTotals({ counts }: Histogram, binCount: number): number[] {
    return Array.from({ length: binCount }, (_, bin) =>
        counts.reduce((sum, { bins }) => sum + (bins[bin] ?? 0), 0),
    );
}
