import { beforeAll, describe, expect, it } from 'vitest';
import { loadVorn } from '../src/node.js';
import type { Diagnostic, Fix, Vorn } from '../src/types.js';

// What a compilation tells beside the files of the command.

let vorn: Vorn;

beforeAll(async () => {
    vorn = await loadVorn(new URL('../dist/vorn.wasm', import.meta.url));
});

const PIECE = `#const LOUD 8000 ; 1..20000
i1 = 5 0 4 {
p2 re .5
p3 re .9
p4(op) no < c4 e4 g4 c5 >
p5 re ~LOUD x4 4000 }
`;

function applied(text: string, fix: Fix): string {
    return [...fix.edits]
        .sort((a, b) => b.place.from - a.place.from)
        .reduce(
            (mended, { place, replacement }) =>
                mended.slice(0, place.from) + replacement + mended.slice(place.to),
            text,
        );
}

function firstDiagnostic(text: string): Diagnostic {
    const [diagnostic] = vorn.compile({ 'piece.vorn': text }).diagnostics;
    if (diagnostic === undefined) throw new Error(`nothing is said of ${text}`);
    return diagnostic;
}

describe('events', () => {
    it('are tables of typed arrays, a column for each p-field', () => {
        const { blocks, eventCount, seconds } = vorn.compile({ 'piece.vorn': PIECE });
        expect(eventCount).toBe(8);
        expect(seconds).toBeCloseTo(3.95, 5); // the last note starts at 3.5 and sounds for .9 of .5
        const [block] = blocks;
        expect([...(block?.events.exactStart ?? [])]).toEqual([0, 0.5, 1, 1.5, 2, 2.5, 3, 3.5]);
        expect([...(block?.events.beat ?? [])]).toEqual([0, 0.5, 1, 1.5, 2, 2.5, 3, 3.5]);
        expect([...(block?.events.columns[1] ?? [])]).toEqual([
            8000, 8000, 8000, 8000, 4000, 4000, 4000, 4000,
        ]);
        expect([...(block?.events.keys ?? [])]).toEqual([60, 64, 67, 72, 60, 64, 67, 72]);
        expect(block?.events.levels[4]).toBeCloseTo(20 * Math.log10(4000 / 32767), 3);
        expect(block?.fields.map(({ role }) => role)).toEqual(['start', 'duration', 'pitch', 'level']);
    });

    it('are left out where nobody wants them', () => {
        expect(vorn.compile({ 'piece.vorn': PIECE }, { events: false }).eventCount).toBe(0);
    });

    it('follow the tempo, which is told over time', () => {
        const { tempo, seconds } = vorn.compile({ 'piece.vorn': `te(0 4 60 120)\n${PIECE}` });
        expect(tempo.moves).toBe(true);
        expect(tempo.tempos[0]).toBeCloseTo(60, 3);
        expect(tempo.tempos.at(-1)).toBeGreaterThan(110);
        expect(tempo.seconds.at(-1)).toBeCloseTo(seconds, 6);
        expect(vorn.compile({ 'piece.vorn': PIECE }).tempo.moves).toBe(false);
    });
});

