// What the browser keeps for the composer: the piece at hand, and a history of older states. The piece is
// written a moment after each change; when the page is left it is written at once, in the only way that
// is over before the page is, which holds less; a longer piece is handed over to be written behind it.
import { createStore, del, entries, get, set, type UseStore } from 'idb-keyval';
import { isSamePiece, toPiece, type Piece } from '../state/piece';
import type { KeptSeed, Seeds } from '../state/app_state';

export interface Kept extends Seeds {
    readonly time: number; // milliseconds since 1970
    readonly window: string; // which wrote it
    readonly piece: Piece;
}

export interface Moment extends Kept {
    readonly id: number;
    readonly reason: string;
}

const LAST_BREATH = 'vorn-playground-piece';
const MOST_MOMENTS = 60;
const CURRENT = 'current';

let pieces: UseStore | undefined;
let moments: UseStore | undefined;
const pieceStore = (): UseStore => (pieces ??= createStore('vorn-playground', 'pieces'));
const momentStore = (): UseStore => (moments ??= createStore('vorn-playground-history', 'moments'));

function toSeeds(value: unknown): KeptSeed[] {
    if (!Array.isArray(value)) return [];
    return value.filter(
        (seed: Partial<KeptSeed>) =>
            Number.isInteger(seed?.value) &&
            typeof seed?.picture === 'string' &&
            seed.picture.startsWith('data:'),
    ) as KeptSeed[];
}

function toKept(value: unknown): Kept | undefined {
    const { time, window, piece, keptSeeds, seedIsLocked } = (value ?? {}) as {
        readonly [Part in keyof Kept]?: unknown;
    };
    const texts = toPiece(piece);
    if (typeof time !== 'number' || !texts) return undefined;
    return {
        time,
        window: String(window ?? ''),
        piece: texts,
        keptSeeds: toSeeds(keptSeeds),
        seedIsLocked: seedIsLocked === true,
    };
}

// Storage may be full or forbidden: the page goes on without.
async function attempt<Value>(what: () => Promise<Value>): Promise<Value | undefined> {
    try {
        return await what();
    } catch {
        return undefined;
    }
}

const current = async (): Promise<Kept | undefined> =>
    toKept(await attempt(() => get<unknown>(CURRENT, pieceStore())));

// All windows share one place: what another one has put there goes to the history before it is overwritten.
export async function keep(kept: Kept): Promise<void> {
    const before = await current();
    if (before && before.window !== kept.window && !isSamePiece(before.piece, kept.piece))
        await remember(before, 'from another window or visit');
    await attempt(() => set(CURRENT, kept, pieceStore()));
}

// What has been committed is written though the page is gone.
const handOver = (kept: Kept): Promise<void> =>
    pieceStore()('readwrite', (store) => {
        store.put(kept, CURRENT);
        store.transaction.commit();
    });

export function keepAtOnce(kept: Kept): void {
    try {
        localStorage.setItem(LAST_BREATH, JSON.stringify(kept));
    } catch {
        localStorage.removeItem(LAST_BREATH);
        void attempt(() => handOver(kept));
    }
}

function lastBreath(): Kept | undefined {
    try {
        return toKept(JSON.parse(localStorage.getItem(LAST_BREATH) ?? 'null'));
    } catch {
        return undefined;
    }
}

// The newer of the two.
export async function recall(): Promise<Kept | undefined> {
    const kept = await current();
    const breath = lastBreath();
    return breath && breath.time > (kept?.time ?? 0) ? breath : kept;
}

export async function history(): Promise<Moment[]> {
    const all = (await attempt(() => entries<number, Moment>(momentStore()))) ?? [];
    const moments = all.map(([, { id, reason, ...kept }]) => ({ id, reason, ...toKept(kept) }));
    return moments.filter((moment) => 'piece' in moment).sort((a, b) => b.id - a.id) as Moment[];
}

export async function remember(kept: Kept, reason: string): Promise<void> {
    const all = await history();
    if (all[0] && isSamePiece(all[0].piece, kept.piece)) return;
    const id = Math.max(Date.now(), (all[0]?.id ?? 0) + 1);
    await attempt(() => set(id, { ...kept, id, reason }, momentStore()));
    for (const old of all.slice(MOST_MOMENTS - 1)) await attempt(() => del(old.id, momentStore()));
}
