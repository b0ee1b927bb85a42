import type { VornErrorReason, VornMethods } from './types.js';

// What goes between a page and its Worker: requests by number, and their answers.

export interface Asking {
    readonly id: number;
    readonly method: keyof VornMethods;
    readonly args: readonly unknown[];
}

/** First that its engine is there, then its value or what it failed by. */
export type Answering =
    | { readonly id: number; readonly isBegun: true }
    | { readonly id: number; readonly value: unknown }
    | { readonly id: number; readonly failure: Failure };

/** An error as it crosses: a `VornError` by its reason, another one by its name. */
export interface Failure {
    readonly reason?: VornErrorReason;
    readonly name: string;
    readonly message: string;
}

/** The buffers of all typed arrays in a value, which then pass without being copied. */
export function transferablesOf(value: unknown, found = new Set<ArrayBuffer>()): Set<ArrayBuffer> {
    if (ArrayBuffer.isView(value)) {
        if (value.buffer instanceof ArrayBuffer) found.add(value.buffer);
    } else if (typeof value === 'object' && value !== null) {
        for (const inner of Object.values(value)) transferablesOf(inner, found);
    }
    return found;
}
