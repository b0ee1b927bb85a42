// Writes src/words.ts, the word list of the language as the engine tells it. To be run
// when a test says that both have drifted apart: npm run words -w vorn-language.
import { writeFileSync } from 'node:fs';
import { loadVorn } from 'vorn-wasm/node';

const words = (await loadVorn()).words();
const lines = words.map((word) => `    ${JSON.stringify(word)},`).join('\n');
writeFileSync(
    new URL('../src/words.ts', import.meta.url),
    `// Made by tools/make_words.mjs from the engine's own list; not to be changed by hand.
import type { Word } from 'vorn-wasm';

export const WORDS: readonly Word[] = [
${lines}
];
`,
);
