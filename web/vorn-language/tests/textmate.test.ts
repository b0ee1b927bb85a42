import { readFileSync, readdirSync } from 'node:fs';
import { createRequire } from 'node:module';
import { basename, dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { beforeAll, describe, expect, test } from 'vitest';
import type { IGrammar, IToken, StateStack } from 'vscode-textmate';

// The grammar of editors/vscode, read by the engine that VS Code colours with: each piece of
// a score has its scope, and no example leaves a state behind.

const require = createRequire(import.meta.url);
const oniguruma = require('vscode-oniguruma') as typeof import('vscode-oniguruma');
const textmate = require('vscode-textmate') as typeof import('vscode-textmate');

const top = join(dirname(fileURLToPath(import.meta.url)), '../../..');
const grammarPath = join(top, 'editors/vscode/syntaxes/vorn.tmLanguage.json');

type Piece = readonly [line: number, text: string, which: number, what: string];

interface Pieces {
    readonly score: readonly string[];
    readonly pieces: readonly Piece[];
}

interface ColouredLine {
    readonly line: string;
    readonly tokens: readonly IToken[];
}

// Of what each piece is, the beginning of its scope.
const scopes: Record<string, readonly string[]> = {
    comment: ['comment.'],
    command: ['keyword.other.command.'],
    number: ['constant.numeric.'],
    curve: ['constant.language.curve.', 'keyword.operator.curve.'],
    constant: ['variable.other.constant.'],
    direct: ['string.unquoted.csound.', 'keyword.other.command.'],
    directive: ['keyword.control.directive.'],
    macro: ['entity.name.function.macro.'],
    pfield: ['keyword.control.pfield.'],
    instrument: ['entity.name.type.instrument.'],
    type: ['storage.type.input.', 'storage.type.output.'],
    note: ['variable.other.note.'],
    rest: ['constant.language.rest.'],
    repeat: ['keyword.operator.repeat.', 'constant.language.previous.'],
    generator: ['support.function.generator.'],
    time: ['constant.language.time.'],
    distribution: ['constant.language.distribution.'],
    field: ['variable.parameter.pfield.'],
    include: ['string.quoted.other.'],
};

let grammar: IGrammar;

beforeAll(async () => {
    const wasm = readFileSync(join(dirname(require.resolve('vscode-oniguruma')), 'onig.wasm'));
    await oniguruma.loadWASM(wasm);
    const registry = new textmate.Registry({
        onigLib: Promise.resolve({
            createOnigScanner: (patterns) => new oniguruma.OnigScanner(patterns),
            createOnigString: (text) => new oniguruma.OnigString(text),
        }),
        loadGrammar: () =>
            Promise.resolve(textmate.parseRawGrammar(readFileSync(grammarPath, 'utf8'), grammarPath)),
    });
    const loaded = await registry.loadGrammar('source.vorn');
    if (loaded === null) throw new Error('the grammar cannot be read');
    grammar = loaded;
});

function coloured(lines: readonly string[]): { lines: ColouredLine[]; state: StateStack } {
    let state = textmate.INITIAL;
    const result = lines.map((line) => {
        const { tokens, ruleStack } = grammar.tokenizeLine(line, state);
        state = ruleStack;
        return { line, tokens };
    });
    return { lines: result, state };
}

function scopesAt(line: ColouredLine | undefined, column: number): readonly string[] {
    const token = line?.tokens.find((one) => one.startIndex <= column && column < one.endIndex);
    return token?.scopes ?? [];
}

function columnOf(line: string, text: string, which: number): number {
    let at = -1;
    for (let count = 0; count < which; ++count) at = line.indexOf(text, at + 1);
    return at;
}

function examples(): string[] {
    const folder = join(top, 'examples');
    return readdirSync(folder, { recursive: true, encoding: 'utf8' })
        .filter((name) => name.endsWith('.vorn'))
        .map((name) => join(folder, name));
}

const { score, pieces } = JSON.parse(
    readFileSync(join(top, 'tests/kit/editor_pieces.json'), 'utf8'),
) as Pieces;

describe('the grammar', () => {
    test.each(pieces)('line %i: %s (%i) is a %s', (line, text, which, what) => {
        const place = coloured(score).lines[line - 1];
        const column = columnOf(place?.line ?? '', text, which);
        expect(column).toBeGreaterThanOrEqual(0);
        const innermost = scopesAt(place, column).at(-1) ?? '';
        const isOneOf = (scopes[what] ?? []).some((scope) => innermost.startsWith(scope));
        const isWithin =
            what === 'comment' && scopesAt(place, column).some((one) => one.startsWith('comment.'));
        expect(isOneOf || isWithin, innermost).toBe(true);
    });

    test('has a scope for everything that is visible in an example', () => {
        for (const path of examples()) {
            const { lines } = coloured(readFileSync(path, 'utf8').split('\n'));
            const bare = lines.flatMap(({ line, tokens }) =>
                tokens
                    .filter((one) => !one.scopes.slice(1).some((scope) => !scope.startsWith('meta.')))
                    .map((one) => line.slice(one.startIndex, one.endIndex).trim())
                    .filter((text) => text !== ''),
            );
            expect(bare, basename(path)).toEqual([]);
        }
    });

    test('leaves no state behind any example', () => {
        expect(examples().length).toBeGreaterThan(9);
        for (const path of examples()) {
            const { state } = coloured(readFileSync(path, 'utf8').split('\n'));
            expect(state.depth, basename(path)).toBe(1);
        }
    });

    test('colours nothing but comments in comments', () => {
        for (const path of examples()) {
            const { lines } = coloured(readFileSync(path, 'utf8').split('\n'));
            for (const { line, tokens } of lines.filter((one) => one.line.startsWith(';'))) {
                expect(
                    tokens.map((one) => one.scopes.at(-1)),
                    line,
                ).toEqual(['comment.line.semicolon.vorn']);
            }
        }
    });
});
