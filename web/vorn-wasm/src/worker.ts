import { loadVorn } from './load.js';
import type { Asking } from './protocol.js';
import { serve } from './serve.js';
import type { Vorn } from './types.js';

// The script of the Worker: `new Worker(new URL('vorn-wasm/worker', import.meta.url), { type: 'module' })`.

const scope = self as unknown as DedicatedWorkerGlobalScope;
let whole: Promise<Vorn> | undefined;
const engines = {
    small: loadVorn(new URL('./vorn-small.wasm', import.meta.url)),
    whole: () => (whole ??= loadVorn()),
};
const handle = serve(engines, (message, transfer) => {
    scope.postMessage(message, transfer);
});
scope.onmessage = (event: MessageEvent<Asking>) => void handle(event.data);
