// The language of scores in the editor, with the macros and constants that includes define, too.
import type { Extension } from '@codemirror/state';
import { vorn, type Name } from 'vorn-language';
import type { AppStore } from '../state/app_state';

function knownNames({ state }: AppStore): Name[] {
    const { macros = [], constants = [] } = state.goodResult ?? {};
    return [
        ...macros.map(({ name, body }) => ({ name, kind: 'macro' as const, value: body })),
        ...constants.map(({ name, value }) => ({ name, kind: 'constant' as const, value: String(value) })),
    ];
}

export const scoreLanguage = (store: AppStore): Extension => vorn({ names: () => knownNames(store) });
