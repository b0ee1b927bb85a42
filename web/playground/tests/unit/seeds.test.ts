import { describe, expect, it } from 'vitest';
import { aboutOf } from '../../src/gallery/examples';
import { rolledSeed } from '../../src/seeds/seeds';
import { findSliders, sliderEdit } from '../../src/seeds/sliders';
import type { Piece } from '../../src/state/piece';
import { makeResult } from './results';

const slidersOf = (line: string, value: string): ReturnType<typeof findSliders> => {
    const piece: Piece = { title: 'x', files: [{ name: 'x.vorn', text: line }] };
    const from = line.indexOf(value);
    const place = {
        file: 'x.vorn',
        line: 1,
        column: 1,
        endLine: 1,
        endColumn: 1,
        from,
        to: from + value.length,
    };
    return findSliders(piece, makeResult([], { constants: [{ name: 'X', value: 0, place, calls: 0 }] }));
};

describe('a slider', () => {
    it.each([
        ['#const X 4 ; 1..20\n', '4', [1, 20, 1]],
        ['#const X -1.5 ;-2 .. 2', '-1.5', [-2, 2, 0.02]],
        ['#const X .5 ; 0..1 .05', '.5', [0, 1, 0.05]],
        ['#const X 4 ; density 1..20', '4', undefined],
        ['#const X 4\n; 1..20', '4', undefined],
        ['#const X 4 ; 20..1', '4', undefined],
        ['#const X A ; 1..20', 'A', undefined],
    ])('of %j', (line, value, expected) => {
        const [slider] = slidersOf(line, value);
        expect(slider && [slider.low, slider.high, slider.step]).toEqual(expected);
    });
    it('writes its value in the place of the old one, with as many digits as its step', () => {
        const [slider] = slidersOf('#const X .5 ; 0..1 .05', '.5');
        expect(slider && sliderEdit(slider, 0.15000000000000002)).toEqual({
            file: 'x.vorn',
            from: 9,
            to: 11,
            insert: '0.15',
        });
    });
});

describe('the die', () => {
    it('rolls all seeds, and never the same twice', () => {
        expect([0, 0.5, 0.99999999].map((random) => rolledSeed(7, () => random))).toEqual([0, 32768, 65535]);
        expect(rolledSeed(65535, () => 0.99999999)).toBe(0);
    });
});

describe('the words of an example', () => {
    it.each([
        ['; A canon: three voices. More.\n; x', 'Three voices.'],
        ['; One line\n; and another. Not this.\ni1', 'One line and another.'],
        ['i1 = 3', ''],
    ])('%j', (text, about) => {
        expect(aboutOf(text)).toBe(about);
    });
});
