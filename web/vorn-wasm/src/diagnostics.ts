import type { EngineDiagnostic, EngineExcerpt, EnginePlace } from './engine_answer.js';
import { Offsets } from './offsets.js';
import type { Call, Diagnostic, Excerpt, Fix, Place, Severity } from './types.js';

// Places and diagnostics as pages want them, counted as strings count.

/** The texts of a run's files, for places in them. */
export class Places {
    private readonly offsets = new Map<string, Offsets>();

    constructor(
        private readonly files: readonly { readonly name: string; readonly bytes: () => Uint8Array }[],
    ) {}

    ofEngine(place: EnginePlace): Place | null {
        const file = place === null ? undefined : this.files[place[0]]?.name;
        if (place === null || file === undefined) return null;
        const [, begin, end, line, column, endLine, endColumn] = place;
        const offsets = this.offsetsOf(file);
        return { file, line, column, endLine, endColumn, from: offsets.at(begin), to: offsets.at(end) };
    }

    private offsetsOf(file: string): Offsets {
        let offsets = this.offsets.get(file);
        if (offsets === undefined) {
            offsets = new Offsets(this.files.find(({ name }) => name === file)?.bytes() ?? new Uint8Array());
            this.offsets.set(file, offsets);
        }
        return offsets;
    }
}

// In the order of the engine's own (kit/diagnose/diagnostic.h, src/input/observer.h).
const LEVELS: readonly Severity[] = ['error', 'warning', 'lint'];
const KINDS: readonly Call['kind'][] = ['macro', 'constant', 'equation', 'time'];

function excerpt([text, column, endColumn]: EngineExcerpt): Excerpt {
    return { text, column, endColumn };
}

function expansionOf(expansion: EngineDiagnostic['expansion'], places: Places): Diagnostic['expansion'] {
    if (expansion === null) return null;
    const calls = expansion.calls.map(({ kind, name, place }) => ({
        kind: KINDS[kind] as Call['kind'],
        name,
        place: places.ofEngine(place),
    }));
    return { ...expansion, line: excerpt(expansion.line), calls };
}

function fixOf(fix: EngineDiagnostic['fix'], places: Places): Fix | null {
    const place = fix && places.ofEngine(fix.place);
    return place && { title: fix.title, edits: [{ place, replacement: fix.replacement }] };
}

function numberIn(code: string): number | null {
    const digits = /\d+$/.exec(code);
    return digits === null ? null : Number(digits[0]);
}

export function diagnosticOf(found: EngineDiagnostic, places: Places): Diagnostic {
    return {
        severity: LEVELS[found.level] as Severity,
        code: found.code,
        number: numberIn(found.code),
        text: found.text,
        place: places.ofEngine(found.place),
        source: found.source && excerpt(found.source),
        expansion: expansionOf(found.expansion, places),
        notes: found.notes.map(({ text, place }) => ({ text, place: places.ofEngine(place) })),
        advice: found.advice,
        fix: fixOf(found.fix, places),
        repeats: found.repeats,
    };
}
