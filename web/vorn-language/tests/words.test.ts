import { expect, it } from 'vitest';
import { loadVorn } from 'vorn-wasm/node';
import { WORDS } from '../src/words.js';

// `npm run words -w vorn-language` writes the list anew.
it('has the words that the engine has', async () => {
    const words = (await loadVorn()).words();
    expect(words.length).toBeGreaterThan(100);
    expect(WORDS).toEqual(words);
});
