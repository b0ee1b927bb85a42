// The engine in its Worker. It begins to load as soon as the page does.
import { connectVorn, type VornClient } from 'vorn-wasm';
import EngineWorker from 'vorn-wasm/worker?worker';

export const connectEngine = (): Promise<VornClient> =>
    Promise.resolve(connectVorn(() => new EngineWorker()));
