// One performance of a piece as it grows: samples that are there so far, and what Csound said. It is
// rendered ahead of what is heard and kept whole, so that any place of it can be played at once, again
// and again, and be written to a file.
import type { Answer, RenderRequest } from './csound/protocol';

export interface SoundPiece {
    readonly orchestra: string;
    readonly score: string;
    readonly files: readonly (readonly [string, Uint8Array])[];
}

// A performance without an end is cut here.
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

    take(answer: Answer): void {
        if (answer.kind === 'begun') {
            this.sampleRate = answer.sampleRate;
            this.channels = answer.channels;
        } else if (answer.kind === 'samples') {
            this.starts.push(this.frames);
            this.chunks.push(answer.samples);
            this.frames += answer.samples[0]?.length ?? 0;
        } else if (answer.kind === 'message') {
            this.text += answer.text;
        } else {
            this.end(answer.refusal);
        }
        for (const listener of [...this.listeners]) listener();
    }

    end(refusal: string): void {
        if (this.hasEnded) return;
        this.hasEnded = true;
        this.refusal = refusal;
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

export interface Renderer {
    render(piece: SoundPiece): Rendering;
    cancel(): void;
}

const SILENT_FOR = 8000; // milliseconds without a sign of life: an orchestra that never comes back

export function createRenderer(
    makeWorker: () => Worker,
    loadProgram: () => Promise<WebAssembly.Module>,
): Renderer {
    let worker: Worker | undefined;
    let current: Rendering | undefined;
    let id = 0;
    let alarm: ReturnType<typeof setTimeout> | undefined;

    const give = (answer: Answer): void => current?.take(answer);
    const endWorker = (): void => {
        worker?.terminate();
        worker = undefined;
    };
    const watch = (): void => {
        clearTimeout(alarm);
        if (!current || current.hasEnded) return;
        alarm = setTimeout(() => {
            endWorker();
            give({ kind: 'ended', id, refusal: 'Csound did not come back and was ended.' });
        }, SILENT_FOR);
    };
    const receive = (answer: Answer): void => {
        if (answer.id !== id) return;
        give(answer);
        watch();
        if (current && !current.hasEnded && current.seconds > LONGEST) {
            worker?.postMessage({ kind: 'cancel', id });
            give({ kind: 'ended', id, refusal: `Only the first ${LONGEST / 60} minutes are played.` });
        }
    };
    const startedWorker = (): Worker => {
        if (worker) return worker;
        worker = makeWorker();
        worker.onmessage = (event: MessageEvent<Answer>) => receive(event.data);
        worker.onerror = (event) => give({ kind: 'ended', id, refusal: 'Csound stopped: ' + event.message });
        return worker;
    };
    const begin = async (piece: SoundPiece, own: number): Promise<void> => {
        try {
            const program = await loadProgram();
            if (own !== id) return;
            const { orchestra, score } = piece;
            const files = piece.files.map(([name, bytes]): [string, Uint8Array] => [name, bytes]);
            const request: RenderRequest = { kind: 'render', id: own, program, orchestra, score, files };
            startedWorker().postMessage(request);
            watch();
        } catch (error) {
            if (own === id) give({ kind: 'ended', id: own, refusal: String(error) });
        }
    };
    return {
        render(piece) {
            id += 1;
            current = new Rendering();
            void begin(piece, id);
            return current;
        },
        cancel() {
            clearTimeout(alarm);
            id += 1;
            worker?.postMessage({ kind: 'cancel', id });
        },
    };
}
