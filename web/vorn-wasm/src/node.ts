import { readFile } from 'node:fs/promises';
import type { Vorn } from './types.js';
import { createVorn } from './vorn.js';

// The package as Node sees it.
export { VornError } from './error.js';
export { createVorn } from './vorn.js';
export type * from './types.js';

/** The engine under Node. */
export async function loadVorn(
    source: string | URL = new URL('./vorn.wasm', import.meta.url),
): Promise<Vorn> {
    return createVorn(await WebAssembly.compile(new Uint8Array(await readFile(source))));
}
