// How the text of the editor and that of the piece are kept the same, with as little change as needed.
import type { EditorState } from '@codemirror/state';
import { Annotation, Transaction } from '@codemirror/state';
import type { EditorView } from '@codemirror/view';
import type { AppStore } from '../state/app_state';
import { fileOf, withText } from '../state/piece';

export interface Edit {
    readonly file: string;
    readonly from: number;
    readonly to: number;
    readonly insert: string;
}

// A change that the piece has made, which is not told to the piece again.
export const fromPiece = Transaction.remote;

// Whether a change goes on with the one before, as while a slider is held: both are undone at once.
export const goesOn = Annotation.define<boolean>();

export interface Difference {
    readonly from: number;
    readonly to: number;
    readonly insert: string;
}

// The one stretch in which two texts differ.
export function difference(before: string, after: string): Difference | undefined {
    if (before === after) return undefined;
    const most = Math.min(before.length, after.length);
    let from = 0;
    while (from < most && before[from] === after[from]) from++;
    let kept = 0;
    while (kept < most - from && before[before.length - 1 - kept] === after[after.length - 1 - kept]) kept++;
    return { from, to: before.length - kept, insert: after.slice(from, after.length - kept) };
}

export function takeOver(view: EditorView, text: string): void {
    const changes = difference(view.state.doc.toString(), text);
    if (changes) view.dispatch({ changes, annotations: fromPiece.of(true) });
}

export function placeCursor(store: AppStore, state: EditorState): void {
    const offset = state.selection.main.head;
    const line = state.doc.lineAt(offset).number;
    store.act('move cursor', (now) => ({ cursor: { file: now.activeFile, offset, line } }));
}

function applyElsewhere(store: AppStore, { file, from, to, insert }: Edit): void {
    store.act('edit another file', ({ piece }) => {
        const text = fileOf(piece, file)?.text ?? '';
        return { piece: withText(piece, file, text.slice(0, from) + insert + text.slice(to)) };
    });
}

// Edits with places of the text before, later ones first in each file, so that places stay right.
export function applyEdits(
    store: AppStore,
    view: EditorView,
    edits: readonly Edit[],
    isGoingOn: boolean,
): void {
    const { activeFile } = store.state;
    const here = edits.filter((edit) => edit.file === activeFile);
    const elsewhere = edits.filter((edit) => edit.file !== activeFile);
    for (const edit of elsewhere.sort((a, b) => b.from - a.from)) applyElsewhere(store, edit);
    const length = view.state.doc.length;
    const changes = here
        .filter(({ to }) => to <= length)
        .map(({ from, to, insert }) => ({ from, to, insert }));
    if (changes.length > 0) view.dispatch({ changes, annotations: goesOn.of(isGoingOn) });
}
