// Which event is at a place of the picture: the one whose bar is nearest, if it is near enough.
import { keyY, laneY, toSeconds, toX, type Layout } from './layout';
import { firstFrom, type Scene, type SceneBlock } from './scene';
import type { Span } from './span';

export interface Hit {
    readonly of: SceneBlock;
    readonly row: number;
    readonly y: number; // the middle of its bar
}

const REACH = 9; // pixels

interface Sight {
    readonly scene: Scene;
    readonly layout: Layout;
    readonly span: Span;
    readonly hidden: ReadonlySet<number>;
}

// Where the event's bar is at the height y: in the roll, among the strokes, or in the lane there.
function barY(layout: Layout, { block }: SceneBlock, row: number, y: number): number {
    const lane = layout.lanes.find(({ top, height }) => y >= top && y <= top + height);
    if (lane) {
        const isPitch = block.pitch?.pfield === lane.field.pfield;
        return isPitch ? NaN : laneY(lane, block.events.columns[lane.field.pfield - 4]?.[row] ?? NaN);
    }
    if (block.events.keys.length > 0 && layout.roll)
        return keyY(layout, layout.roll, block.events.keys[row] ?? NaN);
    const strokes = layout.strokes.get(block.instrument);
    return strokes ? strokes.top + strokes.height / 2 : NaN;
}

export function eventY(layout: Layout, of: SceneBlock, row: number): number {
    return barY(layout, of, row, -1);
}

export function hitTest({ scene, layout, span, hidden }: Sight, x: number, y: number): Hit | undefined {
    if (x < layout.gutter) return undefined;
    const reach = toSeconds(layout, span, x + REACH) - toSeconds(layout, span, x);
    const at = toSeconds(layout, span, x);
    let best: Hit | undefined;
    let least = REACH;
    for (const of of scene.blocks) {
        if (hidden.has(of.block.instrument)) continue;
        const { start, duration } = of.block.events;
        const last = firstFrom(start, at + reach);
        for (let row = firstFrom(start, at - reach - of.longest); row < last; row++) {
            const begin = toX(layout, span, start[row] ?? 0);
            const end = toX(layout, span, (start[row] ?? 0) + (duration[row] ?? 0));
            if (!((duration[row] ?? 0) > 0) || x > end + REACH) continue;
            const middle = barY(layout, of, row, y);
            const far = Math.max(Math.abs(y - middle), begin - x, x - end);
            if (far < least) {
                least = far;
                best = { of, row, y: middle };
            }
        }
    }
    return best;
}

// All events in the order of time, to step through them by keys.
export function neighbour(
    scene: Scene,
    hidden: ReadonlySet<number>,
    now: Hit | undefined,
    step: 1 | -1,
): Hit | undefined {
    const time = now ? (now.of.block.events.start[now.row] ?? 0) : -Infinity;
    let best: { of: SceneBlock; row: number; key: number } | undefined;
    for (const of of scene.blocks) {
        if (hidden.has(of.block.instrument)) continue;
        const row = nearestRow(of, now, time, step);
        const start = of.block.events.start[row];
        if (start === undefined) continue;
        const ahead = best ? (best.key - start) * step : 1;
        if (ahead > 0 || (ahead === 0 && step < 0)) best = { of, row, key: start };
    }
    return best ? { of: best.of, row: best.row, y: NaN } : undefined;
}

// Blocks take turns at equal times in the order of the score.
function nearestRow(of: SceneBlock, now: Hit | undefined, time: number, step: 1 | -1): number {
    const { start, duration } = of.block.events;
    const isLater = now !== undefined && of.index > now.of.index;
    let row: number;
    if (now?.of === of) row = now.row + step;
    else if (step > 0) row = isLater ? firstFrom(start, time) : firstFrom(start, Math.fround(time) + 1e-6);
    else row = (isLater ? firstFrom(start, time) : firstFrom(start, time + 1e-6)) - 1;
    while (row >= 0 && row < start.length && !((duration[row] ?? 0) > 0)) row += step;
    return row;
}
