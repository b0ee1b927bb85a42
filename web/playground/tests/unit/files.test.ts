import { beforeEach, describe, expect, it, vi } from 'vitest';

const { told, ways } = vi.hoisted(() => ({ told: [] as string[], ways: [] as (() => void)[] }));
vi.mock('../../src/ui/notices', () => ({
    notice: (text: string, action?: { act: () => void }) => {
        told.push(text);
        if (action) ways.push(action.act);
    },
}));

import { readText } from '../../src/files/decoding';
import { takeFiles } from '../../src/files/open';
import type { Autosave } from '../../src/keep/autosave';
import { BUILT_IN, createAppStore, MIDI, openPiece, type AppStore } from '../../src/state/app_state';
import { orchestraOf } from '../../src/state/orchestras';
import { removeFile } from '../../src/ui/tabs';

const bytesOf = (text: string): Uint8Array => new TextEncoder().encode(text);
const latin = (text: string): Uint8Array<ArrayBuffer> =>
    Uint8Array.from(text, (letter) => letter.charCodeAt(0));

describe('a file', () => {
    beforeEach(() => void told.splice(0));

    it('in UTF-8 is read without a word', () => {
        expect(readText('a.vorn', bytesOf('; ä♪\n'))).toEqual({ name: 'a.vorn', text: '; ä♪\n' });
        expect(told).toEqual([]);
    });
    it('in Latin-1 keeps its letters, and is told of', () => {
        expect(readText('a.vorn', latin('; Größe\r\n'))).toEqual({
            name: 'a.vorn',
            text: '; Größe\n',
            lineEnd: '\r\n',
        });
        expect(told).toHaveLength(1);
        expect(told[0]).toMatch(/^a\.vorn is not UTF-8/);
    });
    it('keeps its byte order mark, of which the engine tells', () => {
        expect(readText('a.vorn', bytesOf('\uFEFFi1\n'))).toEqual({ name: 'a.vorn', text: '\uFEFFi1\n' });
    });
    it.each([
        ['x.inc', true],
        ['x.orc', true],
        ['X.INC', true],
        ['X.ORC', true],
        ['X.VORN', false],
        ['untitled.txt', false],
        ['x.vorn', false],
    ])('of the name %s joins the piece that is there: %s', async (name, joins) => {
        const store = createAppStore();
        const { piece } = store.state;
        const autosave: Autosave = { replace: (other) => openPiece(store, other), remember: () => undefined };
        await takeFiles(store, autosave, [new File(['p2 1\n'], name)]);
        const names = store.state.piece.files.map((file) => file.name);
        expect(names).toEqual(joins ? [...piece.files.map((file) => file.name), name] : [name]);
        await takeFiles(store, autosave, [new File(['p2 2\n'], name)]);
        expect(store.state.piece.files.find((file) => file.name === name)?.text).toBe('p2 2\n');
    });
    it('with an orchestra loses its byte order mark, and is told of', () => {
        expect(readText('a.orc', bytesOf('\uFEFFsr = 44100\n'))).toEqual({
            name: 'a.orc',
            text: 'sr = 44100\n',
        });
        expect(told.join()).toMatch(/^a\.orc began with a byte order mark/);
    });
    it('that is no text changes nothing', async () => {
        const store = createAppStore();
        const { piece } = store.state;
        const autosave: Autosave = { replace: (other) => openPiece(store, other), remember: () => undefined };
        await takeFiles(store, autosave, [new File([latin('MThd\0\0\0\x06')], 'a.mid')]);
        expect(store.state.piece).toBe(piece);
        expect(told.join()).toContain('a.mid is no text');
        await takeFiles(store, autosave, [new File([latin('i1 = 4\r\n')], 'b.vorn')]);
        expect(store.state.piece.files[0]).toEqual({ name: 'b.vorn', text: 'i1 = 4\n', lineEnd: '\r\n' });
    });
});

const drop = async (store: AppStore, files: Record<string, string>): Promise<string[]> => {
    const reasons: string[] = [];
    const autosave: Autosave = {
        replace: (other) => openPiece(store, other),
        remember: (reason) => void reasons.push(reason),
    };
    const given = Object.entries(files).map(([name, text]) => new File([text], name));
    await takeFiles(store, autosave, given);
    return reasons;
};
const playing = ({ state }: AppStore): string | undefined => orchestraOf(state.piece)?.name;

