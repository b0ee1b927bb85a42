import type { Word } from 'vorn-wasm';
import { WORDS } from './words.js';

// The word list, by kind and by spelling.

export function wordsOf(...kinds: readonly string[]): Word[] {
    return WORDS.filter(({ kind }) => kinds.includes(kind));
}

/** The word of one of the kinds that a text in a score is; digits behind it belong to it. */
export function wordCalled(text: string, kinds: readonly string[]): Word | undefined {
    return wordsOf(...kinds).find((word) => {
        const [wanted, found] = word.any_case
            ? [word.word.toLowerCase(), text.toLowerCase()]
            : [word.word, text];
        return found === wanted || (word.digits !== undefined && isFollowedByDigits(found, wanted));
    });
}

function isFollowedByDigits(text: string, word: string): boolean {
    return text.startsWith(word) && /^\d+$/.test(text.slice(word.length));
}

function escaped(text: string): string {
    return text.replace(/[.*+?^${}()|[\]\\]/g, '\\$&');
}

function patternOf(word: Word): string {
    const digits = word.digits === undefined ? '' : `[${word.digits}]?`;
    const letters = escaped(word.word);
    const text = word.any_case ? letters.replace(/[a-z]/g, (c) => `[${c}${c.toUpperCase()}]`) : letters;
    return text + digits;
}

/** Matches any word of the kinds, the longest first, where `behind` follows. */
export function anyOf(kinds: readonly string[], behind = ''): RegExp {
    const words = wordsOf(...kinds).sort((a, b) => b.word.length - a.word.length);
    return new RegExp(`(?:${words.map(patternOf).join('|')})${behind}`);
}
