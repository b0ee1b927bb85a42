import type {
    Completion,
    CompletionContext,
    CompletionResult,
    CompletionSource,
} from '@codemirror/autocomplete';
import type { Text } from '@codemirror/state';
import { namesIn, type Name } from './names.js';
import type { ScanState } from './scanner.js';
import { wordsOf } from './tables.js';
import { tokensAt } from './tokens.js';
import type { Word } from 'vorn-wasm';

// What may stand at the cursor is offered, and nothing else: output types in the
// parentheses behind a p-field, curves in mo(), macros behind "$".

export type NamesOf = () => readonly Name[];

const CALLED_KINDS = ['global-command', 'setting', 'generator'];

const TYPES: Record<string, string> = {
    'global-command': 'keyword',
    directive: 'keyword',
    setting: 'keyword',
    generator: 'function',
    'input-type': 'type',
    'output-type': 'type',
    distribution: 'enum',
    curve: 'enum',
};

function completionOf(word: Word): Completion {
    const isCalled = CALLED_KINDS.includes(word.kind) && word.signature.includes('(');
    return {
        label: word.word,
        detail: word.signature,
        info: word.text,
        type: TYPES[word.kind] ?? 'text',
        ...(isCalled && { apply: `${word.word}(` }),
    };
}

function nameCompletion({ name, kind, value }: Name): Completion {
    return { label: name, detail: value, type: kind === 'macro' ? 'function' : 'constant' };
}

/** The kinds of words that may begin in this state. */
export function kindsFor(state: ScanState): string[] {
    const innermost = state.open.at(-1);
    if (state.awaited === 'distribution') return ['distribution'];
    if (innermost === 'output') return ['output-type'];
    if (innermost === 'equation') return ['equation-term'];
    if (state.open.length > 0) return insideKinds(state.open);
    return state.isInBlock ? ['input-type', 'generator', 'setting'] : ['global-command'];
}

function insideKinds(open: readonly string[]): string[] {
    const [called = ''] = open;
    if (open.length > 1) return [];
    if (['mo', 'ms'].includes(called)) return ['time', 'curve', 'input-type'];
    if (called === 'te') return ['curve'];
    return ['ex', 'dx'].includes(called) ? ['time', 'result-flag'] : ['time', 'input-type'];
}

function namesFor(doc: Text, kind: Name['kind'], names: NamesOf | undefined): Completion[] {
    const all = new Map(
        [...(names?.() ?? []), ...namesIn(doc)].map((name) => [`${name.kind} ${name.name}`, name]),
    );
    return [...all.values()].filter((name) => name.kind === kind).map(nameCompletion);
}

function result(from: number, options: Completion[], validFor: RegExp): CompletionResult | null {
    return options.length === 0 ? null : { from, options, validFor };
}

export function completion(names?: NamesOf): CompletionSource {
    return (context: CompletionContext) => {
        const { doc } = context.state;
        const call = context.matchBefore(/[$~]\w*/);
        const word = call ?? context.matchBefore(/#?\w*/);
        if (word === null || (word.from === word.to && !context.explicit)) return null;
        const { tokens, state } = tokensAt(doc, word.from, false);
        const isText =
            state.commentDepth > 0 || tokens.some(({ kind }) => ['comment', 'direct'].includes(kind));
        if (isText) return null;
        if (call !== null) {
            const kind = call.text.startsWith('$') ? 'macro' : 'constant';
            return result(call.from + 1, namesFor(doc, kind, names), /^\w*$/);
        }
        const kinds = word.text.startsWith('#') ? ['directive'] : kindsFor(state);
        return result(word.from, wordsOf(...kinds).map(completionOf), /^#?\w*$/);
    };
}
