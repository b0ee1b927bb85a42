import { afterEach, beforeEach, describe, expect, it, vi } from 'vitest';

const { kept } = vi.hoisted(() => ({ kept: [] as string[] }));
vi.mock('../../src/keep/storage', () => ({
    keep: ({ piece }: { piece: { title: string } }) => Promise.resolve(void kept.push(piece.title)),
    keepAtOnce: () => undefined,
    remember: () => Promise.resolve(),
}));

import { startAutosave } from '../../src/keep/autosave';
import { createAppStore } from '../../src/state/app_state';

describe('what is written is kept', () => {
    beforeEach(() => {
        kept.length = 0;
        vi.useFakeTimers();
        vi.stubGlobal('addEventListener', () => undefined);
        vi.stubGlobal('document', { addEventListener: () => undefined });
    });
    afterEach(() => {
        vi.useRealTimers();
        vi.unstubAllGlobals();
    });

    const write = (times: number, pause: number): void => {
        const store = createAppStore();
        startAutosave(store);
        for (let key = 0; key < times; key++) {
            store.act('rename', ({ piece }) => ({ piece: { ...piece, title: String(key) } }));
            vi.advanceTimersByTime(pause);
        }
    };

    it('after a pause, once', () => {
        write(5, 50);
        expect(kept).toEqual([]);
        vi.advanceTimersByTime(200);
        expect(kept).toEqual(['4']);
    });
    it('each second while there is no pause', () => {
        write(40, 100);
        expect(kept).toEqual(['9', '19', '29', '39']);
    });
    it('with its lock, though no text has changed', () => {
        const store = createAppStore();
        startAutosave(store);
        store.act('lock seed', () => ({ seedIsLocked: true }));
        vi.advanceTimersByTime(200);
        expect(kept).toEqual(['untitled']);
    });
});
