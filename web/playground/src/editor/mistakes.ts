// Mistakes where they stand: the engine's diagnostics become marks of the editor, with the advice that is
// shown on hover and a button for each certain cure.
import { setDiagnostics, type Diagnostic as Mark } from '@codemirror/lint';
import type { Diagnostic, Fix } from 'vorn-wasm';
import type { AppState, AppStore } from '../state/app_state';
import { make, prose } from '../ui/dom';
import { notice } from '../ui/notices';
import type { Editor } from './editor';
import type { Edit } from './texts';

const SEVERITIES = { error: 'error', warning: 'warning', lint: 'info' } as const;

export const severityName = { error: 'Error', warning: 'Warning', lint: 'Note' } as const;

const editsOf = (fix: Fix): Edit[] =>
    fix.edits.map(({ place, replacement }) => ({
        file: place.file,
        from: place.from,
        to: place.to,
        insert: replacement,
    }));

const CHANGED = 'The text has changed since; its mistakes are being looked for anew.';

// The places of a cure hold in the text in which it was found, and in no other.
export function cure({ state }: AppStore, editor: Editor, fix: Fix): void {
    if (state.piece === state.resultPiece) editor.apply(editsOf(fix));
    else notice(CHANGED);
}

// All that is said of the piece: by the engine and, when it has been played, by Csound.
export const allDiagnostics = ({ result, soundDiagnostics }: Readonly<AppState>): Diagnostic[] => [
    ...(result?.diagnostics ?? []),
    ...soundDiagnostics,
];

function told(diagnostic: Diagnostic): HTMLElement {
    return make(
        'div',
        { class: 'told' },
        make('p', {}, make('b', {}, diagnostic.code), ' ' + diagnostic.text),
        ...diagnostic.advice.map((advice) => make('p', { class: 'told-advice' }, ...prose(advice))),
        ...diagnostic.notes.map((note) => make('p', { class: 'told-advice' }, ...prose(note.text))),
    );
}

function toMark(diagnostic: Diagnostic, store: AppStore, editor: Editor): Mark | undefined {
    const { place, fix } = diagnostic;
    if (!place) return undefined;
    const length = editor.view.state.doc.length;
    const from = Math.min(place.from, length);
    return {
        from,
        to: Math.min(Math.max(place.to, from), length),
        severity: SEVERITIES[diagnostic.severity],
        message: [diagnostic.text, ...diagnostic.advice].join(' '),
        renderMessage: () => told(diagnostic),
        actions: fix ? [{ name: fix.title.replaceAll('`', ''), apply: () => cure(store, editor, fix) }] : [],
    };
}

export function showMistakes(store: AppStore, editor: Editor): void {
    const show = (): void => {
        const { activeFile } = store.state;
        const here = allDiagnostics(store.state).filter((one) => one.place?.file === activeFile);
        const marks = here.map((one) => toMark(one, store, editor)).filter((one) => one !== undefined);
        editor.view.dispatch(setDiagnostics(editor.view.state, marks));
    };
    store.watch((state) => state.result, show);
    store.watch((state) => state.activeFile, show);
    store.watch((state) => state.soundDiagnostics, show);
}
