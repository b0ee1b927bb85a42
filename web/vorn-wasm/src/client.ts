import { VornError } from './error.js';
import type { Answering, Asking, Failure } from './protocol.js';
import type { CompileOptions, Files, Patience, Result, VornClient, VornErrorReason } from './types.js';

// The page's side. One request is with the Worker at a time, so that its deadline is its own; a
// Worker that keeps it waiting longer is ended, and a new one serves those behind it.

/** As much of a Worker as is used; those of Node have it with `asWorker` in tests/. */
export interface WorkerLike {
    postMessage(message: Asking): void;
    terminate(): unknown;
    onmessage: ((event: MessageEvent<Answering>) => void) | null;
    onerror: ((event: ErrorEvent) => void) | null;
}

interface Waiting {
    readonly asking: Asking;
    readonly patience: Patience;
    readonly resolve: (value: never) => void;
    readonly reject: (error: unknown) => void;
    readonly onAbort: () => void;
}

function errorOf({ reason, name, message }: Failure): Error {
    if (reason !== undefined) return new VornError(reason, message);
    if (name === 'TypeError') return new TypeError(message);
    return name === 'RangeError' ? new RangeError(message) : new Error(message);
}

class Client implements VornClient {
    private worker: WorkerLike | null = null;
    private readonly queue: Waiting[] = []; // the first is with the Worker
    private isAsked = false; // it is
    private timer: ReturnType<typeof setTimeout> | undefined;
    private lastId = 0;
    private isClosed = false;

    constructor(private readonly begin: () => WorkerLike) {}

    compile(files: Files, options: CompileOptions = {}, patience: Patience = {}): Promise<Result> {
        return this.ask('compile', [files, options], patience);
    }

    readonly expandedLines: VornClient['expandedLines'] = (...args) => this.ask('expandedLines', args);
    readonly performance: VornClient['performance'] = (...args) => this.ask('performance', args);
    readonly explain: VornClient['explain'] = (...args) => this.ask('explain', args);
    readonly explanations: VornClient['explanations'] = () => this.ask('explanations', []);
    readonly words: VornClient['words'] = () => this.ask('words', []);
    readonly run: VornClient['run'] = (...args) => this.ask('run', args);

    close(): void {
        this.isClosed = true;
        this.end();
        for (const waiting of this.queue.splice(0)) {
            this.settled(waiting).reject(new VornError('closed', 'the engine was closed'));
        }
    }

    private ask<Value>(
        method: Asking['method'],
        args: readonly unknown[],
        patience: Patience = {},
    ): Promise<Value> {
        return new Promise<Value>((resolve, reject) => {
            if (this.isClosed) throw new VornError('closed', 'the engine was closed');
            const asking = { id: ++this.lastId, method, args };
            const onAbort = (): void => {
                this.drop(waiting, 'aborted', 'nobody waits any more');
            };
            const waiting: Waiting = { asking, patience, resolve, reject, onAbort };
            this.queue.push(waiting);
            patience.signal?.addEventListener('abort', onAbort, { once: true });
            if (patience.signal?.aborted) onAbort();
            this.next();
        });
    }

    /** Hands the first request to the Worker, if that is idle. */
    private next(): void {
        const waiting = this.queue[0];
        if (waiting === undefined || this.isAsked) return;
        this.isAsked = true;
        this.worker ??= this.beginWorker();
        this.worker.postMessage(waiting.asking);
    }

    /** A deadline counts from when the engine has been loaded, however slow the line. */
    private limit(waiting: Waiting): void {
        const { deadline } = waiting.patience;
        if (deadline === undefined) return;
        this.timer = setTimeout(() => {
            this.drop(waiting, 'deadline', `no answer within ${String(deadline)} ms`);
        }, deadline);
    }

    private beginWorker(): WorkerLike {
        const worker = this.begin();
        worker.onmessage = ({ data }) => {
            this.take(data);
        };
        worker.onerror = (event) => {
            const first = this.queue[0];
            if (first !== undefined) this.drop(first, 'engine', event.message);
            else this.end();
        };
        return worker;
    }

    private take(answer: Answering): void {
        const waiting = this.queue[0];
        if (waiting === undefined || waiting.asking.id !== answer.id) return;
        if ('isBegun' in answer) {
            this.limit(waiting);
            return;
        }
        this.queue.shift();
        this.settled(waiting);
        this.rest();
        if ('failure' in answer) waiting.reject(errorOf(answer.failure));
        else waiting.resolve(answer.value as never);
        this.next();
    }

    /** Ends the waiting of a request; a Worker that is at it is ended, too. */
    private drop(waiting: Waiting, reason: VornErrorReason, message: string): void {
        const at = this.queue.indexOf(waiting);
        if (at < 0) return;
        this.queue.splice(at, 1);
        if (at === 0 && this.isAsked) this.end();
        this.settled(waiting).reject(new VornError(reason, message));
        this.next();
    }

    private settled(waiting: Waiting): Waiting {
        waiting.patience.signal?.removeEventListener('abort', waiting.onAbort);
        return waiting;
    }

    /** The Worker has nothing to do. */
    private rest(): void {
        clearTimeout(this.timer);
        this.isAsked = false;
    }

    private end(): void {
        this.rest();
        if (this.worker === null) return;
        this.worker.onmessage = null;
        this.worker.onerror = null;
        this.worker.terminate();
        this.worker = null;
    }
}

/** The engine in Workers that `begin` makes, one at a time. */
export function connectVorn(begin: () => WorkerLike): VornClient {
    return new Client(begin);
}
