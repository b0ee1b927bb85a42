import type { Text } from '@codemirror/state';
import { hoverTooltip, type EditorView, type Tooltip } from '@codemirror/view';
import { namesIn } from './names.js';
import { wordCalled } from './tables.js';
import { tokensAt, type Token } from './tokens.js';

// What a word is, how it is written, what it does: from the word list, for the kind that
// the word has where it stands.

export interface HoverText {
    readonly from: number;
    readonly to: number;
    readonly title: string;
    readonly text: string;
    readonly example: string;
}

/** Tokens that are called otherwise in the word list. */
const KINDS: Record<string, readonly string[]> = {
    instrument: ['block'],
    field: ['block'],
    number: ['input-type'],
};

function named(token: Token, doc: Text): HoverText | null {
    const name = token.text.replace(/^[$~]/, '');
    const found = namesIn(doc).find((one) => one.name === name && one.kind === token.kind);
    if (found === undefined) return null;
    return { from: token.from, to: token.to, title: found.name, text: found.value, example: '' };
}

export function hoverTextAt(doc: Text, pos: number): HoverText | null {
    const token = tokensAt(doc, pos, true).tokens.find(({ from, to }) => from <= pos && pos < to);
    if (token === undefined) return null;
    if (token.kind === 'macro' || token.kind === 'constant') return named(token, doc);
    const isNumbered = token.kind === 'field' || token.kind === 'note' || token.kind === 'equation-term';
    const spelling = isNumbered ? token.text.slice(0, 1) : token.text;
    const word = wordCalled(spelling, KINDS[token.kind] ?? [token.kind]);
    if (word === undefined) return null;
    return { from: token.from, to: token.to, title: word.signature, text: word.text, example: word.example };
}

function line(name: string, text: string): HTMLElement {
    const element = document.createElement('div');
    element.className = `vorn-hover-${name}`;
    element.textContent = text;
    return element;
}

function elementOf({ title, text, example }: HoverText): HTMLElement {
    const element = document.createElement('div');
    element.className = 'vorn-hover';
    element.append(line('title', title), line('text', text));
    if (example !== '') element.append(line('example', example));
    return element;
}

function tooltipAt(view: EditorView, pos: number): Tooltip | null {
    const found = hoverTextAt(view.state.doc, pos);
    return (
        found && { pos: found.from, end: found.to, above: true, create: () => ({ dom: elementOf(found) }) }
    );
}

export const hover = hoverTooltip(tooltipAt);
