import { loadVorn } from './load.js';
import type { Asking } from './protocol.js';
import { serve } from './serve.js';

// The script of the Worker: `new Worker(new URL('vorn-wasm/worker', import.meta.url), { type: 'module' })`.

const scope = self as unknown as DedicatedWorkerGlobalScope;
const handle = serve(loadVorn(), (message, transfer) => {
    scope.postMessage(message, transfer);
});
scope.onmessage = (event: MessageEvent<Asking>) => void handle(event.data);
