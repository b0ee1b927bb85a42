import { beforeEach, describe, expect, it, vi } from 'vitest';

// The browser's store, as one map for each of its names.
const { stores } = vi.hoisted(() => ({ stores: new Map<string, Map<unknown, unknown>>() }));
vi.mock('idb-keyval', () => ({
    createStore: (name: string) => {
        const store = stores.get(name) ?? new Map<unknown, unknown>();
        stores.set(name, store);
        return store;
    },
    get: (key: unknown, store: Map<unknown, unknown>) => Promise.resolve(store.get(key)),
    set: (key: unknown, value: unknown, store: Map<unknown, unknown>) =>
        Promise.resolve(void store.set(key, value)),
    del: (key: unknown, store: Map<unknown, unknown>) => Promise.resolve(void store.delete(key)),
    entries: (store: Map<unknown, unknown>) => Promise.resolve([...store]),
}));

import { createAppStore, openPiece } from '../../src/state/app_state';
import { history, keep, recall, remember, type Kept } from '../../src/keep/storage';

const written = (text: string, window: string): Kept => ({
    time: 1,
    window,
    piece: { title: 'x', files: [{ name: 'x.vorn', text }] },
    keptSeeds: [],
    seedIsLocked: false,
});
const texts = async (): Promise<(string | undefined)[]> =>
    (await history()).map(({ piece }) => piece.files[0]?.text);

describe('what is kept', () => {
    beforeEach(() => stores.forEach((store) => store.clear()));

    it('is the last state, and no history, while one window writes', async () => {
        await keep(written('one', 'a'));
        await keep(written('two', 'a'));
        expect((await recall())?.piece.files[0]?.text).toBe('two');
        expect(await texts()).toEqual([]);
    });
    it('goes to the history before another window puts its own there', async () => {
        await keep(written('of a', 'a'));
        await keep(written('of b', 'b'));
        expect((await recall())?.piece.files[0]?.text).toBe('of b');
        expect(await texts()).toEqual(['of a']);
    });
    it('is not told twice in the history', async () => {
        await remember(written('one', 'a'), 'first');
        await remember(written('one', 'b'), 'second');
        expect(await texts()).toEqual(['one']);
    });
    it('holds the lock of the seed, which belongs to its piece', async () => {
        const store = createAppStore();
        await keep({ ...written('locked', 'a'), seedIsLocked: true });
        const kept = await recall();
        if (kept) openPiece(store, kept.piece, kept);
        expect(store.state).toMatchObject({ seedIsLocked: true, piece: { title: 'x' } });
        openPiece(store, { title: 'other', files: [{ name: 'other.vorn', text: '' }] });
        expect(store.state.seedIsLocked).toBe(false);
    });
    it('has the lines of the editor, however old it is', async () => {
        stores.get('vorn-playground-history')?.set(1, { ...written('a\r\nb', 'a'), id: 1, reason: 'x' });
        expect(await texts()).toEqual(['a\nb']);
    });
    it('is there when it was written before windows had names', async () => {
        const { time, piece, keptSeeds } = written('old', '');
        stores.get('vorn-playground')?.set('current', { time, piece, keptSeeds });
        expect((await recall())?.piece.files[0]?.text).toBe('old');
    });
});
