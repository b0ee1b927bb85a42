import { beforeEach, describe, expect, it, vi } from 'vitest';

const { told } = vi.hoisted(() => ({ told: [] as string[] }));
vi.mock('../../src/ui/notices', () => ({ notice: (text: string) => void told.push(text) }));

import { readText } from '../../src/files/decoding';
import { takeFiles } from '../../src/files/open';
import type { Autosave } from '../../src/keep/autosave';
import { createAppStore, openPiece } from '../../src/state/app_state';

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
