import { describe, expect, it, vi } from 'vitest';
import {
    isSamePiece,
    orchestraOf,
    sourcesOf,
    textFile,
    toPiece,
    withFile,
    withoutFile,
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

describe('a text from elsewhere', () => {
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
