// One performance: an orchestra and a score become blocks of samples, as fast as the machine can.
import { forBrowsers } from './dialect';
import { startProgram, type CsoundInstance, type Files } from './program';
import { ORCHESTRA_REFUSED } from './protocol';

export interface Performance {
    readonly sampleRate: number;
    readonly channels: number;
    // The next samples, one array for each channel, full scale 1; nothing when it has ended.
    next(frames: number): Float32Array[] | undefined;
}

export interface Piece {
    orchestra: string;
    score: string;
    files: Files;
}

export class CsoundRefusal extends Error {}

// -n: no file is written; -d: no graphs of tables; -m4: warnings, and where samples are out of range.
const OPTIONS = ['-n', '-d', '-m4'];

function check(status: number, what: string): void {
    if (status !== 0) throw new CsoundRefusal(what);
}

// Csound breaks off where it cannot go on reading, as behind an include that is not there.
function compileOrchestra(
    { functions, withText }: CsoundInstance,
    handle: number,
    orchestra: string,
): number {
    try {
        return withText(forBrowsers(orchestra), (text) => functions.csoundCompileOrc(handle, text));
    } catch (error) {
        if (error instanceof WebAssembly.RuntimeError) return -1;
        throw error;
    }
}

function prepare(csound: CsoundInstance, piece: Piece): number {
    const { functions, withText } = csound;
    functions.csoundInitialize(0);
    const handle = functions.csoundCreateWasi();
    for (const option of OPTIONS) withText(option, (text) => functions.csoundSetOption(handle, text));
    check(compileOrchestra(csound, handle, piece.orchestra), ORCHESTRA_REFUSED);
    check(
        withText(piece.score, (text) => functions.csoundReadScore(handle, text)),
        'Csound refuses the score.',
    );
    check(functions.csoundStartWasi(handle), 'Csound cannot begin to play.');
    return handle;
}

// The interleaved doubles of Csound's output, appended to each channel from `at` on.
function takeOver(from: Float64Array, to: Float32Array[], at: number, fullScale: number): void {
    const channels = to.length;
    const frames = from.length / channels;
    for (let channel = 0; channel < channels; channel++) {
        const samples = to[channel];
        if (!samples) continue;
        for (let frame = 0; frame < frames; frame++) {
            samples[at + frame] = (from[frame * channels + channel] ?? 0) / fullScale;
        }
    }
}

export async function perform(
    module: WebAssembly.Module,
    piece: Piece,
    onMessage: (text: string) => void,
): Promise<Performance> {
    const csound = await startProgram(module, piece.files, onMessage);
    const handle = prepare(csound, piece);
    const { functions, memory } = csound;
    const step = functions.csoundGetKsmps(handle);
    const channels = functions.csoundGetNchnls(handle);
    const fullScale = functions.csoundGet0dBFS(handle);
    let ended = false;

    const next = (frames: number): Float32Array[] | undefined => {
        if (ended) return undefined;
        const size = Math.max(step, Math.floor(frames / step) * step);
        const samples = Array.from({ length: channels }, () => new Float32Array(size));
        let filled = 0;
        while (filled < size) {
            ended = functions.csoundPerformKsmps(handle) !== 0;
            if (ended) break;
            const place = functions.csoundGetSpout(handle);
            takeOver(new Float64Array(memory.buffer, place, step * channels), samples, filled, fullScale);
            filled += step;
        }
        if (ended) functions.csoundCleanup(handle);
        if (filled === 0) return undefined;
        return filled === size ? samples : samples.map((one) => one.slice(0, filled));
    };
    return { sampleRate: functions.csoundGetSr(handle), channels, next };
}
