import { afterEach, beforeEach, describe, expect, it, vi } from 'vitest';
import { csoundDocument } from '../../src/files/downloads';
import { forBrowsers } from '../../src/sound/csound/dialect';
import { readMidi } from '../../src/sound/midi_file';
import { midiPiece, notesOf } from '../../src/sound/midi_instrument';
import { progressWords } from '../../src/files/rendered_wave';
import type { Answer } from '../../src/sound/csound/protocol';
import { CANCELLED, LONGEST, Renderer, Rendering } from '../../src/sound/rendering';
import { WaveRendering, waveFile } from '../../src/sound/wave';

const bytes = (text: string): number[] => [...text].map((letter) => letter.charCodeAt(0));
const number = (value: number, length: number): number[] =>
    Array.from({ length }, (_, index) => (value >> (8 * (length - 1 - index))) & 255);
const track = (...events: number[]): number[] => [...bytes('MTrk'), ...number(events.length, 4), ...events];
const file = (...tracks: number[][]): Uint8Array =>
    Uint8Array.from([
        ...bytes('MThd'),
        ...number(6, 4),
        ...number(1, 2),
        ...number(tracks.length, 2),
        ...number(100, 2),
        ...tracks.flat(),
    ]);

describe('a MIDI file', () => {
    it('is read with running status, tempo and long times', () => {
        const tempo = track(0, 0xff, 0x51, 3, ...number(1000000, 3), 0, 0xff, 0x2f, 0);
        const notes = track(0, 0x90, 60, 100, 0x81, 0x48, 60, 0, 50, 0xc1, 5, 0, 0xff, 0x2f, 0);
        expect(readMidi(file(tempo, notes))).toEqual([
            { seconds: 0, bytes: [0x90, 60, 100] },
            { seconds: 2, bytes: [0x90, 60, 0] },
            { seconds: 2.5, bytes: [0xc1, 5] },
        ]);
    });
    it('changes its tempo on the way', () => {
        const both = track(100, 0xff, 0x51, 3, ...number(1000000, 3), 100, 0x90, 1, 1);
        expect(readMidi(file(both))[0]?.seconds).toBeCloseTo(0.5 + 1);
    });
    it('is nothing when it is something else', () => {
        expect(readMidi(Uint8Array.of(1, 2, 3))).toEqual([]);
    });
});

describe('the notes of a MIDI file', () => {
    const on = (seconds: number, key: number, velocity = 100, channel = 0) => ({
        seconds,
        bytes: [0x90 + channel, key, velocity],
    });
    it('last until they are let go, struck once more, or the file ends', () => {
        const messages = [on(0, 60), on(1, 60, 0), on(1, 62), on(2, 62, 50), on(3, 64, 100, 9), on(4, 10, 0)];
        expect(notesOf(messages).map(({ key, begin, end }) => [key, begin, end])).toEqual([
            [60, 0, 1],
            [62, 1, 2],
            [62, 2, 4],
            [64, 3, 4],
        ]);
    });
    it('become lines of a score, drums for an instrument of their own', () => {
        const { score } = midiPiece([on(0, 69, 64), on(1.5, 69, 0), on(2, 38, 90, 9), on(3, 38, 0, 9)]);
        expect(score).toBe('i1 0.0000 1.5000 69 64 0.20\ni2 2.0000 1.0000 38 90 0.72\ne\n');
    });
});

function rendering(...lengths: number[]): Rendering {
    const made = new Rendering();
    made.take({ kind: 'begun', id: 1, sampleRate: 100, channels: 2 });
    for (const length of lengths) {
        const samples = [new Float32Array(length).fill(0.5), new Float32Array(length).fill(-2)];
        made.take({ kind: 'samples', id: 1, samples });
    }
    return made;
}

describe('a rendering', () => {
    it('finds the stretch that holds a frame', () => {
        const made = rendering(10, 5);
        expect([0, 9, 10, 14, 15].map((frame) => made.chunkAt(frame))).toEqual([0, 0, 1, 1, -1]);
    });
    it('settles when it has ended', async () => {
        const made = rendering(10);
        const whole = made.whole().then(() => made.refusal);
        made.take({ kind: 'ended', id: 1, refusal: 'enough' });
        expect(await whole).toBe('enough');
    });
    it('becomes a WAV file, clipped where it is too loud', async () => {
        const blob = waveFile(rendering(3, 2));
        const view = new DataView(await blob.arrayBuffer());
        expect(blob.size).toBe(44 + 5 * 2 * 2);
        expect([view.getUint16(22, true), view.getUint32(24, true), view.getUint32(40, true)]).toEqual([
            2, 100, 20,
        ]);
        expect([view.getInt16(44, true), view.getInt16(46, true)]).toEqual([16384, -32767]);
    });
});

// A Worker that says what it is told to.
class Said extends EventTarget {
    onmessage: ((event: { data: Answer }) => void) | undefined;
    readonly asked: unknown[] = [];
    isTerminated = false;
    terminate(): void {
        this.isTerminated = true;
    }
    postMessage(message: unknown): void {
        this.asked.push(message);
    }
    say(answer: Answer): void {
        this.onmessage?.({ data: answer });
    }
}

async function rendered<Kind extends Rendering>(made: Kind): Promise<{ worker: Said; renderer: Renderer }> {
    const worker = new Said();
    const renderer = new Renderer(
        () => worker as unknown as Worker,
        () => Promise.resolve(undefined as unknown as WebAssembly.Module),
    );
    renderer.render({ orchestra: '', score: '', files: [] }, made);
    await Promise.resolve();
    await Promise.resolve();
    return { worker, renderer };
}

