// The language of scores in the editor, with the macros and constants that includes define, too. Where a
// line is so long that nobody wrote it by hand, text is text: colouring it would hold up the page.
import { Compartment, EditorState, type Extension, type Text } from '@codemirror/state';
import { vorn, type Name } from 'vorn-language';
import type { AppStore } from '../state/app_state';

const LONGEST_LINE = 20000;

function knownNames({ state }: AppStore): Name[] {
    const { macros = [], constants = [] } = state.goodResult ?? {};
    return [
        ...macros.map(({ name, body }) => ({ name, kind: 'macro' as const, value: body })),
        ...constants.map(({ name, value }) => ({ name, kind: 'constant' as const, value: String(value) })),
    ];
}

export const hasLongLine = (text: string): boolean => {
    for (let begin = 0; begin < text.length;) {
        const end = text.indexOf('\n', begin);
        const length = (end < 0 ? text.length : end) - begin;
        if (length > LONGEST_LINE) return true;
        begin += length + 1;
    }
    return false;
};

function isTooLong(doc: Text): boolean {
    return doc.length > LONGEST_LINE && hasLongLine(doc.toString());
}

export function scoreLanguage(store: AppStore, text: string): Extension {
    const place = new Compartment();
    const language = vorn({ names: () => knownNames(store) });
    const leave = EditorState.transactionExtender.of((transaction) =>
        transaction.docChanged && isTooLong(transaction.newDoc) ? { effects: place.reconfigure([]) } : null,
    );
    return [place.of(hasLongLine(text) ? [] : language), leave];
}
