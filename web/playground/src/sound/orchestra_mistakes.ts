// What Csound complained of while it read an orchestra, as mistakes where they stand. It tells in several
// lines, coloured or not, of which one may name the line of the orchestra:
//
//     error: syntax error, unexpected T_IDENT  (token "nosuch")
//      line 6:
//      >>> asound nosuch <<<
import type { Diagnostic, Place } from 'vorn-wasm';
import type { TextFile } from '../state/piece';

interface Complaint {
    text: string;
    line: number; // from 1 on; 0: none was named
}

const MARKS = new RegExp(String.raw`\u001b\[[0-9;]*m|\u0000`, 'g');
const COMPLAINT = /^error:\s*(.+)$|^(cannot open .+)$|^(unterminated string) found on line \d+/i;
const LINE = /^(?:line:? |unterminated string found on line )(\d+)/i;
const TYPES = /^found: (.+)$/i; // behind a complaint that ends in a colon

export const withoutMarks = (text: string): string => text.replace(MARKS, '');

function readComplaints(text: string): Complaint[] {
    const complaints: Complaint[] = [];
    for (const raw of withoutMarks(text).split('\n')) {
        const line = raw.trim().replace(/\s+/g, ' ');
        const words = COMPLAINT.exec(line);
        if (words) complaints.push({ text: words[1] ?? words[2] ?? words[3] ?? line, line: 0 });
        const last = complaints.at(-1);
        if (!last) continue;
        if (last.line === 0) last.line = Number(LINE.exec(line)?.[1] ?? 0);
        if (last.text.endsWith(':')) last.text += TYPES.exec(line)?.[1]?.replace(/^/, ' ') ?? '';
    }
    return complaints;
}

// A file that an orchestra includes is told by its name alone.
function lineOf({ text, line }: Complaint, lines: readonly string[]): Complaint {
    const name = /^cannot open #include'd file (.+)$/i.exec(text)?.[1];
    if (line > 0 || name === undefined) return { text, line };
    return {
        text: `cannot open '${name}'`,
        line: lines.findIndex((one) => one.trimStart().startsWith('#include') && one.includes(name)) + 1,
    };
}

// The word that the complaint quotes, or else the whole line.
function placeOf(complaint: Complaint, orchestra: TextFile): Place | null {
    const lines = orchestra.text.split('\n');
    const { text, line } = lineOf(complaint, lines);
    if (line === 0) return null;
    const at = Math.min(line, lines.length);
    const written = lines[at - 1] ?? '';
    const quoted = /["']([^"']+)["']/.exec(text)?.[1]?.trim() ?? '';
    const found = quoted === '' ? -1 : written.indexOf(quoted);
    const begin = found >= 0 ? found : written.length - written.trimStart().length;
    const end = found >= 0 ? found + quoted.length : written.trimEnd().length;
    const from = lines.slice(0, at - 1).reduce((sum, one) => sum + one.length + 1, 0);
    return {
        file: orchestra.name,
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

// Where lines are named, what names none follows from the others. `refusal` stands where nothing is told.
export function orchestraMistakes(said: string, orchestra: TextFile, refusal: string): Diagnostic[] {
    const all = readComplaints(said).map((one) => toDiagnostic(one.text, placeOf(one, orchestra)));
    const placed = all.filter(({ place }) => place);
    if (placed.length > 0) return placed;
    return all.length > 0 ? all : [toDiagnostic(refusal, null)];
}
