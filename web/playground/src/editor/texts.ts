// How the text of the editor and that of the piece are kept the same, with as little change as needed.
import type { EditorState } from '@codemirror/state';
import { Annotation, Transaction } from '@codemirror/state';
import type { EditorView } from '@codemirror/view';
import type { AppStore } from '../state/app_state';

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

const changesOf = (edits: readonly Edit[], length: number): Difference[] =>
    edits.filter(({ to }) => to <= length).map(({ from, to, insert }) => ({ from, to, insert }));

// What the text has become meanwhile comes first, so that the edits alone are undone.
export function editedState(
    state: EditorState,
    text: string,
    edits: readonly Edit[],
    isGoingOn: boolean,
): EditorState {
    const behind = difference(state.doc.toString(), text);
    const now = behind ? state.update({ changes: behind, annotations: fromPiece.of(true) }).state : state;
    return now.update({ changes: changesOf(edits, text.length), annotations: goesOn.of(isGoingOn) }).state;
}

// Edits with places of the text that is shown.
export function editShown(view: EditorView, edits: readonly Edit[], isGoingOn: boolean): void {
    const changes = changesOf(edits, view.state.doc.length);
    if (changes.length > 0) view.dispatch({ changes, annotations: goesOn.of(isGoingOn) });
}
