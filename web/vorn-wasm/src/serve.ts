import { VornError } from './error.js';
import { transferablesOf, type Answering, type Asking, type Failure } from './protocol.js';
import type { Vorn } from './types.js';

// The Worker's side: answers one request after the other.

type Send = (message: Answering, transfer: ArrayBuffer[]) => void;

function failureOf(error: unknown): Failure {
    if (!(error instanceof Error)) return { name: 'Error', message: String(error) };
    const { name, message } = error;
    return error instanceof VornError ? { reason: error.reason, name, message } : { name, message };
}

function answer(vorn: Vorn, { method, args }: Asking): unknown {
    const call = vorn[method] as (...values: readonly unknown[]) => unknown;
    return call.apply(vorn, [...args]);
}

/** Returns what handles a message. Requests that come before the engine is there wait for it. */
export function serve(loading: Promise<Vorn>, send: Send): (asking: Asking) => Promise<void> {
    return async (asking) => {
        try {
            const value = answer(await loading, asking);
            send({ id: asking.id, value }, [...transferablesOf(value)]);
        } catch (error) {
            send({ id: asking.id, failure: failureOf(error) }, []);
        }
    };
}
