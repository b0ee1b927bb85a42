import type { Address } from './module.js';
import type { Call, Excerpt } from './types.js';

// Answers as the engine writes them (engine/answer.cpp, kit/schema/check.schema.json).

/** File, first byte, byte behind, line, character, end line, end character. */
export type EnginePlace = readonly [number, number, number, number, number, number, number] | null;

export interface KitPlace {
    file: string;
    line: number;
    column: number;
    end_line: number;
    end_column: number;
    offset: number;
    end_offset: number;
}

export interface KitExcerpt {
    text: string;
    column: number;
    end_column: number;
}

export interface KitDiagnostic {
    level: 'error' | 'warning' | 'lint';
    code: string;
    text: string;
    place: KitPlace | null;
    source: KitExcerpt | null;
    expansion: {
        before: Excerpt['text'][];
        line: KitExcerpt;
        after: Excerpt['text'][];
        calls: { kind: Call['kind']; name: string; place: KitPlace | null }[];
    } | null;
    notes: { text: string; place: KitPlace | null }[];
    advice: string[];
    fix: (KitPlace & { title: string; replacement: string }) | null;
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
    diagnostics: KitDiagnostic[];
    blocks: EngineBlock[];
    tempo: Record<'seconds' | 'beats' | 'tempos', Address>;
    constants: { name: string; value: number | null; place: EnginePlace; calls: number }[];
    macros: { name: string; argumentCount: number; body: string; place: EnginePlace }[];
    seed: { value: number | null; place: EnginePlace; before: string; after: string } | null;
    midiRemarks: string[];
}

export interface PerformanceAnswer {
    diagnostics: KitDiagnostic[];
    otherLines: string[];
    hasStarted: boolean;
    hasEnded: boolean;
    peak: number;
    clipped: number;
}
