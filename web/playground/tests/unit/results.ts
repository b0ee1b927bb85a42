// Results of the engine as they might be, for tests of what is drawn from them.
import type { Block, Result } from 'vorn-wasm';

export interface Note {
    start: number;
    duration: number;
    key?: number;
    values?: number[];
}

export function makeBlock(instrument: number, notes: readonly Note[]): Block {
    const column = (pick: (note: Note) => number): Float32Array => Float32Array.from(notes.map(pick));
    const count = notes[0]?.values?.length ?? 0;
    const isPitched = notes.some((note) => note.key !== undefined);
    const place = { file: 'x.vorn', line: 1, column: 1, endLine: 1, endColumn: 2, from: 0, to: 1 };
    return {
        number: 1,
        instrument,
        isSkipped: false,
        header: place,
        end: place,
        startBeat: 0,
        length: 4,
        startSeconds: notes[0]?.start ?? 0,
        endSeconds: Math.max(0, ...notes.map((note) => note.start + note.duration)),
        firstEvent: 0,
        eventCount: notes.length,
        fields: [],
        pitch: isPitched ? { pfield: 4, unit: 'semitones' } : null,
        level: null,
        events: {
            size: notes.length,
            start: column((note) => note.start),
            exactStart: Float64Array.from(notes.map((note) => note.start)),
            duration: column((note) => note.duration),
            beat: column((note) => note.start),
            columns: Array.from({ length: count }, (_, index) =>
                column((note) => note.values?.[index] ?? NaN),
            ),
            keys: isPitched ? column((note) => note.key ?? NaN) : new Float32Array(),
            levels: new Float32Array(),
        },
    };
}

export function makeResult(blocks: readonly Block[], more: Partial<Result> = {}): Result {
    return {
        status: 0,
        messages: '',
        trace: '',
        diagnostics: [],
        blocks,
        seconds: Math.max(0, ...blocks.map((block) => block.endSeconds)),
        eventCount: blocks.reduce((sum, block) => sum + block.eventCount, 0),
        tempo: {
            moves: false,
            seconds: new Float64Array(),
            beats: new Float64Array(),
            tempos: new Float64Array(),
        },
        constants: [],
        macros: [],
        seed: { value: null, place: null, before: '', after: '' },
        sources: [],
        missing: [],
        milliseconds: 1,
        ...more,
    };
}
