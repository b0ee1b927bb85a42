import { Places, diagnosticOf } from './diagnostics.js';
import type { CompilationAnswer, EngineBlock, EngineField, EngineRole } from './engine_answer.js';
import type { EngineModule } from './module.js';
import type { Request } from './request.js';
import type { Block, EventTable, Field, LevelUnit, PitchUnit, Result, Seed, TempoCurve } from './types.js';

// What the engine has found becomes a result: tables are copied out of its memory,
// so that a result outlives the next compilation.

const PITCH_UNITS: readonly PitchUnit[] = ['semitones', 'key', 'hertz', 'octavePitchClass'];
const LEVEL_UNITS: readonly LevelUnit[] = ['amplitude', 'decibels', 'fraction'];

/** JSON has no word for what is not finite. */
function finite(value: number | null): number {
    return value ?? NaN;
}

function placesOf(module: EngineModule, answer: CompilationAnswer): Places {
    return new Places(answer.files.map(({ name, text }) => ({ name, bytes: () => module.bytes(text) })));
}

function tableOf(module: EngineModule, block: EngineBlock): EventTable {
    const { start, exactStart, duration, beat, values, columns, keys, levels } = block.events;
    return {
        size: start[1],
        start: module.floats(start),
        exactStart: module.doubles(exactStart),
        duration: module.floats(duration),
        beat: module.floats(beat),
        columns: module.columns(values, columns),
        keys: module.floats(keys),
        levels: module.floats(levels),
    };
}

function unitOf<Unit>(
    role: EngineRole | null,
    units: readonly Unit[],
): { pfield: number; unit: Unit } | null {
    return role === null ? null : { pfield: role.pfield, unit: units[role.unit] as Unit };
}

function roleOf(field: EngineField, block: EngineBlock): Field['role'] {
    if (field.pfield === 2) return 'start';
    if (field.pfield === 3) return 'duration';
    if (field.pfield === block.pitch?.pfield) return 'pitch';
    return field.pfield === block.level?.pfield ? 'level' : null;
}

function blockOf(module: EngineModule, block: EngineBlock, places: Places, firstEvent: number): Block {
    return {
        ...block,
        header: places.ofEngine(block.header),
        end: places.ofEngine(block.end),
        startBeat: finite(block.startBeat),
        length: finite(block.length),
        startSeconds: finite(block.startSeconds),
        endSeconds: finite(block.endSeconds),
        firstEvent,
        eventCount: block.events.start[1],
        pitch: unitOf(block.pitch, PITCH_UNITS),
        level: unitOf(block.level, LEVEL_UNITS),
        fields: block.fields.map((field) => ({
            ...field,
            role: roleOf(field, block),
            statement: places.ofEngine(field.statement),
        })),
        events: tableOf(module, block),
    };
}

function blocksOf(module: EngineModule, answer: CompilationAnswer, places: Places): Block[] {
    let firstEvent = 0;
    return answer.blocks.map((block) => {
        const made = blockOf(module, block, places, firstEvent);
        firstEvent += made.eventCount;
        return made;
    });
}

function tempoOf(module: EngineModule, answer: CompilationAnswer): TempoCurve {
    const tempos = module.doubles(answer.tempo.tempos);
    return {
        moves: tempos.some((tempo) => tempo !== tempos[0]),
        seconds: module.doubles(answer.tempo.seconds),
        beats: module.doubles(answer.tempo.beats),
        tempos,
    };
}

function seedOf(answer: CompilationAnswer, places: Places): Seed | null {
    return answer.seed && { ...answer.seed, place: places.ofEngine(answer.seed.place) };
}

/** What was asked for, as far as there is any. */
function outputsOf(module: EngineModule, answer: CompilationAnswer, request: Request): Partial<Result> {
    const { texts } = answer;
    const wants = new Set(request.outputs);
    const file = (name: string): Uint8Array => module.files.read(name)?.slice() ?? new Uint8Array();
    return {
        ...(wants.has('score') && { score: file(request.score) }),
        ...(wants.has('midi') && { midiMessages: module.text(texts['midiMessages'] ?? [0, 0]) }),
        ...(wants.has('midi') && answer.midiStatus === 0 && { midi: file(request.midi) }),
        ...(texts['fullMidi'] && { fullMidi: module.bytes(texts['fullMidi']) }),
        ...(wants.has('fullMidi') && { fullMidiRemarks: answer.midiRemarks }),
        ...(texts['picture'] && { picture: module.text(texts['picture']) }),
        ...(texts['json'] && { json: module.bytes(texts['json']) }),
        ...(texts['csv'] && { csv: module.bytes(texts['csv']) }),
        ...(texts['builtInOrchestra'] && {
            builtIn: {
                orchestra: module.text(texts['builtInOrchestra']),
                score: module.text(texts['builtInScore'] ?? [0, 0]),
            },
        }),
        ...(wants.has('expansion') && { expansion: file(request.expansion) }),
    };
}

export function resultOf(
    module: EngineModule,
    answer: CompilationAnswer,
    request: Request,
): { result: Omit<Result, 'milliseconds'>; places: Places } {
    const places = placesOf(module, answer);
    const blocks = blocksOf(module, answer, places);
    const result = {
        status: answer.status,
        messages: module.text(answer.texts['messages'] ?? [0, 0]),
        trace: module.text(answer.texts['trace'] ?? [0, 0]),
        diagnostics: answer.diagnostics.map((diagnostic) => diagnosticOf(diagnostic, places)),
        blocks,
        seconds: finite(answer.seconds),
        eventCount: blocks.reduce((count, block) => count + block.eventCount, 0),
        tempo: tempoOf(module, answer),
        constants: answer.constants.map((constant) => ({
            ...constant,
            value: finite(constant.value),
            place: places.ofEngine(constant.place),
        })),
        macros: answer.macros.map((macro) => ({ ...macro, place: places.ofEngine(macro.place) })),
        seed: seedOf(answer, places),
        sources: answer.files.map(({ name }) => name),
        missing: answer.missing,
        ...outputsOf(module, answer, request),
    };
    return { result, places };
}
