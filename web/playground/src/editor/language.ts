// The language of scores in the editor.
import type { Extension } from '@codemirror/state';
import { vorn } from 'vorn-language';

export const scoreLanguage = (): Extension => vorn();
