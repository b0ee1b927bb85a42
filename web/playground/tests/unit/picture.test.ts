import { readFileSync } from 'node:fs';
import { describe, expect, it } from 'vitest';
import { inWords } from '../../src/app/values_panel';
import { rangeNumbers } from '../../src/picture/backdrop';
import { eventLines, keyName } from '../../src/picture/event_text';
import { shadeOf } from '../../src/picture/events';
import { binTotals, fieldNames, makeHistogram } from '../../src/picture/histogram';
import { hitTest, neighbour } from '../../src/picture/hit';
import { keyY, laneY, layOut, toSeconds, toX } from '../../src/picture/layout';
import { countEvents, firstFrom, makeScene } from '../../src/picture/scene';
import { following, marksBetween, roundStep, timeText, within, zoomed } from '../../src/picture/span';
import { DARK, LIGHT, firstInk, mixed, paletteOf, pixel } from '../../src/picture/tones';
import { makeBlock, makeResult } from './results';

const result = makeResult([
    makeBlock(1, [
        { start: 0, duration: 1, key: 60, values: [48, 10] },
        { start: 1, duration: -1, key: 62, values: [50, 20] },
        { start: 2, duration: 2, key: 72, values: [60, 30] },
    ]),
    makeBlock(7, [{ start: 2, duration: 0.5, values: [5, 20] }]),
]);
const scene = makeScene(result);
const none = new Set<number>();

describe('a scene', () => {
    it('knows the ranges of what it shows', () => {
        expect(scene.keys).toEqual({ low: 60, high: 72 });
        expect(scene.instruments.map(({ number, rank }) => [number, rank])).toEqual([
            [1, 0],
            [7, 1],
        ]);
    });
    it('counts no rest', () => {
        expect(result.blocks.map(countEvents)).toEqual([2, 1]);
        expect(scene.instruments.map(({ events }) => events)).toEqual([2, 1]);
    });
    it('takes no rest for a key or a value', () => {
        const rests = makeScene(
            makeResult([
                makeBlock(1, [
                    { start: 0, duration: 1, key: 60, values: [48, 10] },
                    { start: 1, duration: -1, key: -36, values: [0, 99] },
                ]),
            ]),
        );
        expect(rests.keys).toEqual({ low: 60, high: 60 });
        expect(rests.fields.map(({ range }) => range)).toEqual([{ low: 10, high: 10 }]);
    });
    it('leaves the pitch out of the fields of its own block only', () => {
        expect(scene.fields.map(({ pfield, range }) => [pfield, range.low, range.high])).toEqual([
            [4, 5, 5],
            [5, 10, 30],
        ]);
    });
    it('looks at each block a few times, however many instruments there are', () => {
        let looks = 0;
        const blocks = Array.from({ length: 500 }, (_, index) =>
            Object.defineProperty(makeBlock(index, [{ start: 0, duration: 1, values: [1] }]), 'instrument', {
                get: () => ((looks += 1), index),
            }),
        );
        const many = makeScene(makeResult(blocks));
        expect(many.instruments.map(({ number, events }) => number * events)).toEqual([...blocks.keys()]);
        expect(many.blocks.map(({ index }) => index)).toEqual([...blocks.keys()]);
        expect(looks).toBeLessThan(10 * blocks.length);
        expect(layOut(many, none, 700, 500).strokes.size).toBe(500);
    });
    it('finds the first start by bisection', () => {
        const starts = Float32Array.of(0, 1, 1, 2);
        expect([-1, 0, 0.5, 1, 1.5, 9].map((time) => firstFrom(starts, time))).toEqual([0, 0, 1, 1, 3, 4]);
    });
});

describe('the ends of a range', () => {
    it('have no more digits than its extent wants', () => {
        expect(rangeNumbers({ low: 0.00000266, high: 0.99999 })).toEqual(['0', '1']);
        expect(rangeNumbers({ low: 0.1, high: 0.925 })).toEqual(['0.1', '0.925']);
        expect(rangeNumbers({ low: 440, high: 440.002 })).toEqual(['440', '440.002']);
        expect(rangeNumbers({ low: -12, high: 30000.4 })).toEqual(['-12', '30000']);
    });
});

