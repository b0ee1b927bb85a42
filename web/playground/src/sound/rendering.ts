// One performance of a piece as it grows: samples that are there so far, and what Csound said. It is
// rendered ahead of what is heard and kept whole, so that any place of it can be played at once, again
// and again, and be written to a file.
import type { Answer, RenderRequest } from './csound/protocol';

export interface SoundPiece {
    readonly orchestra: string;
    readonly score: string;
    readonly files: readonly (readonly [string, Uint8Array])[];
}

// A performance without an end is cut here, and so is one that is longer than a page can hold for playing.
export const LONGEST = 20 * 60;

export class Rendering {
    sampleRate = 0;
    channels = 0;
    frames = 0;
    hasEnded = false;
    refusal = '';
    text = '';
    readonly chunks: Float32Array<ArrayBuffer>[][] = []; // by time, in each one array a channel
    private readonly starts: number[] = []; // the first frame of each chunk
    private listeners = new Set<() => void>();

    get seconds(): number {
        return this.sampleRate > 0 ? this.frames / this.sampleRate : 0;
    }

    onChange(listener: () => void): () => void {
        this.listeners.add(listener);
        return () => this.listeners.delete(listener);
    }

    // What comes behind the end had been on its way.
    take(answer: Answer): void {
        if (this.hasEnded) return;
        if (answer.kind === 'begun') {
            this.sampleRate = answer.sampleRate;
            this.channels = answer.channels;
        } else if (answer.kind === 'samples') {
            this.frames += this.hold(answer.samples);
        } else if (answer.kind === 'message') {
            this.text += answer.text;
        } else {
            this.hasEnded = true;
            this.refusal = answer.refusal;
        }
        for (const listener of [...this.listeners]) listener();
    }

    // Why a performance that goes on is ended; empty: it is not.
    get excess(): string {
        return this.seconds > LONGEST ? `Only the first ${LONGEST / 60} minutes are played.` : '';
    }

    // Tells how many frames are held of them.
    protected hold(samples: Float32Array<ArrayBuffer>[]): number {
        this.starts.push(this.frames);
        this.chunks.push(samples);
        return samples[0]?.length ?? 0;
    }

    // The chunk that holds the frame; -1: it is not there.
    chunkAt(frame: number): number {
        let low = 0;
        let high = this.starts.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if ((this.starts[middle] ?? 0) <= frame) low = middle + 1;
            else high = middle;
        }
        return frame < this.frames ? low - 1 : -1;
    }

    startOf(chunk: number): number {
        return this.starts[chunk] ?? this.frames;
    }

    // Settles when the rendering has ended.
    whole(): Promise<void> {
        if (this.hasEnded) return Promise.resolve();
        return new Promise((resolve) => {
            const stop = this.onChange(() => {
                if (!this.hasEnded) return;
                stop();
                resolve();
            });
        });
    }
}

export const CANCELLED = 'It was cancelled.';
const SILENT_FOR = 8000; // milliseconds without a sign of life: an orchestra that never comes back
const GRACE = 1000; // milliseconds until one that was cancelled has to be back

// One Csound at a time, in a Worker that is ended and begun anew when it does not come back.
export class Renderer {
    private worker: Worker | undefined;
    private current: Rendering | undefined;
    private id = 0;
    private working = 0; // on which performance the Worker is; 0: on none
    private alarm: ReturnType<typeof setTimeout> | undefined;

    constructor(
        private readonly makeWorker: () => Worker,
        private readonly loadProgram: () => Promise<WebAssembly.Module>,
    ) {}

    // Takes the place of the performance before, which ends where it is.
    render<Kind extends Rendering>(piece: SoundPiece, rendering: Kind): Kind {
        this.end('Another performance has begun.');
        this.id += 1;
        this.current = rendering;
        void this.begin(piece, this.id);
        return rendering;
    }

    get isBusy(): boolean {
        return this.current !== undefined && !this.current.hasEnded;
    }

    // Ends the performance where it is.
    cancel(): void {
        this.worker?.postMessage({ kind: 'cancel', id: this.id });
        clearTimeout(this.alarm);
        this.alarm = setTimeout(() => this.dismissBusyWorker(), GRACE);
        this.end(CANCELLED);
        this.id += 1;
    }

    private async begin(piece: SoundPiece, id: number): Promise<void> {
        try {
            const program = await this.loadProgram();
            if (id !== this.id) return;
            const { orchestra, score } = piece;
            const files = piece.files.map(([name, bytes]): [string, Uint8Array] => [name, bytes]);
            const request: RenderRequest = { kind: 'render', id, program, orchestra, score, files };
            this.dismissBusyWorker();
            this.startedWorker().postMessage(request);
            this.working = id;
            this.watch();
        } catch (error) {
            if (id === this.id) this.end(error instanceof Error ? error.message : String(error));
        }
    }

    private startedWorker(): Worker {
        if (this.worker) return this.worker;
        const worker = this.makeWorker();
        worker.onmessage = (event: MessageEvent<Answer>) => this.receive(event.data);
        worker.onerror = (event) => this.end('Csound stopped: ' + event.message);
        this.worker = worker;
        return worker;
    }

    // Whoever is still busy with what nobody wants may never come back.
    private dismissBusyWorker(): void {
        if (this.working !== 0) this.dismissWorker();
    }

    private dismissWorker(): void {
        this.worker?.terminate();
        this.worker = undefined;
        this.working = 0;
    }

    private receive(answer: Answer): void {
        if (answer.kind === 'ended' && answer.id === this.working) this.working = 0;
        if (answer.id !== this.id) return;
        this.current?.take(answer);
        this.watch();
        const excess = this.isBusy ? (this.current?.excess ?? '') : '';
        if (excess === '') return;
        this.worker?.postMessage({ kind: 'cancel', id: this.id });
        this.end(excess);
    }

    private watch(): void {
        clearTimeout(this.alarm);
        if (!this.current || this.current.hasEnded) return;
        this.alarm = setTimeout(() => {
            this.dismissWorker();
            this.end('Csound did not come back and was ended.');
        }, SILENT_FOR);
    }

    private end(refusal: string): void {
        this.current?.take({ kind: 'ended', id: this.id, refusal });
    }
}
