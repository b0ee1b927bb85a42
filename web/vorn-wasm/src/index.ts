// The package as pages see it.
export { VornError } from './error.js';
export type * from './types.js';
