// The engine for embedded scores: part of the script, in the page's own thread, one for all of them.
import { loadVorn } from 'vorn-wasm';
import type { Vorn } from 'vorn-wasm';
import program from 'vorn-wasm/vorn.wasm?inline';

let engine: Promise<Vorn> | undefined;

export function loadEngine(): Promise<Vorn> {
    engine ??= fetch(program)
        .then((answer) => answer.arrayBuffer())
        .then((bytes) => loadVorn(bytes));
    return engine;
}
