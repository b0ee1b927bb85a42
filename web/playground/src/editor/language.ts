// The language of scores in the editor.
import type { Extension } from '@codemirror/state';

export const scoreLanguage = (): Extension => [];
