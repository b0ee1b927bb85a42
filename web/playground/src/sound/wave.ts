// A rendering as a WAV file: 16 bits, interleaved, clipped where it is louder than full scale.
import { timeText } from '../picture/span';
import { LONGEST, Rendering } from './rendering';

const HEADER = 44;
const MOST_BYTES = 2 ** 32 - 1 - (HEADER - 8); // of samples, so that the header can tell the size
const BLOB_OF = 240; // stretches, about a minute

function header(rendering: Rendering): ArrayBuffer {
    const { channels, frames, sampleRate } = rendering;
    const bytes = frames * channels * 2;
    const view = new DataView(new ArrayBuffer(HEADER));
    const letters = (at: number, text: string): void => {
        for (let index = 0; index < text.length; index++) view.setUint8(at + index, text.charCodeAt(index));
    };
    letters(0, 'RIFF');
    view.setUint32(4, HEADER - 8 + bytes, true);
    letters(8, 'WAVEfmt ');
    view.setUint32(16, 16, true); // bytes of the format
    view.setUint16(20, 1, true); // whole numbers
    view.setUint16(22, channels, true);
    view.setUint32(24, sampleRate, true);
    view.setUint32(28, sampleRate * channels * 2, true);
    view.setUint16(32, channels * 2, true);
    view.setUint16(34, 16, true);
    letters(36, 'data');
    view.setUint32(40, bytes, true);
    return view.buffer;
}

function interleaved(samples: readonly Float32Array[]): Int16Array<ArrayBuffer> {
    const channels = samples.length;
    const frames = samples[0]?.length ?? 0;
    const whole = new Int16Array(frames * channels);
    samples.forEach((one, channel) => {
        for (let frame = 0; frame < frames; frame++) {
            const value = Math.max(-1, Math.min(1, one[frame] ?? 0));
            whole[frame * channels + channel] = Math.round(value * 32767);
        }
    });
    return whole;
}

export const waveFile = (rendering: Rendering): Blob =>
    new Blob([header(rendering), ...rendering.chunks.map(interleaved)], { type: 'audio/wav' });

// A rendering that is for a file alone. Its samples are not kept as they come, which would take some twenty
// megabytes a minute, but as those of the file, which are handed to the browser a minute at a time.
export class WaveRendering extends Rendering {
    private readonly minutes: Blob[] = [];
    private stretches: Int16Array<ArrayBuffer>[] = [];

    constructor(readonly scoreSeconds: number) {
        super();
    }

    // What a file can hold of it; known when it has begun.
    get mostSeconds(): number {
        return this.sampleRate > 0 ? this.mostFrames / this.sampleRate : Infinity;
    }

    // Where an orchestra does not come to an end by itself.
    get lastSecond(): number {
        return this.scoreSeconds + LONGEST;
    }

    override get excess(): string {
        if (this.sampleRate > 0 && this.frames >= this.mostFrames)
            return `The .wav file ends after ${timeText(this.mostSeconds)}: it holds 4 GB at most.`;
        if (this.seconds < this.lastSecond) return '';
        return `It sounds on when the score has ended; the .wav file ends ${LONGEST / 60} minutes after that.`;
    }

    // Nothing but its length keeps it from being whole.
    get isCut(): boolean {
        return this.refusal !== '' && this.refusal === this.excess;
    }

    file(): Blob {
        return new Blob([header(this), ...this.minutes, ...this.stretches], { type: 'audio/wav' });
    }

    protected override hold(samples: Float32Array<ArrayBuffer>[]): number {
        const left = this.mostFrames - this.frames;
        const held = samples.map((one) => (one.length > left ? one.subarray(0, left) : one));
        this.stretches.push(interleaved(held));
        if (this.stretches.length >= BLOB_OF) {
            this.minutes.push(new Blob(this.stretches));
            this.stretches = [];
        }
        return held[0]?.length ?? 0;
    }

    private get mostFrames(): number {
        return Math.floor(MOST_BYTES / 2 / Math.max(1, this.channels));
    }
}
