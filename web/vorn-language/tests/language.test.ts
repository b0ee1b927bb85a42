import { CompletionContext } from '@codemirror/autocomplete';
import { foldable } from '@codemirror/language';
import { EditorState, Text } from '@codemirror/state';
import { describe, expect, it } from 'vitest';
import { completion } from '../src/completion.js';
import { hoverTextAt, vorn, WORDS } from '../src/index.js';
import { tokensAt } from '../src/tokens.js';

function docOf(text: string): Text {
    return Text.of(text.split('\n'));
}

/** "kind text" of every token. */
function kinds(text: string): string[] {
    const doc = docOf(text);
    const all: string[] = [];
    for (let line = 1; line <= doc.lines; ++line) {
        const { tokens } = tokensAt(doc, doc.line(line).from, true);
        all.push(...tokens.map((token) => `${token.kind} ${token.text}`));
    }
    return all;
}

function completed(before: string, after = ''): string[] {
    const state = EditorState.create({ doc: before + after });
    const found = completion(() => [{ name: 'OUTSIDE', kind: 'macro', value: '' }])(
        new CompletionContext(state, before.length, true),
    );
    if (found === null || found instanceof Promise) return [];
    return found.options.map(({ label }) => label);
}

const BLOCK = 'i1 = 5 0 4 {\n';

describe('tokens', () => {
    it('know what a letter means by where it stands', () => {
        expect(kinds(`${BLOCK}p4 no f4 mo(T 1 f 60 72) p5 ra(2 1 [f 0 1])}`)).toEqual([
            ...['instrument i', 'number 1', 'block =', 'number 5', 'number 0', 'number 4', 'block {'],
            ...['field p4', 'input-type no', 'note f4'],
            ...['generator mo', 'punctuation (', 'time T', 'number 1', 'curve f', 'number 60', 'number 72'],
            ...['punctuation )', 'field p5', 'generator ra', 'punctuation (', 'number 2', 'number 1'],
            ...['punctuation [', 'distribution f', 'number 0', 'number 1', 'punctuation ]', 'punctuation )'],
            'block }',
        ]);
    });

    it('tell types of input and of output apart', () => {
        expect(kinds(`${BLOCK}p4(op) no c4 bf3 p5 re2 .5`).slice(7)).toEqual([
            ...['field p4', 'punctuation (', 'output-type op', 'punctuation )', 'input-type no'],
            ...['note c4', 'note bf3', 'field p5', 'input-type re2', 'number .5'],
        ]);
    });

    it('know macros, constants, equations and files', () => {
        expect(kinds('#define A(x) #$x#\n#const B ~[2 * p3]\n#include |a b.inc|\n> f1 ~B')).toEqual([
            ...['directive #define', 'macro A', 'punctuation (', 'punctuation )', 'directive #', 'macro $x'],
            ...['directive #', 'directive #const', 'constant B', 'reference ~[', 'number 2', 'operator *'],
            ...[
                'equation-term p3',
                'punctuation ]',
                'directive #include',
                'file |a b.inc|',
                'direct > f1 ~B',
            ],
        ]);
    });

    it('pass over comments, which nest', () => {
        expect(kinds('te(60) /* a /* b */ c\nd */ rs(1) ; e')).toEqual([
            ...['global-command te', 'punctuation (', 'number 60', 'punctuation )'],
            ...['comment /* a /* b */ c', 'comment d */'],
            ...['global-command rs', 'punctuation (', 'number 1', 'punctuation )', 'comment ; e'],
        ]);
    });

    it('give every word of the list the kind that it has there', () => {
        const between = ['global-command', 'directive'];
        const inStatements = [
            'setting',
            'input-type',
            'output-type',
            'generator',
            'distribution',
            'curve',
            'note',
        ];
        for (const word of WORDS.filter(({ kind }) => [...between, ...inStatements].includes(kind))) {
            const isBetween = between.includes(word.kind) || /^#/m.test(word.example);
            if (word.word === '>') continue; // a whole line, of a kind of its own
            const found = kinds(isBetween ? word.example : BLOCK + word.example);
            expect(
                found.some((token) => token.startsWith(`${word.kind} ${word.word}`)),
                word.signature,
            ).toBe(true);
        }
    });
});

describe('completion', () => {
    it('offers what may stand there', () => {
        expect(completed('')).toEqual(expect.arrayContaining(['te', 'rs', 'rd', 'sr']));
        expect(completed(`${BLOCK}p4 `)).toEqual(expect.arrayContaining(['no', 're', 'ra', 'mo', 'dv']));
        expect(completed(`${BLOCK}p4(`)).toEqual(expect.arrayContaining(['op', 'hz', 'xx']));
        expect(completed(`${BLOCK}p4(`)).not.toContain('ra');
        expect(completed(`${BLOCK}p4 mo(T 1 `)).toEqual(expect.arrayContaining(['f', 'v', 's']));
        expect(completed(`${BLOCK}p4 ra(T 1 [`)).toEqual(['f', 'l', 'h', 't', 'g', 'x', 'b']);
        expect(completed('#')).toEqual(expect.arrayContaining(['#const', '#include']));
    });

    it("offers the score's own macros and constants, and names from elsewhere", () => {
        const score = '#define LOUD #90#\n#const BAR 4\n';
        expect(completed(`${score}te($`)).toEqual(['OUTSIDE', 'LOUD']);
        expect(completed(`${score}te(~B`)).toEqual(['BAR']);
    });

    it('keeps quiet in comments and direct lines', () => {
        expect(completed('; te')).toEqual([]);
        expect(completed('> f1 te')).toEqual([]);
    });
});

describe('hover texts', () => {
    it('tell the word that stands there', () => {
        const doc = docOf(`${BLOCK}p4 no f4 mo(T 1 f 60 72)`);
        const at = (text: string): string => hoverTextAt(doc, doc.toString().indexOf(text))?.text ?? '';
        const textOf = (word: string, kind: string): string =>
            WORDS.find((one) => one.word === word && one.kind === kind)?.text ?? 'missing';
        expect(at('f4')).toBe(textOf('f', 'note'));
        expect(at('f 60')).toBe(textOf('f', 'curve'));
        expect(at('mo(')).toBe(textOf('mo', 'generator'));
        expect(at('no ')).toBe(textOf('no', 'input-type'));
    });

    it('tell what a macro or a constant stands for', () => {
        const doc = docOf('#const BAR 4 ; 1..20\nte(~BAR)');
        expect(hoverTextAt(doc, doc.toString().indexOf('~BAR') + 1)?.text).toBe('4');
    });
});

describe('the editor', () => {
    it('folds blocks and conditions', () => {
        const text = `${BLOCK}p2 1\np3 1 }\n#if(1)\nte(60)\n#endif\n`;
        const state = EditorState.create({ doc: text, extensions: [vorn()] });
        const block = state.doc.line(1);
        expect(foldable(state, block.from, block.to)).toEqual({ from: block.to, to: text.indexOf('}') });
        const condition = state.doc.line(4);
        expect(foldable(state, condition.from, condition.to)).toEqual({
            from: condition.to,
            to: text.indexOf('#endif'),
        });
        expect(foldable(state, state.doc.line(2).from, state.doc.line(2).to)).toBeNull();
    });
});
