import { VornError } from './error.js';
import { transferablesOf, type Answering, type Asking, type Failure } from './protocol.js';
import type { CompileOptions, Output, Vorn, VornMethods } from './types.js';

// The Worker's side: answers one request after the other. The small engine, which loads in
// half the time, answers as long as nobody asks for what the whole one alone can make.

type Send = (message: Answering, transfer: ArrayBuffer[]) => void;

export interface Engines {
    readonly small: Promise<Vorn>;
    /** Loads it at the first call. */
    readonly whole: () => Promise<Vorn>;
}

const OF_BOTH: readonly Output[] = ['score', 'midi', 'expansion'];
const OF_WHOLE: readonly (keyof VornMethods)[] = ['explain', 'explanations', 'words'];

function wantsWhole({ method, args }: Asking): boolean {
    const options = args[1] as CompileOptions | undefined;
    const isBeyond = (output: Output): boolean => !OF_BOTH.includes(output);
    return OF_WHOLE.includes(method) || (method === 'compile' && (options?.outputs ?? []).some(isBeyond));
}

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
export function serve(engines: Engines, send: Send): (asking: Asking) => Promise<void> {
    let last = engines.small; // that has compiled, and knows what a later question is about
    return async (asking) => {
        try {
            const isNew = asking.method === 'compile' || asking.method === 'run';
            const engine = wantsWhole(asking) ? engines.whole() : isNew ? engines.small : last;
            if (asking.method === 'compile') last = engine;
            const vorn = await engine;
            send({ id: asking.id, isBegun: true }, []);
            const value = answer(vorn, asking);
            send({ id: asking.id, value }, [...transferablesOf(value)]);
        } catch (error) {
            send({ id: asking.id, failure: failureOf(error) }, []);
        }
    };
}
