// The engine in its Worker. It begins to load as soon as the page does.
import { connectVorn } from 'vorn-wasm';
import type { VornClient } from 'vorn-wasm';

export const connectEngine = (): Promise<VornClient> => Promise.resolve(connectVorn());