describe('a sound file', () => {
    const begin = (worker: Said, sampleRate: number): void =>
        worker.say({ kind: 'begun', id: 1, sampleRate, channels: 2 });
    const minute = (worker: Said): void => {
        for (let count = 0; count < 60; count++) {
            const samples = [new Float32Array(10).fill(0.25), new Float32Array(10).fill(-0.25)];
            worker.say({ kind: 'samples', id: 1, samples });
        }
    };
    const minutes = (worker: Said, count: number): void => {
        for (let done = 0; done < count; done++) minute(worker);
    };

    it('is whole, though it is longer than what is played', async () => {
        const [file, heard] = [new WaveRendering(25 * 60), new Rendering()];
        for (const made of [file, heard]) {
            const { worker } = await rendered(made);
            begin(worker, 10);
            minutes(worker, 25);
            worker.say({ kind: 'ended', id: 1, refusal: '' });
        }
        expect([file.seconds, file.refusal]).toEqual([1500, '']);
        expect(heard.seconds).toBeLessThan(LONGEST + 2);
        const view = new DataView(await file.file().arrayBuffer());
        expect(view.byteLength).toBe(44 + 1500 * 10 * 2 * 2);
        expect(view.getUint32(40, true)).toBe(1500 * 10 * 2 * 2);
        const at = 44 + 1400 * 10 * 2 * 2;
        expect([view.getInt16(at, true), view.getInt16(at + 2, true)]).toEqual([8192, -8192]);
    });
    it('of an orchestra without an end has one, and says so', async () => {
        const file = new WaveRendering(60);
        const { worker } = await rendered(file);
        begin(worker, 10);
        minutes(worker, 30);
        expect(file.seconds).toBe(60 + LONGEST);
        expect(file.isCut).toBe(true);
        expect(file.refusal).toContain('20 minutes after');
        expect(worker.asked.at(-1)).toEqual({ kind: 'cancel', id: 1 });
    });
    it('says before what no such file can hold, and holds the rest', async () => {
        const file = new WaveRendering(20);
        const { worker } = await rendered(file);
        begin(worker, 2 ** 28);
        expect(progressWords('x.wav', file)).toContain('holds 4 GB, the first 0:04 of this sound');
        file.frames = 2 ** 30 - 15; // as many as there would be
        minute(worker);
        expect([file.frames, file.isCut]).toEqual([2 ** 30 - 10, true]);
        expect(new DataView(await file.file().arrayBuffer()).getUint32(4, true)).toBe(2 ** 32 - 4);
    });
    it('that is cancelled ends at once', async () => {
        const file = new WaveRendering(60);
        const { worker, renderer } = await rendered(file);
        begin(worker, 10);
        renderer.cancel();
        minute(worker);
        expect([file.hasEnded, file.refusal, file.frames]).toEqual([true, CANCELLED, 0]);
        expect(worker.asked.at(-1)).toEqual({ kind: 'cancel', id: 1 });
    });
});

describe('a Worker that does not come back', () => {
    const workers: Said[] = [];
    const makeWorker = (): Worker => {
        workers.push(new Said());
        return workers.at(-1) as unknown as Worker;
    };
    const renderer = (): Renderer =>
        new Renderer(makeWorker, () => Promise.resolve(undefined as unknown as WebAssembly.Module));
    const rendered = async (by: Renderer): Promise<Rendering> => {
        const made = by.render({ orchestra: '', score: '', files: [] }, new Rendering());
        await vi.advanceTimersByTimeAsync(0);
        return made;
    };
    const terminated = (): boolean[] => workers.map(({ isTerminated }) => isTerminated);
    beforeEach(() => {
        vi.useFakeTimers();
        workers.splice(0);
    });
    afterEach(() => vi.useRealTimers());

    it('is not given the next piece, cancelled or not', async () => {
        const one = renderer();
        await rendered(one);
        one.cancel();
        await rendered(one);
        const last = await rendered(one);
        expect(terminated()).toEqual([true, true, false]);
        workers[2]?.say({ kind: 'begun', id: 4, sampleRate: 10, channels: 1 });
        await vi.advanceTimersByTimeAsync(7900);
        expect([last.sampleRate, last.hasEnded]).toEqual([10, false]);
    });
    it('is ended a moment after it was cancelled', async () => {
        const one = renderer();
        await rendered(one);
        one.cancel();
        await vi.advanceTimersByTimeAsync(100);
        expect(terminated()).toEqual([false]);
        await vi.advanceTimersByTimeAsync(1000);
        expect(terminated()).toEqual([true]);
    });
    it('is another one than that which does, and goes on with the next piece', async () => {
        const one = renderer();
        await rendered(one);
        one.cancel();
        workers[0]?.say({ kind: 'ended', id: 1, refusal: '' });
        await vi.advanceTimersByTimeAsync(5000);
        await rendered(one);
        expect(terminated()).toEqual([false]);
        expect(workers[0]?.asked.at(-1)).toMatchObject({ kind: 'render', id: 3 });
    });
});

it('a Csound document holds orchestra and score', () => {
    const text = csoundDocument('instr 1\nendin\n\n', 'i1 0 1\ne\n');
    expect(text).toContain('<CsInstruments>\ninstr 1\nendin\n</CsInstruments>');
    expect(text).toContain('<CsScore>\ni1 0 1\ne\n</CsScore>');
});

it('an orchestra keeps its lines where an opcode is written in another way', () => {
    expect(forBrowsers('a\nalwayson "Out" ; here\n alwayson 7\n')).toBe(
        'a\nturnon "Out" ; here\n turnon 7 \n',
    );
    expect(forBrowsers('alwayson "Out", 1\n')).toBe('alwayson "Out", 1\n');
});
