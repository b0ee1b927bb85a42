// What stands behind the events, drawn onto a paper that counts the strokes.
import { describe, expect, it } from 'vitest';
import { drawBackdrop, type Paper } from '../../src/picture/backdrop';
import { layOut } from '../../src/picture/layout';
import { makeScene } from '../../src/picture/scene';
import { wholeSpan, within, type Span } from '../../src/picture/span';
import { LIGHT } from '../../src/picture/tones';
import { makeBlock, makeResult } from './results';

const MOST_STROKES = 3000; // far more than a sight of 700 by 500 has room for

interface Told {
    readonly paper: Paper;
    readonly texts: string[];
}

function countingPaper(): Told {
    const texts: string[] = [];
    let strokes = 0;
    const count = (): void => {
        strokes += 1;
        if (strokes > MOST_STROKES) throw new Error('The drawing does not come to an end.');
    };
    const paper = {
        ...Object.fromEntries(
            ['beginPath', 'moveTo', 'lineTo', 'fill', 'roundRect'].map((name) => [name, () => {}]),
        ),
        stroke: count,
        fillRect: count,
        fillText: (text: string) => void texts.push(text),
    };
    return { paper: paper as unknown as Paper, texts };
}

function drawn(keys: readonly [number, number], seconds = 2, at?: Span): string[] {
    const notes = keys.map((key, index) => ({ start: (index * seconds) / 2, duration: seconds / 2, key }));
    const scene = makeScene(makeResult([makeBlock(1, notes)]));
    const layout = layOut(scene, new Set(), 700, 500);
    const { paper, texts } = countingPaper();
    const span = at ? within(at, scene.seconds) : wholeSpan(scene.seconds);
    const sight = { scene, layout, span, tones: LIGHT, hidden: new Set<number>(), scale: 1, scroll: 0 };
    drawBackdrop({ ...sight, paper, accent: '#000', chosen: 0 });
    return texts;
}

describe('the backdrop', () => {
    it('names each octave where there is room', () => {
        expect(drawn([48, 72]).filter((text) => text.startsWith('c'))).toEqual(['c3', 'c4', 'c5']);
    });
    it.each([
        [440_000, 60],
        [44_000_000, 60],
        [-3e38, 3e38],
        [1e20, 1e-10],
        [1e20, 1e20],
    ])('comes to an end with keys %d and %d', (one, other) => {
        const names = drawn([one, other]).filter((text) => text.startsWith('c'));
        expect(names.length).toBeLessThanOrEqual(40);
    });
    it.each([1e12, 1e15, 1e25, 3e38])('comes to an end after %d seconds', (seconds) => {
        expect(drawn([60, 62], seconds).length).toBeGreaterThan(4);
        const end = { from: seconds, to: seconds };
        expect(drawn([60, 62], seconds, end).length).toBeGreaterThan(4);
    });
});
