// The texts of a piece in one editor: each file has a state of its own, with its own undo, and the tabs
// choose which is shown. What is typed becomes part of the piece; what the piece gets from elsewhere (a
// slider, a quick fix in another file) becomes part of the text.
import {
    autocompletion,
    closeBrackets,
    closeBracketsKeymap,
    completionKeymap,
} from '@codemirror/autocomplete';
import { defaultKeymap, history, historyKeymap, indentWithTab } from '@codemirror/commands';
import { bracketMatching, foldGutter, foldKeymap, indentUnit } from '@codemirror/language';
import { lintGutter, nextDiagnostic } from '@codemirror/lint';
import { highlightSelectionMatches, searchKeymap } from '@codemirror/search';
import { EditorState, type Extension } from '@codemirror/state';
import {
    drawSelection,
    EditorView,
    highlightActiveLine,
    highlightActiveLineGutter,
    highlightSpecialChars,
    keymap,
    lineNumbers,
    type ViewUpdate,
} from '@codemirror/view';
import type { AppStore } from '../state/app_state';
import { fileOf, isOrchestra, withText } from '../state/piece';
import { find } from '../ui/dom';
import { syntaxColors } from './colors';
import { scoreLanguage } from './language';
import { showWayOut } from './way_out';
import { editedState, editShown, fromPiece, goesOn, placeCursor, takeOver, type Edit } from './texts';

export interface Editor {
    readonly view: EditorView;
    // `isGoingOn`: they are undone together with those before.
    apply(edits: readonly Edit[], isGoingOn?: boolean): void;
    // Shows a place of a file and puts the cursor there.
    reveal(file: string, from: number, to?: number): void;
}

// Tab indents; Escape and then Tab leaves the editor.
const keys = keymap.of([
    ...closeBracketsKeymap,
    ...defaultKeymap,
    ...searchKeymap,
    ...historyKeymap,
    ...foldKeymap,
    ...completionKeymap,
    // The page lists the mistakes itself (ui/problems.ts), so the editor's own list is left out.
    { key: 'F8', run: nextDiagnostic },
    indentWithTab,
]);

// The words of the editor's own panels, as the page writes its own.
const phrases = EditorState.phrases.of({
    next: 'Next',
    previous: 'Previous',
    all: 'All',
    'match case': 'Match case',
    regexp: 'Regular expression',
    'by word': 'Whole words',
    replace: 'Replace',
    'replace all': 'Replace all',
    close: 'Close',
    go: 'Go',
});

// The rules of the editor are let in by this word (tools/content_security.ts).
const NONCE = 'editor';

const common: Extension = [
    EditorView.cspNonce.of(NONCE),
    lineNumbers(),
    highlightActiveLineGutter(),
    highlightSpecialChars(),
    history({ joinToEvent: (change, isAdjacent) => change.annotation(goesOn) ?? isAdjacent }),
    foldGutter(),
    drawSelection(),
    indentUnit.of('    '),
    bracketMatching(),
    closeBrackets(),
    autocompletion({ icons: false }),
    highlightActiveLine(),
    highlightSelectionMatches({ minSelectionLength: 2 }),
    lintGutter(),
    syntaxColors,
    phrases,
    keys,
];

const named = (name: string): Extension =>
    EditorView.contentAttributes.of({
        'aria-label': isOrchestra(name) ? `Orchestra ${name}` : `Score ${name}`,
        'aria-describedby': 'editor-help',
        tabindex: '0',
        spellcheck: 'false',
        autocorrect: 'off',
        autocapitalize: 'off',
    });

// The states of the files that are not shown.
class States {
    private readonly kept = new Map<string, EditorState>();
    private shown: string;

    constructor(
        private readonly store: AppStore,
        private readonly extensions: Extension,
    ) {
        this.shown = store.state.activeFile;
    }

