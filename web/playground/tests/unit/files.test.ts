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