describe('a layout', () => {
    const layout = layOut(scene, none, 700, 500);
    const span = { from: 0, to: 4 };
    it('leads from seconds to pixels and back', () => {
        expect(toSeconds(layout, span, toX(layout, span, 2.5))).toBeCloseTo(2.5, 9);
        expect(toX(layout, span, 0)).toBe(layout.gutter);
        expect(toX(layout, span, 4)).toBe(700);
    });
    it('puts strokes of an instrument without pitch below the roll', () => {
        const strokes = layout.strokes.get(7);
        expect(strokes?.top).toBeGreaterThan((layout.roll?.top ?? 0) + (layout.roll?.height ?? 0));
    });
    it('lets the roll end within a short sight, and the lanes go out of it', () => {
        const { roll, lanes } = layOut(scene, none, 390, 200);
        expect((roll?.top ?? 0) + (roll?.height ?? 0)).toBeLessThanOrEqual(200);
        expect(roll?.height).toBeGreaterThanOrEqual(90);
        expect(lanes.at(-1)?.top).toBeGreaterThan(200);
    });
    it('finds the event under the pointer, and no rest', () => {
        const roll = layout.roll ?? { top: 0, height: 0 };
        const hit = hitTest(
            { scene, layout, span, hidden: none },
            toX(layout, span, 3),
            keyY(layout, roll, 72),
        );
        expect([hit?.of.block.instrument, hit?.row]).toEqual([1, 2]);
        const rest = hitTest(
            { scene, layout, span, hidden: none },
            toX(layout, span, 1.5),
            keyY(layout, roll, 62),
        );
        expect(rest).toBeUndefined();
    });
    it('finds the event of a lane by its value', () => {
        const lane = layout.lanes[1];
        if (!lane) throw new Error('There is no lane of P5.');
        const x = toX(layout, span, 2.25);
        expect(hitTest({ scene, layout, span, hidden: none }, x, laneY(lane, 20))?.of.block.instrument).toBe(
            7,
        );
        expect(hitTest({ scene, layout, span, hidden: new Set([7]) }, x, laneY(lane, 20))).toBeUndefined();
    });
    it('steps through all events in the order of time and back', () => {
        const told: string[] = [];
        let hit = neighbour(scene, none, undefined, 1);
        for (; hit; hit = neighbour(scene, none, hit, 1)) told.push(`${hit.of.block.instrument}/${hit.row}`);
        expect(told).toEqual(['1/0', '1/2', '7/0']);
        const last = { of: scene.blocks[1], row: 0, y: 0 } as Parameters<typeof neighbour>[2];
        expect(neighbour(scene, none, last, -1)?.of.block.instrument).toBe(1);
    });
});

describe('a span', () => {
    it('stays within the piece', () => {
        expect(within({ from: -3, to: 2 }, 10).from).toBe(0);
        expect(within({ from: 0, to: 99 }, 10).to).toBeCloseTo(10.2);
    });
    it('keeps the moment around which it is zoomed', () => {
        const span = zoomed({ from: 0, to: 10 }, 2, 4);
        expect(span).toEqual({ from: 2, to: 7 });
    });
    it('is no shorter than what the numbers of its end tell apart', () => {
        const { from, to } = within({ from: 1e25, to: 1e25 }, 1e25);
        expect(to - from).toBeGreaterThan(1e15);
        expect(within({ from: 5, to: 5 }, 3600).to).toBeCloseTo(5.01, 9);
    });
    it('turns over when the line has left it', () => {
        const span = { from: 0, to: 10 };
        expect(following(span, 5)).toBe(span);
        expect(following(span, 10.5).from).toBeCloseTo(10);
    });
    it('has round steps', () => {
        expect([0.03, 0.2, 3, 7].map(roundStep)).toEqual([0.05, 0.2, 5, 10]);
    });
    it.each([
        [0, 1, '0:00'],
        [61.5, 1, '1:01'],
        [61.5, 0.5, '1:01.5'],
        [0.25, 0.05, '0:00.25'],
    ])('%d seconds in steps of %d read %s', (seconds, step, text) => {
        expect(timeText(step >= 1 ? Math.floor(seconds) : seconds, step)).toBe(text);
    });
    it('turns to the next minute where it is rounded', () => {
        expect([timeText(59.7), timeText(119.99, 0.5), timeText(59.4)]).toEqual(['1:00', '2:00.0', '0:59']);
    });
});