    get(name: string): EditorState {
        return this.kept.get(name) ?? this.fresh(name);
    }
    isShown(name: string): boolean {
        return this.shown === name;
    }
    change(name: string, before: EditorState): EditorState {
        this.kept.set(this.shown, before);
        this.shown = name;
        return this.get(name);
    }
    // What is done to a file that is not shown can be undone when it is.
    edit(name: string, edits: readonly Edit[], isGoingOn: boolean): void {
        const file = fileOf(this.store.state.piece, name);
        if (!file) return;
        const state = editedState(this.get(name), file.text, edits, isGoingOn);
        this.kept.set(name, state);
        const text = state.doc.toString();
        this.store.act('edit another file', ({ piece }) => ({ piece: withText(piece, name, text) }));
    }
    renew(): EditorState {
        this.kept.clear();
        this.shown = this.store.state.activeFile;
        return this.get(this.shown);
    }
    private fresh(name: string): EditorState {
        const doc = fileOf(this.store.state.piece, name)?.text ?? '';
        const language = isOrchestra(name) ? [] : scoreLanguage(this.store, doc);
        return EditorState.create({
            doc,
            extensions: [language, common, named(name), this.extensions],
        });
    }
}

function tellPiece(store: AppStore, update: ViewUpdate): void {
    const isTyped = update.docChanged && !update.transactions.some((one) => one.annotation(fromPiece));
    if (isTyped) {
        const text = update.state.doc.toString();
        store.act('type', (state) => ({ piece: withText(state.piece, state.activeFile, text) }));
    }
    if (update.selectionSet || update.docChanged) placeCursor(store, update.state);
}

function followPiece(store: AppStore, view: EditorView, states: States): void {
    const textOf = (name: string): string => fileOf(store.state.piece, name)?.text ?? '';
    store.watch(
        (state) => state.pieceNumber,
        () => view.setState(states.renew()),
    );
    store.watch(
        (state) => state.activeFile,
        (name) => {
            if (states.isShown(name)) return;
            view.setState(states.change(name, view.state));
            takeOver(view, textOf(name));
            placeCursor(store, view.state);
        },
    );
    store.watch(
        (state) => fileOf(state.piece, state.activeFile)?.text,
        () => states.isShown(store.state.activeFile) && takeOver(view, textOf(store.state.activeFile)),
    );
}

function reveal(store: AppStore, view: EditorView, file: string, from: number, to: number): void {
    if (!fileOf(store.state.piece, file)) return;
    store.act('show file', () => ({ activeFile: file, page: 'text' }));
    const end = view.state.doc.length;
    view.dispatch({
        selection: { anchor: Math.min(from, end), head: Math.min(to, end) },
        effects: EditorView.scrollIntoView(Math.min(from, end), { y: 'center' }),
    });
    view.focus();
}

function applyEdits(view: EditorView, states: States, edits: readonly Edit[], isGoingOn: boolean): void {
    for (const name of new Set(edits.map(({ file }) => file))) {
        const own = edits.filter(({ file }) => file === name);
        if (states.isShown(name)) editShown(view, own, isGoingOn);
        else states.edit(name, own, isGoingOn);
    }
}

// The link at the beginning of the page: the browser by itself would go to beside the text.
function followSkip(store: AppStore, view: EditorView): void {
    find('.skip', HTMLAnchorElement).addEventListener('click', (event) => {
        event.preventDefault();
        store.act('skip to the score', () => ({ page: 'text' }));
        view.focus();
    });
}

export function createEditor(store: AppStore, parent: HTMLElement, extra: Extension): Editor {
    const listener = EditorView.updateListener.of((update) => tellPiece(store, update));
    const states = new States(store, [extra, listener]);
    const view = new EditorView({ state: states.get(store.state.activeFile), parent });
    followPiece(store, view, states);
    showWayOut(parent);
    followSkip(store, view);
    return {
        view,
        apply: (edits, isGoingOn = false) => applyEdits(view, states, edits, isGoingOn),
        reveal: (file, from, to = from) => reveal(store, view, file, from, to),
    };
}
