import type { Address } from './module.js';

// Answers as the engine writes them (engine/answer.cpp, engine/diagnostics_answer.cpp).

/** File, first byte, byte behind, line, character, end line, end character. */
export type EnginePlace = readonly [number, number, number, number, number, number, number] | null;

/** A text and the characters [from, to) that are meant, counted from 1. */
export type EngineExcerpt = readonly [string, number, number];

export interface EngineDiagnostic {
    level: number;
    code: string;
    text: string;
    place: EnginePlace;
    source: EngineExcerpt | null;
    expansion: {
        before: string[];
        line: EngineExcerpt;
        after: string[];
        calls: { kind: number; name: string; place: EnginePlace }[];
    } | null;
    notes: { text: string; place: EnginePlace }[];
    advice: string[];
    fix: { title: string; replacement: string; place: EnginePlace } | null;
    repeats: number;
}

export interface EngineRole {
    pfield: number;
    unit: number;
}

export interface EngineField {
    pfield: number;
    inputType: string;
    outputType: string;
    statement: EnginePlace;
    decimals: number;
}

export interface EngineBlock {
    number: number;
    instrument: number;
    isSkipped: boolean;
    header: EnginePlace;
    end: EnginePlace;
    startBeat: number | null;
    length: number | null;
    startSeconds: number | null;
    endSeconds: number | null;
    pitch: EngineRole | null;
    level: EngineRole | null;
    fields: EngineField[];
    events: Record<'start' | 'exactStart' | 'duration' | 'beat' | 'values' | 'keys' | 'levels', Address> & {
        columns: number;
    };
}

export interface CompilationAnswer {
    status: 0 | 1;
    midiStatus: number;
    seconds: number | null;
    texts: Record<string, Address>;
    files: { name: string; text: Address }[];
    missing: string[];
    diagnostics: EngineDiagnostic[];
    blocks: EngineBlock[];
    tempo: Record<'seconds' | 'beats' | 'tempos', Address>;
    constants: { name: string; value: number | null; place: EnginePlace; calls: number }[];
    macros: { name: string; argumentCount: number; body: string; place: EnginePlace }[];
    seed: { value: number | null; place: EnginePlace; before: string; after: string } | null;
    midiRemarks: string[];
}

export interface PerformanceAnswer {
    diagnostics: EngineDiagnostic[];
    otherLines: string[];
    hasStarted: boolean;
    hasEnded: boolean;
    peak: number;
    clipped: number;
}