describe('an orchestra that is dropped', () => {
    beforeEach(() => {
        told.splice(0);
        ways.splice(0);
    });

    it('plays from then on, and says so, with a way back', async () => {
        const store = createAppStore();
        await drop(store, { 'x.vorn': 'i1 = 4', 'x.orc': 'one' });
        expect(told).toEqual([]);
        await drop(store, { 'y.orc': 'two' });
        expect([playing(store), store.state.activeFile]).toEqual(['y.orc', 'y.orc']);
        expect(told).toEqual(['y.orc plays from now on.']);
        ways[0]?.();
        expect(playing(store)).toBe('x.orc');
        expect(store.state.piece.files).toHaveLength(3);
    });
    it('plays where one that is made for the piece played, which the way back leads to', async () => {
        const store = createAppStore();
        await drop(store, { 'x.vorn': 'i1 = 4' });
        await drop(store, { 'y.orc': 'one' });
        expect(told).toEqual(['y.orc plays from now on.']);
        ways[0]?.();
        expect(store.state.output).toBe(BUILT_IN);
        await drop(store, { 'z.orc': 'two' });
        expect([store.state.output, playing(store)]).toEqual(['orchestra', 'z.orc']);
    });
    it('does not play where another one includes it, nor says a word', async () => {
        const store = createAppStore();
        await drop(store, { 'x.vorn': 'i1 = 4', 'x.orc': '#include "part.orc"\n' });
        await drop(store, { 'part.orc': 'one' });
        expect([playing(store), told]).toEqual(['x.orc', []]);
    });
    it('leads back to nothing in another piece', async () => {
        const store = createAppStore();
        await drop(store, { 'x.vorn': 'i1 = 4', 'x.orc': 'one' });
        await drop(store, { 'y.orc': 'two' });
        await drop(store, { 'z.vorn': 'i1 = 5' });
        const { piece } = store.state;
        ways[0]?.();
        expect(store.state.piece).toBe(piece);
    });
    it('with a score and others is the one of its name, and the choice is told', async () => {
        const store = createAppStore();
        await drop(store, { 'x.VORN': 'i1 = 4', 'x.ORC': 'one', 'y.orc': 'two' });
        expect([store.state.piece.title, playing(store)]).toEqual(['x', 'x.ORC']);
        expect(told.join()).toContain('Of 2 orchestras x.ORC plays');
    });
    it('with others is nothing to tell of where MIDI plays', async () => {
        const store = createAppStore();
        store.act('choose output', () => ({ output: MIDI }));
        await drop(store, { 'x.vorn': 'i1 = 4', 's.orc': 'one', 't.orc': 'two' });
        expect([store.state.output, told]).toEqual([MIDI, []]);
    });
    it('and is taken out leaves the sound to another one, which is told, and comes back', async () => {
        const store = createAppStore();
        await drop(store, { 'x.vorn': 'i1 = 4', 'x.orc': 'one' });
        await drop(store, { 'y.orc': 'two' });
        const { piece } = store.state;
        removeFile(store, 'y.orc');
        expect(told.at(-1)).toBe('y.orc has been taken out. x.orc plays from now on.');
        ways.at(-1)?.();
        expect(store.state.piece).toEqual(piece);
    });
});

it('a Csound document opens as a score and an orchestra, whatever the letters of its suffix', async () => {
    const store = createAppStore();
    await drop(store, {
        'X.CSD':
            '<CsInstruments>\n\uFEFFinstr 1\n</CsInstruments>\n<CsScore bin="vorn">\ni1 = 4\n</CsScore>\n',
    });
    expect(store.state.piece.files).toEqual([
        { name: 'X.vorn', text: 'i1 = 4\n' },
        { name: 'X.orc', text: 'instr 1\n' },
    ]);
});

it('what a file of the same name held goes to the history', async () => {
    const store = createAppStore();
    await drop(store, { 'x.vorn': 'i1 = 4', 'x.inc': 'one' });
    expect(await drop(store, { 'x.inc': 'one' })).toEqual([]);
    expect(await drop(store, { 'x.inc': 'two' })).toEqual(['before a file was opened']);
});
