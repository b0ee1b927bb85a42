// The language of scores for editors made with CodeMirror 6.
export { hoverTextAt, type HoverText } from './hover.js';
export { scoreLanguage, vorn, type VornLanguageOptions } from './language.js';
export type { Name } from './names.js';
export { WORDS } from './words.js';
export type { Word } from 'vorn-wasm';
