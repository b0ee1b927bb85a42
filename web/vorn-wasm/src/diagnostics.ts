import type { EnginePlace, KitDiagnostic, KitExcerpt, KitPlace } from './engine_answer.js';
import { Offsets } from './offsets.js';
import type { Diagnostic, Excerpt, Fix, Place } from './types.js';

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
        return this.make(file, begin, end, { line, column, endLine, endColumn });
    }

    ofKit(place: KitPlace): Place {
        const { line, column, end_line: endLine, end_column: endColumn } = place;
        return this.make(place.file, place.offset, place.end_offset, { line, column, endLine, endColumn });
    }

    private make(
        file: string,
        begin: number,
        end: number,
        lines: Omit<Place, 'file' | 'from' | 'to'>,
    ): Place {
        const offsets = this.offsetsOf(file);
        return { file, ...lines, from: offsets.at(begin), to: offsets.at(end) };
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

function excerpt(shown: KitExcerpt): Excerpt {
    return { text: shown.text, column: shown.column, endColumn: shown.end_column };
}

function fixOf(diagnostic: KitDiagnostic, places: Places): Fix | null {
    if (diagnostic.fix === null) return null;
    const { title, replacement } = diagnostic.fix;
    return { title, edits: [{ place: places.ofKit(diagnostic.fix), replacement }] };
}

function numberIn(code: string): number | null {
    const digits = /\d+$/.exec(code);
    return digits === null ? null : Number(digits[0]);
}

export function diagnosticOf(kit: KitDiagnostic, places: Places): Diagnostic {
    const place = (found: KitPlace | null): Place | null => (found === null ? null : places.ofKit(found));
    return {
        severity: kit.level,
        code: kit.code,
        number: numberIn(kit.code),
        text: kit.text,
        place: place(kit.place),
        source: kit.source === null ? null : excerpt(kit.source),
        expansion: kit.expansion && {
            before: kit.expansion.before,
            line: excerpt(kit.expansion.line),
            after: kit.expansion.after,
            calls: kit.expansion.calls.map((call) => ({ ...call, place: place(call.place) })),
        },
        notes: kit.notes.map((note) => ({ text: note.text, place: place(note.place) })),
        advice: kit.advice,
        fix: fixOf(kit, places),
        repeats: kit.repeats,
    };
}
