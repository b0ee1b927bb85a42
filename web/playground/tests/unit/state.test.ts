import { describe, expect, it, vi } from 'vitest';
import { missingPartsOf, orchestraOf, withNewOrchestra } from '../../src/state/orchestras';
import {
    hasSuffix,
    isOrchestra,
    isSamePiece,
    sourcesOf,
    textFile,
    toPiece,
    withFile,
    withFileOf,
    withoutFile,
    withoutSuffix,
    withText,
    writtenSourcesOf,
    writtenText,
    type Piece,
} from '../../src/state/piece';
import { createStore } from '../../src/state/store';

const piece: Piece = {
    title: 'x',
    files: [
        { name: 'x.vorn', text: 'one' },
        { name: 'x.orc', text: 'two' },
        { name: 'x.inc', text: 'three' },
    ],
};

describe('a piece', () => {
    it('gives the engine its score and includes, not its orchestra', () => {
        expect(sourcesOf(piece)).toEqual({ 'x.vorn': 'one', 'x.inc': 'three' });
    });
    it('has no orchestra when that is blank', () => {
        expect(orchestraOf(piece)?.text).toBe('two');
        expect(orchestraOf(withFile(piece, { name: 'x.orc', text: ' \n' }))).toBeUndefined();
    });
    it('keeps its score whatever is taken out', () => {
        expect(withoutFile(piece, 'x.vorn').files).toHaveLength(3);
        expect(withoutFile(piece, 'x.inc').files).toHaveLength(2);
    });
    it('is the same piece when names and texts are', () => {
        expect(isSamePiece(piece, { ...piece, files: piece.files.map((file) => ({ ...file })) })).toBe(true);
        expect(isSamePiece(piece, withFile(piece, { name: 'x.inc', text: 'four' }))).toBe(false);
    });
});

const withOrchestras = (...files: [name: string, text: string][]): Piece => ({
    title: 'x',
    files: [{ name: 'x.vorn', text: '' }, ...files.map(([name, text]) => ({ name, text }))],
});

describe('of several orchestras', () => {
    const two = withOrchestras(['a.orc', 'a'], ['b.orc', 'b']);
    const wholeAndPart = withOrchestras(['drums.orc', 'd'], ['main.orc', ' #include "drums.orc"\n']);
    const inCircle = withOrchestras(['a.orc', '#include "b.orc"'], ['b.orc', '#include "a.orc"']);

    it('the one that was chosen plays, or else the first', () => {
        expect(orchestraOf(two)?.name).toBe('a.orc');
        expect(orchestraOf({ ...two, orchestra: 'b.orc' })?.name).toBe('b.orc');
        expect(orchestraOf({ ...two, orchestra: 'gone.orc' })?.name).toBe('a.orc');
        expect(orchestraOf(withText({ ...two, orchestra: 'b.orc' }, 'b.orc', ' '))?.name).toBe('a.orc');
    });
    it('one that another one includes plays only when it was chosen', () => {
        expect(orchestraOf(wholeAndPart)?.name).toBe('main.orc');
        expect(orchestraOf({ ...wholeAndPart, orchestra: 'drums.orc' })?.name).toBe('drums.orc');
        expect(orchestraOf(inCircle)?.name).toBe('a.orc');
    });
    it.each([
        [['b.orc'], 'b.orc'],
        [['a.orc', 'b.orc'], 'b.orc'],
        [['a.orc', 'b.orc', 'X.ORC'], 'X.ORC'],
        [['part.orc'], undefined],
        [['blank.orc'], undefined],
        [['x.inc'], undefined],
    ])('%j make the choice %s', (names, chosen) => {
        const piece = withOrchestras(
            ['a.orc', '#include "part.orc"\n'],
            ['b.orc', 'b'],
            ['X.ORC', 'x'],
            ['part.orc', 'p'],
            ['blank.orc', ' '],
            ['x.inc', ''],
        );
        const added = piece.files.filter(({ name }) => names.includes(name));
        expect(withNewOrchestra({ ...piece, files: piece.files.map((one) => one) }, added).orchestra).toBe(
            chosen,
        );
    });
    it('the choice is kept with the piece, where it is one', () => {
        expect(toPiece({ ...two, orchestra: 'b.orc' })).toEqual({ ...two, orchestra: 'b.orc' });
        for (const orchestra of ['x.vorn', 'gone.orc', 3])
            expect(toPiece({ ...two, orchestra })).toEqual(two);
        expect(isSamePiece(two, { ...two, orchestra: 'b.orc' })).toBe(false);
    });
    it('what the one that plays includes may be missing', () => {
        const text = '#include "a.inc"\n#include "b.inc"\n#include "b.inc"\n';
        const piece = withOrchestras(
            ['a.orc', text],
            ['a.inc', ' #include |c.inc|'],
            ['b.orc', '#include "d.inc"'],
        );
        expect(missingPartsOf(piece)).toEqual(['b.inc', 'c.inc']);
        expect(missingPartsOf({ ...piece, orchestra: 'b.orc' })).toEqual(['d.inc']);
    });
    it('one that was taken out comes back to its place', () => {
        expect(withFileOf(two, withoutFile(two, 'a.orc'), 'a.orc')).toEqual(two);
        expect(withFileOf(two, two, 'a.orc')).toBe(two);
    });
});

