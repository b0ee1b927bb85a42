// The package as pages see it.
export { connectVorn, type WorkerLike } from './client.js';
export { VornError } from './error.js';
export { loadVorn } from './load.js';
export { createVorn } from './vorn.js';
export type * from './types.js';
