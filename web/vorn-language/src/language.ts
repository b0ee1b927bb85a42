import { LanguageSupport, StreamLanguage, foldService, indentUnit } from '@codemirror/language';
import type { Extension } from '@codemirror/state';
import { tags, type Tag } from '@lezer/highlight';
import { completion, type NamesOf } from './completion.js';
import { blockFold } from './fold.js';
import { hover } from './hover.js';
import { scan, startState, type ScanState } from './scanner.js';

// The language for CodeMirror: tokens become tags, which a theme gives its colours.

const TAGS: Record<string, Tag> = {
    comment: tags.comment,
    directive: tags.processingInstruction,
    reference: tags.special(tags.variableName),
    macro: tags.macroName,
    constant: tags.constant(tags.variableName),
    file: tags.string,
    direct: tags.meta,
    'global-command': tags.keyword,
    setting: tags.keyword,
    instrument: tags.heading,
    field: tags.propertyName,
    block: tags.brace,
    'input-type': tags.typeName,
    'output-type': tags.typeName,
    generator: tags.function(tags.variableName),
    time: tags.standard(tags.variableName),
    distribution: tags.modifier,
    curve: tags.modifier,
    'curve-mark': tags.modifier,
    'set-mark': tags.modifier,
    'result-flag': tags.modifier,
    'equation-term': tags.propertyName,
    operator: tags.operator,
    note: tags.atom,
    repeat: tags.controlOperator,
    loop: tags.controlOperator,
    chord: tags.controlOperator,
    punctuation: tags.punctuation,
    number: tags.number,
};

export const scoreLanguage = StreamLanguage.define<ScanState>({
    name: 'vorn',
    startState,
    copyState: (state) => ({ ...state }),
    token: scan,
    tokenTable: TAGS,
    languageData: {
        commentTokens: { line: ';', block: { open: '/*', close: '*/' } },
        closeBrackets: { brackets: ['(', '[', '{', '<'] },
    },
});

export interface VornLanguageOptions {
    /** Names beside those that the text itself defines, as of its includes. */
    readonly names?: NamesOf;
}

/** Scores: highlighting, completion, hover texts, folding, brackets. */
export function vorn(options: VornLanguageOptions = {}): LanguageSupport {
    const support: Extension[] = [
        scoreLanguage.data.of({ autocomplete: completion(options.names) }),
        hover,
        foldService.of(blockFold),
        indentUnit.of('  '),
    ];
    return new LanguageSupport(scoreLanguage, support);
}
