import { readFileSync } from 'node:fs';
import { inflateSync } from 'node:zlib';
import { beforeAll, describe, expect, it } from 'vitest';
import type { Diagnostic } from 'vorn-wasm';
import { perform } from '../../src/sound/csound/performance';
import { ORCHESTRA_REFUSED } from '../../src/sound/csound/protocol';
import { stillHolding } from '../../src/sound/complaints';
import { orchestraMistakes } from '../../src/sound/orchestra_mistakes';
import type { Piece } from '../../src/state/piece';
import { createAppStore, openPiece } from '../../src/state/app_state';
import { blockingFirst } from '../../src/ui/problems';

let csound: WebAssembly.Module;
beforeAll(async () => {
    csound = await WebAssembly.compile(new Uint8Array(inflateSync(readFileSync('generated/csound.wasm.z'))));
});

const HEAD = 'sr = 44100\nksmps = 32\nnchnls = 1\n0dbfs = 1\n';

// What Csound itself says of it.
async function mistakesIn(body: string, includes: Record<string, string> = {}): Promise<Diagnostic[]> {
    const orchestra = { name: 'x.orc', text: HEAD + body };
    const parts = Object.entries(includes).map(([name, text]) => ({ name, text }));
    const files = new Map(parts.map(({ name, text }) => [name, new TextEncoder().encode(text)]));
    let said = '';
    let refusal = '';
    await perform(csound, { orchestra: orchestra.text, score: 'i1 0 1\ne\n', files }, (text) => {
        said += text;
    }).catch((error: Error) => (refusal = error.message));
    expect(refusal).toBe(ORCHESTRA_REFUSED);
    return orchestraMistakes(said, [orchestra, ...parts], refusal);
}

const marked = (text: string, { place }: Diagnostic): string =>
    place ? `${place.line} ${text.slice(place.from, place.to)}` : 'nowhere';

describe('a mistake of an orchestra', () => {
    it.each([
        ['instr 1\nasound nosuch p4\nendin\n', '6 nosuch', 'unexpected T_IDENT'],
        ['instr 1\n  asound = = p4\nendin\n', '6 =', 'expecting NEWLINE'],
        ['instr 1\nasound poscil .1, 440\nout abound\nendin\n', '7 abound', 'used before defined'],
        ['instr 1\nasound poscil "x"\nendin\n', '6 poscil', 'matching argument types: a poscil S'],
        ['instr 1\n prints "abc\nendin\n', '6 prints "abc', 'unterminated string'],
        ['instr 1\nasound poscil .1, 440\n', '7 ', 'unexpected end of file'],
        ['instr 1\nendin ; no.inc\n#include "no.inc"\n', '7 no.inc', 'annot open'],
        ['instr 1\nendin\ninstr 1\nendin\n', 'nowhere', 'instr 1 redefined'],
    ])('is told where it stands: %j', async (body, mark, words) => {
        const [first] = await mistakesIn(body);
        expect(first && marked(HEAD + body, first)).toBe(mark);
        expect(first?.text).toContain(words);
        expect(first?.text).toMatch(/^[ -~]+$/);
    });
    it.each([
        ['; a\n\n#include "b.inc"\n', '3 b.inc', "cannot open 'b.inc'"],
        ['; a\ninstr 3\n asig nosuch 1\nendin\n', '3 nosuch', 'unexpected T_IDENT'],
        ['; a\n\ninstr 3\nasig poscil "x"\nendin\n', '4 poscil', 'matching argument types: a poscil S'],
        ['instr 3\nout abound\nendin\n', '2 abound', 'used before defined'],
        ['instr 3\n prints "abc\nendin\n', '2 prints "abc', 'unterminated string'],
    ])('is told where it stands in what it includes: %j', async (text, mark, words) => {
        const [first] = await mistakesIn('#include "a.inc"\ninstr 1\nendin\n', { 'a.inc': text });
        expect(first?.place?.file).toBe('a.inc');
        expect(first && marked(text, first)).toBe(mark);
        expect(first?.text).toContain(words);
    });
    it('is told in the innermost file of those that include each other', async () => {
        const inner = '\ninstr 3\nasig nosuch 1\nendin\n';
        const includes = { 'a.inc': '; a\n#include "b.inc"\n', 'b.inc': inner };
        const [first] = await mistakesIn('#include "a.inc"\n', includes);
        expect(first?.place?.file).toBe('b.inc');
        expect(first && marked(inner, first)).toBe('3 nosuch');
    });
    it('that is an include of itself is told as such', async () => {
        const text = '; a\n#include "a.inc"\n';
        const [only, ...others] = await mistakesIn('#include "a.inc"\n', { 'a.inc': text });
        expect(only?.text).toBe("includes of 'a.inc' are nested too deeply");
        expect([only?.place?.file, others]).toEqual(['x.orc', []]);
    });
    it('is told by the refusal where Csound says nothing of it', () => {
        const [only] = orchestraMistakes('', [{ name: 'x.orc', text: '' }], 'Refused.');
        expect(only).toMatchObject({ severity: 'error', text: 'Refused.', place: null });
    });
});