describe('a name', () => {
    it('has a suffix in whatever letters', () => {
        expect(['x.orc', 'X.ORC', 'x.Orc'].map(isOrchestra)).toEqual([true, true, true]);
        expect([hasSuffix('A.VORN', '.vorn'), hasSuffix('vorn', '.vorn')]).toEqual([true, false]);
        expect(['A.VORN', 'a.b.vorn', '.orc', 'x', 'a.d/x'].map(withoutSuffix)).toEqual([
            'A',
            'a.b',
            '.orc',
            'x',
            'a.d/x',
        ]);
    });
});

describe('a text from elsewhere', () => {
    it('has no byte order mark where it is an orchestra, which Csound would refuse', () => {
        expect(textFile('X.ORC', '\uFEFFsr = 44100\n').text).toBe('sr = 44100\n');
        expect(textFile('x.vorn', '\uFEFFi1\n').text).toBe('\uFEFFi1\n');
    });
    it.each([
        ['a\r\nb\r\n', 'a\nb\n', 'c\r\n'],
        ['a\rb\r', 'a\nb\n', 'c\r'],
        ['a\nb\n', 'a\nb\n', 'c\n'],
        ['a', 'a', 'c\n'],
        ['a\nb\r\n', 'a\nb\n', 'c\n'],
    ])('%j has the lines that the editor has, and its own when it is written', (written, text, changed) => {
        const file = textFile('x.inc', written);
        expect(file.text).toBe(text);
        const edited = withText({ title: 'x', files: [file] }, 'x.inc', 'c\n').files[0];
        expect(edited && writtenText(edited)).toBe(changed);
    });
    it('keeps what its lines ended with when it is stored and read again', () => {
        const [file] = toPiece({ title: 'x', files: [{ name: 'x.vorn', text: 'a\r\nb\r\n' }] })?.files ?? [];
        const again = toPiece(JSON.parse(JSON.stringify({ title: 'x', files: [file] })));
        expect(again?.files).toEqual([{ name: 'x.vorn', text: 'a\nb\n', lineEnd: '\r\n' }]);
        expect(again && [sourcesOf(again), writtenSourcesOf(again)]).toEqual([
            { 'x.vorn': 'a\nb\n' },
            { 'x.vorn': 'a\r\nb\r\n' },
        ]);
    });
});

describe('the store', () => {
    it('tells who watches a slice only of its changes', () => {
        const store = createStore({ a: 1, b: 1 });
        const told = vi.fn();
        const stop = store.watch((state) => state.a, told);
        store.act('b', () => ({ b: 2 }));
        store.act('a', () => ({ a: 2 }));
        stop();
        store.act('a', () => ({ a: 3 }));
        expect(told.mock.calls).toEqual([[2]]);
    });
});
