// The engine for embedded scores: part of the script, in the page's own thread, one for all of them.
import { createVorn, type Vorn } from 'vorn-wasm';
import program from 'vorn-wasm/vorn.wasm?url';

let engine: Promise<Vorn> | undefined;

async function load(): Promise<Vorn> {
    const answer = await fetch(program);
    return createVorn(await WebAssembly.compile(await answer.arrayBuffer()));
}

export const loadEngine = (): Promise<Vorn> => (engine ??= load());
