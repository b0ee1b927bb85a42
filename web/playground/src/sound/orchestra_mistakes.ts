// What Csound complained of while it read an orchestra, as mistakes where they stand. It tells in several
// lines, coloured or not, of which one may name the line of the orchestra:
//
//     error: syntax error, unexpected T_IDENT  (token "nosuch")
//      line 6:
//      >>> asound nosuch <<<
import type { Diagnostic, Place } from 'vorn-wasm';
import { includedBy } from '../state/orchestras';
import type { TextFile } from '../state/piece';

interface Complaint {
    text: string;
    line: number; // from 1 on; 0: none was named
    file: string | undefined; // that is included; none: it is the orchestra itself
}

const MARKS = new RegExp(String.raw`\u001b\[[0-9;]*m|\u0000`, 'g');
const COMPLAINT = /^error:\s*(.+)$|^(cannot open .+)$|^(unterminated string) found on line \d+/i;
const LINE = /^(?:line:? |unterminated string found on line )(\d+)/i;
const FILE = /^from file (.+?) \(\d+\)/i; // the innermost stands first
const TYPES = /^found: (.+)$/i; // behind a complaint that ends in a colon

export const withoutMarks = (text: string): string => text.replace(MARKS, '');

// Whatever stands behind the name of a file gets a line of its own.
const linesOf = (said: string): string[] =>
    withoutMarks(said)
        .replace(/(from file .*? \(\d+\)), */g, '$1\n')
        .split('\n')
        .map((line) => line.trim().replace(/\s+/g, ' '));

// A string without its end is told before its file is: what follows from it names that.
const fileBehind = ({ text }: Complaint, next: Complaint | undefined): string | undefined =>
    text === 'unterminated string' ? next?.file : undefined;

function readComplaints(said: string): Complaint[] {
    const complaints: Complaint[] = [];
    for (const line of linesOf(said)) {
        const words = COMPLAINT.exec(line)
            ?.slice(1)
            .find((one) => one !== undefined);
        if (words !== undefined) complaints.push({ text: words, line: 0, file: undefined });
        const last = complaints.at(-1);
        if (!last) continue;
        if (last.line === 0) last.line = Number(LINE.exec(line)?.[1] ?? 0);
        last.file ??= FILE.exec(line)?.[1];
        if (last.text.endsWith(':')) last.text += TYPES.exec(line)?.[1]?.replace(/^/, ' ') ?? '';
    }
    return complaints.map((one, at) => ({ ...one, file: one.file ?? fileBehind(one, complaints[at + 1]) }));
}

type Spot = readonly [file: TextFile, line: number];

// A file that is included is told by its name alone: the line is the first that names it.
function spotOfInclude(name: string, parts: readonly TextFile[]): Spot | undefined {
    for (const file of parts) {
        const at = file.text.split('\n').findIndex((line) => includedBy(line) === name);
        if (at >= 0) return [file, at + 1];
    }
    return undefined;
}

function spotOf({ line, file }: Complaint, parts: readonly TextFile[]): Spot | undefined {
    const found = file === undefined ? parts[0] : parts.find(({ name }) => name === file);
    return found && line > 0 ? [found, line] : undefined;
}

// The word that the complaint quotes, or else the whole line.
function placeOf(words: string, [file, line]: Spot): Place {
    const lines = file.text.split('\n');
    const at = Math.min(line, lines.length);
    const written = lines[at - 1] ?? '';
    const quoted = /["']([^"']+)["']/.exec(words)?.[1]?.trim() ?? '';
    const found = quoted === '' ? -1 : written.indexOf(quoted);
    const begin = found >= 0 ? found : written.length - written.trimStart().length;
    const end = found >= 0 ? found + quoted.length : written.trimEnd().length;
    const from = lines.slice(0, at - 1).reduce((sum, one) => sum + one.length + 1, 0);
    return {
        file: file.name,
        line: at,
        column: begin + 1,
        endLine: at,
        endColumn: end + 1,
        from: from + begin,
        to: from + end,
    };
}

const toDiagnostic = (text: string, place: Place | null): Diagnostic => ({
    severity: 'error',
    code: 'Csound',
    number: null,
    text,
    place,
    source: null,
    expansion: null,
    notes: [],
    advice: [],
    fix: null,
    repeats: 1,
});

// Csound opens files that include each other in a circle until it can open no more.
function wordsOf({ text }: Complaint, asked: string | undefined, parts: readonly TextFile[]): string {
    if (asked === undefined) return text;
    const isThere = parts.some(({ name }) => name === asked);
    return isThere ? `includes of '${asked}' are nested too deeply` : `cannot open '${asked}'`;
}

function mistake(complaint: Complaint, parts: readonly TextFile[]): Diagnostic {
    const asked = /^cannot open #include'd file (.+)$/i.exec(complaint.text)?.[1];
    const text = wordsOf(complaint, asked, parts);
    const spot = asked === undefined ? spotOf(complaint, parts) : spotOfInclude(asked, parts);
    return toDiagnostic(text, spot ? placeOf(text, spot) : null);
}

// Where lines are named, what names none follows from the others. `parts` are the orchestra and the files that it
// includes; `refusal` stands where nothing is told.
export function orchestraMistakes(said: string, parts: readonly TextFile[], refusal: string): Diagnostic[] {
    const all = readComplaints(said).map((one) => mistake(one, parts));
    const placed = all.filter(({ place }) => place);
    if (placed.length > 0) return placed;
    return all.length > 0 ? all : [toDiagnostic(refusal, null)];
}
