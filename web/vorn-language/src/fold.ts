import type { EditorState } from '@codemirror/state';
import { tokensAt } from './tokens.js';

// A block folds from its "{" to its "}"; a condition from its #if to its #endif.

const FARTHEST = 5000; // lines that a fold may have

interface Range {
    readonly from: number;
    readonly to: number;
}

export function blockFold(state: EditorState, lineStart: number, lineEnd: number): Range | null {
    const line = state.doc.lineAt(lineStart);
    const { tokens, state: after } = tokensAt(state.doc, line.from, true);
    const opens = tokens.findLast(({ kind, text }) => kind === 'block' && text === '{');
    if (opens !== undefined && after.isInBlock) return foldTo(state, opens.to, line.number, '}');
    const condition = tokens.find(({ kind, text }) => kind === 'directive' && text === '#if');
    return condition === undefined ? null : foldTo(state, lineEnd, line.number, '#endif');
}

/** Up to the first token of that text on a later line. */
function foldTo(state: EditorState, from: number, line: number, text: string): Range | null {
    const last = Math.min(state.doc.lines, line + FARTHEST);
    for (let number = line + 1; number <= last; ++number) {
        const next = state.doc.line(number);
        if (!next.text.includes(text)) continue;
        const end = tokensAt(state.doc, next.from, true).tokens.find((token) => token.text === text);
        if (end !== undefined) return { from, to: end.from };
    }
    return null;
}