describe('marks', () => {
    it('are the multiples of their step', () => {
        expect(marksBetween(-1, 2.1, 0.5)).toEqual([-1, -0.5, 0, 0.5, 1, 1.5, 2]);
        expect(marksBetween(0.1, 0.4, 0.5)).toEqual([]);
    });
    it.each([
        [0, 1e38, 1],
        [1e38, 1e38, 1e-9],
        [0, 1, 0],
        [NaN, NaN, 1],
    ])('come to an end from %d to %d in steps of %d', (from, to, step) => {
        expect(marksBetween(from, to, step).length).toBeLessThanOrEqual(1000);
    });
});

describe('an event in words', () => {
    it.each([
        [60, 'c4'],
        [59, 'b3'],
        [70, 'bf4'],
        [60.31, 'c4 + 31 ct'],
        [59.8, 'c4 − 20 ct'],
        [0, 'c-1'],
    ])('key %d is %s', (key, name) => {
        expect(keyName(key)).toBe(name);
    });
    it('tells its values', () => {
        const [block] = scene.blocks;
        const lines = block ? eventLines(block, 2) : [];
        expect(lines.map(({ name, value }) => `${name} ${value}`)).toEqual([
            'start 2 s · beat 2',
            'length 2 s',
            'P4 60 · c5',
            'P5 30',
        ]);
    });
});

describe('colours', () => {
    const theme = readFileSync(new URL('../../../../kit/picture/theme.cpp', import.meta.url), 'utf8');
    it.each([
        ['LIGHT_TONES', LIGHT],
        ['DARK_TONES', DARK],
    ])('are those of the pictures of vornkit: %s', (name, tones) => {
        const found = new RegExp(`${name} = \\{([^;]*)\\};`).exec(theme)?.[1] ?? '';
        const numbers = [...found.matchAll(/0x[0-9a-f]{6}/g)].map(([text]) => Number(text));
        expect(numbers).toEqual([
            tones.paper,
            tones.ink,
            tones.muted,
            tones.grid,
            tones.band,
            ...tones.instruments,
            ...tones.faint,
        ]);
    });
    it('go from the faint tone of an instrument to the full one', () => {
        const palette = paletteOf(LIGHT);
        const shades = [0, 2, 4].map((shade) => (palette[firstInk(LIGHT, 1) + shade] ?? 0) >>> 0);
        expect(shades).toEqual([0xf06700, 0xc55500, 0x9a4300].map(pixel));
        expect(firstInk(LIGHT, 6)).toBe(firstInk(LIGHT, 1));
        expect(palette[0]).toBe(0);
    });
    it('are mixed and put into memory', () => {
        expect(mixed(0x000000, 0xffffff, 0.5)).toBe(0x808080);
        expect(pixel(0x123456)).toBe(0xff563412);
    });
    it('are the fuller the louder', () => {
        const range = { low: -20, high: 0 };
        expect([-Infinity, -20, -10, 0, NaN].map((level) => shadeOf(level, range))).toEqual([0, 0, 2, 4, 0]);
        expect(shadeOf(-5, { low: 0, high: 0 })).toBe(4);
    });
});

describe('a histogram', () => {
    it('offers the fields that there are', () => {
        expect(fieldNames(result)).toEqual(['interval', 'duration', 'P4', 'P5']);
    });
    it('counts each value that is heard once', () => {
        const histogram = makeHistogram(result, 'P5', 4);
        expect([histogram.low, histogram.high, histogram.total, histogram.mean]).toEqual([10, 30, 3, 20]);
        expect(binTotals(histogram, 4)).toEqual([1, 0, 1, 1]);
    });
    it('is told in words that fit their number', () => {
        const of = (values: readonly number[]) => {
            const notes = values.map((value, start) => ({ start, duration: 1, values: [value] }));
            return inWords('P4', makeHistogram(makeResult([makeBlock(1, notes)]), 'P4', 4));
        };
        expect([[0.3], [2, 2], [1, 3]].map(of)).toEqual([
            '1 value: 0.3',
            '2 values, all 2',
            '2 values, from 1 to 3, on average 2',
        ]);
    });
    it('takes no rests for durations', () => {
        expect(makeHistogram(result, 'duration', 4).total).toBe(3);
    });
    it('puts equal values into one step', () => {
        expect(
            binTotals(
                makeHistogram(makeResult([makeBlock(1, [{ start: 0, duration: 1, values: [3] }])]), 'P4', 5),
                5,
            ),
        ).toEqual([0, 0, 1, 0, 0]);
    });
});
