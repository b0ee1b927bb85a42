// A rendering as a WAV file: 16 bits, interleaved, clipped where it is louder than full scale.
import type { Rendering } from './rendering';

const HEADER = 44;

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
