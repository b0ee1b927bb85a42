import { beforeAll, describe, expect, it, vi } from 'vitest';
import { Columns } from '../../src/picture/bars';
import { Crowd } from '../../src/picture/crowd';
import { drawEvents } from '../../src/picture/events';
import { layOut } from '../../src/picture/layout';
import { Raster } from '../../src/picture/raster';
import { makeScene } from '../../src/picture/scene';
import { LIGHT } from '../../src/picture/tones';
import { makeBlock, makeResult, type Note } from './results';

class Image {
    readonly data: Uint8ClampedArray;
    constructor(width: number, height: number) {
        this.data = new Uint8ClampedArray(width * height * 4);
    }
}

beforeAll(() => void vi.stubGlobal('ImageData', Image));

const WIDTH = 40;
const HEIGHT = 24;
const PALETTE = Int32Array.from({ length: 100 }, (_, ink) => ink);

interface Bar {
    readonly left: number;
    readonly right: number;
    readonly top: number;
    readonly ink: number;
}

function columnsOf(bars: readonly Bar[]): [Columns, Float32Array] {
    const columns = new Columns();
    columns.clear(bars.length);
    bars.forEach(({ left, right, ink }, row) => columns.put(row, left, right, ink));
    return [columns, Float32Array.from(bars.map(({ top }) => top))];
}

function drawn(blocks: readonly (readonly Bar[])[], height: number): number[] {
    const raster = new Raster(WIDTH, HEIGHT);
    const crowd = new Crowd(WIDTH, HEIGHT);
    for (const bars of [...blocks].reverse()) {
        const [columns, values] = columnsOf(bars);
        crowd.bars(columns, { values, offset: 0, perUnit: 1, height });
    }
    crowd.drawOn(raster, PALETTE);
    return [...raster.pixels];
}

// Bar over bar, as one would paint them; of rows that reach into each other the lower one lies above.
function painted(blocks: readonly (readonly Bar[])[], height: number): number[] {
    const pixels = new Array<number>(WIDTH * HEIGHT).fill(0);
    for (let row = -height; row < HEIGHT; row++) {
        for (const { left, right, ink } of blocks.flat().filter(({ top }) => top === row)) {
            const first = Math.max(0, left);
            const end = Math.min(WIDTH, Math.max(right, first + 1));
            for (let y = Math.max(0, row); y < Math.min(HEIGHT, row + height); y++)
                pixels.fill(ink, y * WIDTH + first, y * WIDTH + end);
        }
    }
    return pixels;
}

let seed = 1;
const random = (below: number): number => {
    seed = (Math.imul(seed, 1103515245) + 12345) & 0x7fffffff;
    return (seed >> 8) % below;
};

function randomBars(count: number, widest: number): Bar[] {
    const lefts = Array.from({ length: count }, () => random(WIDTH + 5) - 5).sort((a, b) => a - b);
    return lefts.map((left) => {
        const right = Math.max(1, left + random(widest + 1));
        return { left, right, top: random(HEIGHT + 8) - 6, ink: 1 + random(90) };
    });
}

describe('a crowd of bars', () => {
    for (const widest of [1, 2, 3, 9, 60]) {
        it(`looks like bars one over the other, up to ${widest} wide`, () => {
            for (let time = 0; time < 40; time++) {
                const blocks = [randomBars(60, widest), randomBars(30, 3 * widest), randomBars(5, widest)];
                const height = 1 + random(5);
                expect(drawn(blocks, height)).toEqual(painted(blocks, height));
            }
        });
    }

    it('leaves out what has no value', () => {
        const columns = new Columns();
        columns.clear(1);
        columns.put(0, 3, 9, 5);
        const crowd = new Crowd(WIDTH, HEIGHT);
        const raster = new Raster(WIDTH, HEIGHT);
        for (const widest of [1, 9]) {
            columns.widest = widest;
            crowd.bars(columns, { values: Float32Array.of(NaN), offset: 5, perUnit: 1, height: 3 });
        }
        crowd.drawOn(raster, PALETTE);
        expect(raster.pixels.every((pixel) => pixel === 0)).toBe(true);
    });
});

describe('events', () => {
    const columnsWithInk = (notes: readonly Note[], from: number, to: number): number[] => {
        const scene = makeScene(makeResult([makeBlock(1, notes)]));
        const layout = layOut(scene, new Set(), 246, 200);
        const raster = new Raster(200, 200);
        const tones = LIGHT;
        drawEvents(raster, {
            scene,
            layout,
            span: { from, to },
            tones,
            hidden: new Set(),
            scale: 1,
            scroll: 0,
        });
        const isInked = (x: number): boolean =>
            Array.from({ length: 200 }, (_, y) => raster.pixels[y * 200 + x]).some((pixel) => pixel !== 0);
        return Array.from({ length: 200 }, (_, x) => x).filter(isInked);
    };

    it('that are over before the sight begins leave nothing at its edge', () => {
        const notes = [
            { start: 0, duration: 8, key: 62 },
            { start: 4, duration: 1, key: 60 },
            { start: 15, duration: 1, key: 64 },
        ];
        expect(columnsWithInk(notes, 10, 20)[0]).toBe(100);
    });

    it('stand at the same place, few or many', () => {
        const few = [{ start: 4, duration: 1, key: 60 }];
        const many = Array.from({ length: 20_000 }, () => few[0] as Note);
        expect(columnsWithInk(many, 0, 10)).toEqual(columnsWithInk(few, 0, 10));
    });
});
