// How long a complaint of Csound holds: until what it is about has been changed. What is said of the score may be
// mended anywhere in the score or in the orchestra; what is said of the orchestra, in its line.
import type { Diagnostic } from 'vorn-wasm';
import { orchestraOf, partsOf } from '../state/orchestras';
import { fileOf, type Piece, type TextFile } from '../state/piece';

const hasSameOrchestra = (before: Piece, after: Piece): boolean =>
    orchestraOf(before)?.name === orchestraOf(after)?.name;

export function soundsAlike(before: Piece, after: Piece): boolean {
    if (!hasSameOrchestra(before, after)) return false;
    const names = new Set([...before.files, ...after.files].map(({ name }) => name));
    return [...names].every((name) => fileOf(before, name)?.text === fileOf(after, name)?.text);
}

function sharedLines(before: readonly string[], after: readonly string[]): { above: number; below: number } {
    const most = Math.min(before.length, after.length);
    let above = 0;
    while (above < most && before[above] === after[above]) above++;
    let below = 0;
    while (below < most - above && before.at(-1 - below) === after.at(-1 - below)) below++;
    return { above, below };
}

// The complaint where its line stands now; nothing when the line has been changed.
function moved(complaint: Diagnostic, before: string, after: string): Diagnostic | undefined {
    const { place } = complaint;
    if (!place) return undefined;
    const lines = before.split('\n');
    const linesAfter = after.split('\n');
    const { above, below } = sharedLines(lines, linesAfter);
    if (place.line <= above) return complaint;
    if (place.line <= lines.length - below) return undefined;
    const down = linesAfter.length - lines.length;
    const on = after.length - before.length;
    const { line, endLine, from, to } = place;
    return {
        ...complaint,
        place: { ...place, line: line + down, endLine: endLine + down, from: from + on, to: to + on },
    };
}

// A file that was asked for, as in "cannot open 'reverb.inc'", and has come.
const asksFor = ({ text }: Diagnostic, { files }: Piece, before: Piece): boolean =>
    files.some(({ name }) => text.includes(`'${name}'`) && !fileOf(before, name));

function partsOfOrchestra(piece: Piece): readonly TextFile[] {
    const orchestra = orchestraOf(piece);
    return orchestra ? partsOf(piece, orchestra) : [];
}

// Those complaints of the piece `before` that hold for `after`, too.
export function stillHolding(
    complaints: readonly Diagnostic[],
    before: Piece,
    after: Piece,
): readonly Diagnostic[] {
    if (complaints.length === 0 || soundsAlike(before, after)) return complaints;
    if (!hasSameOrchestra(before, after)) return [];
    const parts = partsOfOrchestra(before);
    return complaints.flatMap((one) => {
        const part = parts.find(({ name }) => name === one.place?.file);
        const now = part && fileOf(after, part.name);
        if (!now || asksFor(one, after, before)) return [];
        return (part.text === now.text ? one : moved(one, part.text, now.text)) ?? [];
    });
}
