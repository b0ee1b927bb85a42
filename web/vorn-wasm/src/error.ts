import type { VornErrorLike, VornErrorReason } from './types.js';

/** Why there is no answer. A mistake in a score is none of these: it is a `Result`. */
export class VornError extends Error implements VornErrorLike {
    constructor(
        readonly reason: VornErrorReason,
        message: string,
    ) {
        super(message);
        this.name = 'VornError';
    }
}
