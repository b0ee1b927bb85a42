import type { Vorn } from './types.js';
import { createVorn } from './vorn.js';

/** The engine in a page or a Worker; by default the module that lies beside this file. */
export async function loadVorn(
    source: string | URL = new URL('./vorn.wasm', import.meta.url),
): Promise<Vorn> {
    const response = await fetch(source);
    if (!response.ok) throw new Error(`${response.url}: ${String(response.status)} ${response.statusText}`);
    const isTyped = response.headers.get('content-type') === 'application/wasm';
    return createVorn(
        isTyped
            ? await WebAssembly.compileStreaming(response)
            : await WebAssembly.compile(await response.arrayBuffer()),
    );
}
