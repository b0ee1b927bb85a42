import { afterEach, describe, expect, it } from 'vitest';
import { connectVorn, type WorkerLike } from '../src/client.js';
import { loadVorn } from '../src/node.js';
import type { Answering, Asking } from '../src/protocol.js';
import { serve } from '../src/serve.js';
import type { VornClient } from '../src/types.js';

// The page's side of a Worker. The Worker here runs in the same thread, behind a turn of the
// clock; one that is stuck answers nothing once it has begun.

const SMALL = new URL('../dist/vorn-small.wasm', import.meta.url);
const WHOLE = new URL('../dist/vorn.wasm', import.meta.url);
const PIECE = 'i1 = 4 0 4 {\np2 re .5\np3 re .9\np4 60\n}\n';
const STUCK = '; for ever\n';

class LocalWorker implements WorkerLike {
    static begun = 0;
    static ended = 0;
    static loading: Promise<unknown> = Promise.resolve();
    onmessage: ((event: MessageEvent<Answering>) => void) | null = null;
    onerror: ((event: ErrorEvent) => void) | null = null;
    private readonly engines = {
        small: LocalWorker.loading.then(() => loadVorn(SMALL)),
        whole: () => loadVorn(WHOLE),
    };
    private readonly handle = serve(this.engines, (message) => {
        this.onmessage?.({ data: structuredClone(message) } as MessageEvent<Answering>);
    });

    constructor() {
        ++LocalWorker.begun;
    }

    postMessage(message: Asking): void {
        const [files] = message.args as [Record<string, string> | undefined];
        if (files?.['a'] === STUCK) {
            const begun = { id: message.id, isBegun: true } as const;
            queueMicrotask(() => this.onmessage?.({ data: begun } as MessageEvent<Answering>));
            return;
        }
        void this.handle(structuredClone(message));
    }

    terminate(): void {
        ++LocalWorker.ended;
    }
}

let client: VornClient;

function connect(): VornClient {
    LocalWorker.begun = LocalWorker.ended = 0;
    client = connectVorn(() => new LocalWorker());
    return client;
}

afterEach(() => {
    client.close();
});

describe('a client', () => {
    it('gets the results of the engine, typed arrays among them', async () => {
        const result = await connect().compile({ a: PIECE });
        expect(result.blocks[0]?.events.start).toEqual(Float32Array.of(0, 0.5, 1, 1.5, 2, 2.5, 3, 3.5));
        expect(await client.expandedLines('a', 1)).toEqual(['i1 = 4 0 4 {']);
        expect((await client.explain('E27'))?.code).toBe('E27');
        expect(LocalWorker.begun).toBe(1);
    });

    it('turns to the whole engine for what the small one cannot make', async () => {
        const result = await connect().compile({ a: PIECE }, { outputs: ['score', 'csv', 'picture'] });
        expect(Buffer.from(result.csv ?? []).toString()).toContain('1,1,a,1,0');
        expect(result.picture).toContain('<svg');
        expect(result.score).toEqual((await client.compile({ a: PIECE })).score);
        expect(await client.expandedLines('a', 1)).toEqual(['i1 = 4 0 4 {']);
        expect((await client.words()).length).toBeGreaterThan(100);
    });

    it('ends a Worker that takes too long, and goes on with a new one', async () => {
        const late = connect().compile({ a: STUCK }, {}, { deadline: 20 });
        const behind = client.compile({ a: PIECE });
        await expect(late).rejects.toMatchObject({ name: 'VornError', reason: 'deadline' });
        expect((await behind).eventCount).toBe(8);
        expect([LocalWorker.begun, LocalWorker.ended]).toEqual([2, 1]);
    });

    it('counts a deadline from when the engine has been loaded', async () => {
        LocalWorker.loading = new Promise((resolve) => setTimeout(resolve, 1500));
        const result = await connect().compile({ a: PIECE }, {}, { deadline: 1000 });
        LocalWorker.loading = Promise.resolve();
        expect(result.eventCount).toBe(8);
        expect(LocalWorker.ended).toBe(0);
    });

    it('ends a Worker whose work nobody wants any more', async () => {
        const controller = new AbortController();
        const unwanted = connect().compile({ a: STUCK }, {}, { signal: controller.signal });
        controller.abort();
        await expect(unwanted).rejects.toMatchObject({ reason: 'aborted' });
        expect(LocalWorker.ended).toBe(1);
    });

    it('takes back a request that has not begun', async () => {
        const controller = new AbortController();
        const first = connect().compile({ a: PIECE });
        const second = client.compile({ a: PIECE }, {}, { signal: controller.signal });
        controller.abort();
        await expect(second).rejects.toMatchObject({ reason: 'aborted' });
        expect((await first).eventCount).toBe(8);
        expect(LocalWorker.ended).toBe(0);
    });

    it('is told of wrong use by errors of the right kind', async () => {
        await expect(connect().compile({})).rejects.toBeInstanceOf(TypeError);
        await expect(client.compile({ a: PIECE }, { seed: -1 })).rejects.toBeInstanceOf(RangeError);
    });

    it('leaves nobody waiting when it is closed', async () => {
        const waiting = connect().compile({ a: STUCK });
        client.close();
        await expect(waiting).rejects.toMatchObject({ reason: 'closed' });
        await expect(client.compile({ a: PIECE })).rejects.toMatchObject({ reason: 'closed' });
    });
});