describe('places', () => {
    it('count as strings do, also behind characters of several bytes', () => {
        const text = `; ♩ = 60 𝄞\n${PIECE}`.replace('8000', '8000 ; é\n').replace('4000', '40q');
        const { place } = firstDiagnostic(text);
        expect(place && text.slice(place.from, place.to)).toMatch(/^q|^40q/);
    });

    it('tell where constants, macros and headers stand', () => {
        const text = `#define NOTE #c4#\n${PIECE}`;
        const { constants, macros, blocks } = vorn.compile({ 'piece.vorn': text });
        const shown = (place: { from: number; to: number } | null | undefined): string =>
            place ? text.slice(place.from, place.to) : 'nowhere';
        expect(shown(constants[0]?.place)).toBe('8000');
        expect(constants[0]).toMatchObject({ name: 'LOUD', value: 8000, calls: 1 });
        expect(text.slice(macros[0]?.place?.from)).toMatch(/^c4#/);
        expect(shown(blocks[0]?.header)).toBe('i');
        expect(blocks[0]?.fields.map(({ statement }) => shown(statement))).toEqual(['p', 'p', 'p', 'p']);
    });

    it('name the included file', () => {
        const files = {
            'piece.vorn': '#include |part.vorn|\n',
            'part.vorn': `\n${PIECE.replace('.9', '.9 q')}`,
        };
        const [diagnostic] = vorn.compile(files).diagnostics;
        expect(diagnostic?.place).toMatchObject({ file: 'part.vorn', line: 5 });
        expect(vorn.compile({ 'piece.vorn': '#include |lost.vorn|\n' }).missing).toEqual(['lost.vorn']);
    });

    it('refuse a file that is still being read, by whatever name', () => {
        for (const name of ['piece.vorn', './piece.vorn']) {
            const files = { 'piece.vorn': `#include |part.vorn|\n`, 'part.vorn': `#include |${name}|\n` };
            const [diagnostic] = vorn.compile(files).diagnostics;
            expect(diagnostic?.code).toBe('Enames');
            expect(diagnostic?.place?.file).toBe('part.vorn');
        }
        const again = '#include |part.vorn|\n#include |part.vorn|\n';
        expect(vorn.compile({ 'piece.vorn': again + PIECE, 'part.vorn': '; nothing\n' }).status).toBe(0);
    });

    it('lead from a line to what it became', () => {
        vorn.compile({ 'piece.vorn': PIECE });
        expect(vorn.expandedLines('piece.vorn', 6)).toEqual(['p5 re 8000.000 x4 4000 }']);
        expect(vorn.expandedLines('piece.vorn', 99)).toEqual([]);
    });
});

describe('fixes', () => {
    const cures: readonly (readonly [string, string, string])[] = [
        ['a decimal comma', '0 4 {', '0 4,5 {'],
        ['another name of b flat', 'c5 >', 'bb4 >'],
        ['a missing "no"', 'no < c4 e4 g4 c5 >', 'c4 e4 g4 c5'],
    ];
    for (const [name, right, wrong] of cures) {
        it(`cure ${name}`, () => {
            const text = PIECE.replace(right, wrong);
            const found = vorn.compile({ 'piece.vorn': text }).diagnostics.find(({ fix }) => fix !== null);
            expect(found?.fix?.title).toBeTruthy();
            const mended = found?.fix ? applied(text, found.fix) : text;
            const after = vorn.compile({ 'piece.vorn': mended });
            expect(after.status, mended).toBe(0);
            expect(after.diagnostics.filter(({ fix }) => fix !== null)).toEqual([]);
        });
    }
});

describe('seeds', () => {
    const DRAWN = PIECE.replace('< c4 e4 g4 c5 >', 'ra(T 1 [c4 c6])');

    it('take the place of the one that is written', () => {
        const written = vorn.compile({ 'piece.vorn': `rs(7)\n${DRAWN}` });
        const given = vorn.compile({ 'piece.vorn': `rs(5)\n${DRAWN}` }, { seed: 7 });
        expect(given.score).toEqual(written.score);
        expect(written.seed).toMatchObject({ value: 7, place: { line: 1, column: 4 } });
        expect(vorn.compile({ 'piece.vorn': DRAWN }, { seed: 7 }).score).toEqual(written.score);
    });

    it('outside their range are refused', () => {
        expect(() => vorn.compile({ 'piece.vorn': DRAWN }, { seed: 65536 })).toThrow(RangeError);
        expect(() => vorn.compile({ 'piece.vorn': DRAWN }, { seed: 1.5 })).toThrow(RangeError);
    });
});

describe('outputs', () => {
    it('are what was asked for', () => {
        const outputs = ['midi', 'fullMidi', 'picture', 'json', 'csv', 'builtIn', 'expansion'] as const;
        const result = vorn.compile({ 'piece.vorn': PIECE }, { outputs });
        const text = (bytes: Uint8Array | undefined): string => Buffer.from(bytes ?? []).toString('latin1');
        expect(result.score).toBeUndefined();
        expect(text(result.midi).slice(0, 4)).toBe('MThd');
        expect(text(result.fullMidi).slice(0, 4)).toBe('MThd');
        expect(result.picture).toMatch(/^<\?xml.*<svg/s);
        expect(JSON.parse(text(result.json))).toMatchObject({ score: 'piece.vorn', status: 0 });
        expect(text(result.csv).split('\n')).toHaveLength(8 + 2);
        expect(result.builtIn?.orchestra).toContain('instr');
        expect(text(result.expansion)).toContain('p5 re 8000.000 x4 4000');
        expect(vorn.run({ a: PIECE }, ['-m', 'a', 'b']).files['b']).toEqual(result.midi);
    });

    it('never write over a file of the caller', () => {
        const files = { 'piece.vorn': '#include |piece.sco|\n', 'piece.sco': PIECE };
        expect(vorn.compile(files)).toMatchObject({ status: 0, eventCount: 8 });
    });
});

describe('words and explanations', () => {
    it('are those of the engine', () => {
        expect(vorn.explain('e27')?.title).toBe('Data is out of bounds.');
        expect(vorn.explain('E9999')).toBeNull();
        expect(vorn.explanations().length).toBeGreaterThan(80);
        expect(vorn.words().find(({ word, kind }) => word === 'mo' && kind === 'generator')).toBeTruthy();
    });
});

describe('what Csound said', () => {
    it('is about blocks', () => {
        vorn.compile({ 'piece.vorn': PIECE });
        const said =
            'SECTION 1:\nB  0.000 ..  0.500 T  0.500 TT  0.500 M:  1.50000\nend of score.\t\t   overall amps:  1.5\n';
        expect(vorn.performance(said)).toMatchObject({ hasStarted: true });
        expect(vorn.performance('').diagnostics).toEqual([]);
    });
});
