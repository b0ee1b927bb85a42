import type { StringStream } from '@codemirror/language';
import { anyOf } from './tables.js';

// From a score's text to its tokens. What a letter means depends on where it stands:
//
//     f      between the blocks nothing, under "no" a note, in mo() a curve,
//            behind the "[" of ra() a distribution
//
// so the scanner keeps what is open: block, statement, generators, brackets. A grammar
// without such a state would read every "f" alike. What it yields is the kind of a
// word, by the names of the word list, or one of the kinds below.

export type TokenKind = string;

/** Kinds that are no words of the list. */
export const OTHER_KINDS = ['number', 'macro', 'constant', 'file', 'direct', 'instrument', 'field'] as const;

export interface ScanState {
    commentDepth: number;
    isInBlock: boolean;
    inputType: string;
    /** What each open parenthesis or bracket belongs to: "ra", "output", "equation", "list" ... */
    open: readonly string[];
    /** What the next token is, whatever it looks like. */
    awaited: 'macro' | 'constant' | 'file' | 'output' | 'distribution' | null;
    /** The generator, setting or command whose "(" comes next. */
    called: string;
}

export function startState(): ScanState {
    return { commentDepth: 0, isInBlock: false, inputType: 're', open: [], awaited: null, called: '' };
}

const CALLED = '(?=\\s*\\()';
const PATTERNS = {
    directive: anyOf(['directive'], '\\b'),
    time: anyOf(['reference'], '(?!\\w)'),
    command: anyOf(['global-command'], CALLED),
    generator: anyOf(['generator'], CALLED),
    setting: anyOf(['setting'], CALLED),
    input: anyOf(['input-type'], '(?![a-zA-Z])'),
    output: anyOf(['output-type']),
    curve: anyOf(['curve']),
    distribution: anyOf(['distribution'], '(?![a-zA-Z(])'),
    note: /(?:[a-gA-G](?:[sfn]+|[+-]+)?\d*|[rR])(?![a-zA-Z(])/,
    number: /[+-]?(?:\d+\.?\d*|\.\d+)/,
    unsigned: /\d+\.?\d*|\.\d+/,
    name: /[A-Za-z_]\w*/,
};

const WITH_CURVES = ['mo', 'ms', 'te'];
const WITH_MARKS = ['se', 's2'];
const WITH_DISTRIBUTIONS = ['ra', 'rw'];
const NOTE_TYPES = ['no', 'nox'];

function innermost(state: ScanState): string {
    return state.open.at(-1) ?? '';
}

function isIn(state: ScanState, names: readonly string[]): boolean {
    return state.open.some((name) => names.includes(name));
}

/** Reads one token, or blanks, and returns its kind; null: it has none. */
export function scan(stream: StringStream, state: ScanState): TokenKind | null {
    if (state.commentDepth > 0) return scanComment(stream, state);
    if (stream.eatSpace()) return null;
    if (stream.match('/*')) {
        state.commentDepth = 1;
        return scanComment(stream, state);
    }
    if (stream.eat(';')) {
        stream.skipToEnd();
        return 'comment';
    }
    return (
        scanAwaited(stream, state) ??
        scanPreprocessor(stream, state) ??
        scanPunctuation(stream, state) ??
        scanWord(stream, state) ??
        skip(stream)
    );
}

function skip(stream: StringStream): null {
    stream.next();
    return null;
}

/** Block comments nest. */
function scanComment(stream: StringStream, state: ScanState): TokenKind {
    while (state.commentDepth > 0 && !stream.eol()) {
        if (stream.match('/*')) ++state.commentDepth;
        else if (stream.match('*/')) --state.commentDepth;
        else stream.next();
    }
    return 'comment';
}

function scanAwaited(stream: StringStream, state: ScanState): TokenKind | null {
    const { awaited } = state;
    state.awaited = null;
    if (awaited === 'file') return stream.match(/\|[^|]*\|?/) ? 'file' : null;
    if (awaited === 'macro' || awaited === 'constant') return stream.match(PATTERNS.name) ? awaited : null;
    if (awaited === 'output' && stream.eat('(')) {
        state.open = [...state.open, 'output'];
        return 'punctuation';
    }
    if (awaited === 'distribution' && stream.match(PATTERNS.distribution)) return 'distribution';
    return null;
}

function scanPreprocessor(stream: StringStream, state: ScanState): TokenKind | null {
    if (stream.peek() === '#') return scanDirective(stream, state);
    if (stream.peek() === '$') {
        stream.next();
        return stream.match(PATTERNS.name) ? 'macro' : 'reference';
    }
    return stream.peek() === '~' ? scanReference(stream, state) : null;
}

function scanDirective(stream: StringStream, state: ScanState): TokenKind {
    if (!stream.match(PATTERNS.directive)) {
        stream.next();
        return 'directive';
    }
    const word = stream.current();
    if (word === '#include') state.awaited = 'file';
    else if (word === '#const') state.awaited = 'constant';
    else if (word === '#define' || word === '#undef') state.awaited = 'macro';
    return 'directive';
}

function scanReference(stream: StringStream, state: ScanState): TokenKind {
    if (stream.match('~[')) {
        state.open = [...state.open, 'equation'];
        return 'reference';
    }
    if (stream.match(/~@[1-9]/)) return 'reference';
    stream.next();
    return stream.match(PATTERNS.name) ? 'constant' : 'reference';
}

function scanPunctuation(stream: StringStream, state: ScanState): TokenKind | null {
    const character = stream.peek() ?? '';
    if (character === '>' && !state.isInBlock && state.open.length === 0) {
        stream.skipToEnd();
        return 'direct';
    }
    if ('{}'.includes(character)) return scanBrace(stream, state);
    if ('([])'.includes(character)) return scanBracket(stream, state);
    if ('<>'.includes(character)) return taken(stream, 'loop');
    if (":'".includes(character)) return taken(stream, 'chord');
    if (character === ',') return taken(stream, 'punctuation');
    return character === '=' ? taken(stream, 'block') : null;
}

function taken(stream: StringStream, kind: TokenKind): TokenKind {
    stream.next();
    return kind;
}

function scanBrace(stream: StringStream, state: ScanState): TokenKind {
    state.isInBlock = stream.next() === '{';
    state.open = [];
    state.inputType = 're';
    return 'block';
}

function scanBracket(stream: StringStream, state: ScanState): TokenKind {
    const character = stream.next() ?? '';
    if (')]'.includes(character)) state.open = state.open.slice(0, -1);
    else if (character === '(') state.open = [...state.open, state.called || innermost(state)];
    else state.open = [...state.open, openedBy(state)];
    if (character === '[' && WITH_DISTRIBUTIONS.includes(state.open.at(-2) ?? '')) {
        state.awaited = 'distribution';
    }
    state.called = '';
    return 'punctuation';
}

/** What a "[" begins: an equation in ex() and within another, else a list. */
function openedBy(state: ScanState): string {
    return ['ex', 'dx', 'equation'].includes(innermost(state)) ? 'equation' : 'list';
}

function scanWord(stream: StringStream, state: ScanState): TokenKind | null {
    if (innermost(state) === 'equation') return scanTerm(stream);
    if (innermost(state) === 'output') return stream.match(PATTERNS.output) ? 'output-type' : null;
    if (state.open.length > 0) return scanInside(stream, state);
    return state.isInBlock ? scanStatement(stream, state) : scanBetweenBlocks(stream, state);
}

function scanTerm(stream: StringStream): TokenKind | null {
    if (stream.match(PATTERNS.unsigned)) return 'number';
    if (stream.match(/[pP]\d+|\?|@[12]/)) return 'equation-term';
    if (stream.match(/[-+*/%]/)) return 'operator';
    return stream.match(PATTERNS.name) ? 'constant' : null;
}

function scanBetweenBlocks(stream: StringStream, state: ScanState): TokenKind | null {
    if (stream.match(/[iI](?=\s*-?\s*\d)/)) return 'instrument';
    if (stream.match(PATTERNS.number)) return 'number';
    return scanCall(stream, state, PATTERNS.command, 'global-command');
}

function scanCall(
    stream: StringStream,
    state: ScanState,
    pattern: RegExp,
    kind: TokenKind,
): TokenKind | null {
    if (!stream.match(pattern)) return null;
    state.called = stream.current().toLowerCase();
    return kind;
}

function scanStatement(stream: StringStream, state: ScanState): TokenKind | null {
    if (stream.match(/p\d+/)) {
        state.inputType = 're';
        state.awaited = 'output';
        return 'field';
    }
    const call =
        scanCall(stream, state, PATTERNS.generator, 'generator') ??
        scanCall(stream, state, PATTERNS.setting, 'setting');
    if (call !== null) return call;
    return scanInputType(stream, state) ?? scanValue(stream, state) ?? scanRepeat(stream);
}

function scanInputType(stream: StringStream, state: ScanState): TokenKind | null {
    if (!stream.match(PATTERNS.input)) return null;
    state.inputType = stream.current().toLowerCase();
    return 'input-type';
}

function scanValue(stream: StringStream, state: ScanState): TokenKind | null {
    if (NOTE_TYPES.includes(state.inputType) && stream.match(PATTERNS.note)) return 'note';
    return stream.match(PATTERNS.number) ? 'number' : null;
}

function scanRepeat(stream: StringStream): TokenKind | null {
    return stream.match(/x(?=\d)|[zZ]|\//) ? 'repeat' : null;
}

/** In the parentheses of a generator, a setting or a command. */
function scanInside(stream: StringStream, state: ScanState): TokenKind | null {
    const isOutermost = state.open.length === 1;
    if (isOutermost && stream.match(/T(?![a-zA-Z])/)) return 'time';
    if (isOutermost && isIn(state, WITH_CURVES) && stream.match(PATTERNS.curve)) return 'curve';
    if (isOutermost && stream.match(/[fFiI](?=\s*\[)/)) return 'result-flag';
    if (isIn(state, WITH_CURVES) && stream.eat('*')) return 'curve-mark';
    if (isIn(state, WITH_MARKS) && stream.match(/\*|x(?=\s*\[)/)) return 'set-mark';
    if (stream.eat('*')) return 'operator';
    return scanInputType(stream, state) ?? scanValue(stream, state) ?? scanRepeat(stream);
}
