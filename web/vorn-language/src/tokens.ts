import { StringStream } from '@codemirror/language';
import type { Text } from '@codemirror/state';
import { scan, startState, type ScanState, type TokenKind } from './scanner.js';

// The tokens of a line, and what is open at a place: found by scanning from the nearest
// line before it at which a block begins, so that a long score costs no more than its block.

export interface Token {
    readonly kind: TokenKind;
    readonly from: number;
    readonly to: number;
    readonly text: string;
}

const FARTHEST = 2000; // lines
const TAB_SIZE = 4;

function firstLine(doc: Text, line: number): number {
    for (let number = line; number > Math.max(1, line - FARTHEST); --number) {
        if (/^\s*i-?\s*\d.*=/.test(doc.line(number).text)) return number;
    }
    return Math.max(1, line - FARTHEST);
}

function scanLine(text: string, state: ScanState, base: number, until: number): Token[] {
    const stream = new StringStream(text.slice(0, until), TAB_SIZE, 2);
    const tokens: Token[] = [];
    while (!stream.eol()) {
        stream.start = stream.pos;
        const kind = scan(stream, state);
        if (kind === null) continue;
        tokens.push({ kind, from: base + stream.start, to: base + stream.pos, text: stream.current() });
    }
    return tokens;
}

/** The state at `pos`, and the tokens of its line up to there, or the whole line. */
export function tokensAt(
    doc: Text,
    pos: number,
    isWholeLine: boolean,
): { tokens: Token[]; state: ScanState } {
    const last = doc.lineAt(pos);
    const state = startState();
    for (let number = firstLine(doc, last.number); number < last.number; ++number) {
        const line = doc.line(number);
        scanLine(line.text, state, line.from, line.length);
    }
    const until = isWholeLine ? last.length : pos - last.from;
    return { tokens: scanLine(last.text, state, last.from, until), state };
}
