// A MIDI file on an instrument of the page's own: Csound again, which hears of nothing but what is in the file.
// So keys are whole, velocities are steps, and what a MIDI file cannot hold is not heard.
import type { MidiMessage } from './midi_file';
import type { SoundPiece } from './rendering';

const NOTE_OFF = 0x80;
const NOTE_ON = 0x90;
const DRUMS = 9; // channel

interface Note {
    readonly begin: number; // seconds
    readonly end: number;
    readonly channel: number;
    readonly key: number;
    readonly velocity: number;
}

// Struck once more while it sounds, a key begins anew; what is never let go ends with the file.
export function notesOf(messages: readonly MidiMessage[]): Note[] {
    const notes: Note[] = [];
    const open = new Map<number, Omit<Note, 'end'>>();
    const close = (id: number, end: number): void => {
        const note = open.get(id);
        if (note) notes.push({ ...note, end });
        open.delete(id);
    };
    for (const { seconds, bytes } of messages) {
        const [status = 0, key = 0, velocity = 0] = bytes;
        const kind = status & 0xf0;
        if (kind !== NOTE_OFF && kind !== NOTE_ON) continue;
        const channel = status & 15;
        const id = channel * 128 + key;
        close(id, seconds);
        if (kind === NOTE_ON && velocity > 0) open.set(id, { begin: seconds, channel, key, velocity });
    }
    const end = messages.at(-1)?.seconds ?? 0;
    for (const id of [...open.keys()]) close(id, end);
    return notes.sort((a, b) => a.begin - b.begin);
}

// A struck tone that is the brighter the louder, and a stroke of noise for drums; channels stand side by side.
const ORCHESTRA = `sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 1

instr 1
iloud = (p5 / 127) ^ 1.2
ilast = max(p3, .03)
p3 = ilast + .25
asound foscili linseg(0, .004, .3, ilast - .004, .1, .25, 0) * iloud, cpsmidinn(p4), 1, 1, linseg(.6 + 2.4 * iloud, .6, .3, 20, .1)
aleft, aright pan2 asound, p6
outs aleft, aright
endin

instr 2
iloud = (p5 / 127) ^ 1.2
p3 = .2
asound butterbp rand(expseg(.8 * iloud, .2, .0008)), cpsmidinn(p4 + 24), cpsmidinn(p4 + 24)
aleft, aright pan2 asound, p6
outs aleft, aright
endin
`;

const placeOf = (channel: number): number => 0.5 + (((channel * 5) % 16) - 7.5) / 25;

function line({ begin, end, channel, key, velocity }: Note): string {
    const instrument = channel === DRUMS ? 2 : 1;
    const times = `${begin.toFixed(4)} ${Math.max(0.001, end - begin).toFixed(4)}`;
    return `i${instrument} ${times} ${key} ${velocity} ${placeOf(channel).toFixed(2)}`;
}

export function midiPiece(messages: readonly MidiMessage[]): SoundPiece {
    const score = notesOf(messages).map(line).join('\n');
    return { orchestra: ORCHESTRA, score: `${score}\ne\n`, files: [] };
}