const pieceOf = (score: string, orchestra: string, title = 'x'): Piece => ({
    title,
    files: [
        { name: 'x.vorn', text: score },
        { name: 'x.orc', text: orchestra },
    ],
});

function complaint(file: string, line: number, from: number, to: number): Diagnostic {
    const place = { file, line, endLine: line, column: 1, endColumn: to - from + 1, from, to };
    return { ...orchestraMistakes('', [{ name: file, text: '' }], 'x')[0], place } as Diagnostic;
}

describe('a complaint of Csound', () => {
    const before = pieceOf('one\ntwo\n', 'first\nsecond\nthird\n');
    const ofScore = complaint('x.vorn', 1, 0, 3);
    const ofOrchestra = complaint('x.orc', 2, 6, 12);
    const held = (after: Piece): (readonly [string | undefined, string | undefined])[] =>
        stillHolding([ofScore, ofOrchestra], before, after).map(({ place }) => [
            place?.file,
            after.files.find(({ name }) => name === place?.file)?.text.slice(place?.from, place?.to),
        ]);

    it('holds while the texts are the same', () => {
        expect(held(pieceOf('one\ntwo\n', 'first\nsecond\nthird\n', 'renamed'))).toHaveLength(2);
    });
    it('of the score falls with any edit of the score, which may have mended it', () => {
        expect(held(pieceOf('one\ntwo\n\n', 'first\nsecond\nthird\n'))).toEqual([['x.orc', 'second']]);
    });
    it('of the score falls with an edit of the orchestra, the one of the orchestra stays with its line', () => {
        expect(held(pieceOf('one\ntwo\n', 'first\nsecond\nthird, too\n'))).toEqual([['x.orc', 'second']]);
        expect(held(pieceOf('one\ntwo\n', 'first\nmore\nsecond\nthird\n'))).toEqual([['x.orc', 'second']]);
        expect(held(pieceOf('one\ntwo\n', 'second\nthird\n'))).toEqual([['x.orc', 'second']]);
    });
    it('of the orchestra falls when its line is changed, or goes', () => {
        expect(held(pieceOf('one\ntwo\n', 'first\nsecond!\nthird\n'))).toEqual([]);
        expect(held(pieceOf('one\ntwo\n', 'first\nthird\n'))).toEqual([]);
        expect(held({ title: 'x', files: [{ name: 'x.vorn', text: 'one\ntwo\n' }] })).toEqual([]);
    });
    it('of what the orchestra includes stays with its line there', () => {
        const withPart = (part: string): Piece => {
            const { title, files } = pieceOf('one\n', '#include "part.inc"\n');
            return { title, files: [...files, { name: 'part.inc', text: part }] };
        };
        const ofPart = complaint('part.inc', 2, 6, 12);
        const [moved] = stillHolding([ofPart], withPart('first\nsecond\n'), withPart('new\nfirst\nsecond\n'));
        expect(moved?.place).toMatchObject({ file: 'part.inc', line: 3, from: 10, to: 16 });
        expect(stillHolding([ofPart], withPart('first\nsecond\n'), withPart('first\nother\n'))).toEqual([]);
    });
    it('of a file that is not there falls when it comes', () => {
        const asked = { ...ofOrchestra, text: "cannot open 'a.inc'" };
        const withFileOf = (name: string): Piece => ({
            ...before,
            files: [...before.files, { name, text: '' }],
        });
        expect(stillHolding([asked], before, withFileOf('b.inc'))).toEqual([asked]);
        expect(stillHolding([asked], before, withFileOf('a.inc'))).toEqual([]);
    });
    it('falls when another orchestra plays', () => {
        const both = { ...before, files: [...before.files, { name: 'y.orc', text: 'y' }] };
        expect(stillHolding([ofScore, ofOrchestra], both, { ...both, title: 'z' })).toHaveLength(2);
        expect(stillHolding([ofScore, ofOrchestra], both, { ...both, orchestra: 'y.orc' })).toEqual([]);
    });
    it('is not told of another piece', () => {
        const store = createAppStore();
        store.act('Csound reports', () => ({
            soundDiagnostics: [ofScore],
            soundTrouble: 'x',
            soundText: 'x',
        }));
        openPiece(store, before);
        expect(store.state).toMatchObject({ soundDiagnostics: [], soundTrouble: '', soundText: '' });
    });
});

it('a mistake that stands in the way is told before notes above it', () => {
    const note = { ...complaint('x.vorn', 1, 0, 1), severity: 'lint' as const };
    const warning = { ...complaint('x.vorn', 2, 0, 1), severity: 'warning' as const };
    const mistake = complaint('x.vorn', 3, 0, 1);
    expect(blockingFirst([note, warning, mistake])).toEqual([mistake, note, warning]);
});
