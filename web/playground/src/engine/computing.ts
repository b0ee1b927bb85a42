// Keeps the result abreast of the text: each change is computed at once and, while one is under way,
// only the newest of those that came meanwhile. The engine works in a Worker and is ended when a score
// keeps it longer than the deadline; the text stays as it is, and so does the last picture.
import { VornError, type Result, type VornClient } from 'vorn-wasm';
import { mainFile, sourcesOf, type Piece } from '../state/piece';
import type { AppStore } from '../state/app_state';

export const DEADLINE = 1500;
export const LONG_DEADLINE = 30000;

const REASONS: Record<string, string> = {
    deadline: 'This score takes long to compute, so it was stopped.',
    memory: 'This score needs more memory than a page has.',
    engine: 'The engine stopped at this score. The text is untouched; please report it.',
    closed: 'The engine has been closed.',
};

export interface Computing {
    // Computes the present text, with more time than usual when `deadline` says so.
    now(deadline?: number): void;
    // Settles when the present text has a result, or a trouble.
    settled(): Promise<void>;
}

const hasEvents = (result: Result): boolean => result.eventCount > 0 || result.status === 0;

function showResult(store: AppStore, piece: Piece, result: Result): void {
    store.act('show result', (state) => ({
        result,
        resultPiece: piece,
        goodResult: hasEvents(result) ? result : state.goodResult,
        trouble: '',
    }));
}

function showTrouble(store: AppStore, error: unknown): void {
    const reason = error instanceof VornError ? error.reason : 'engine';
    store.act('show trouble', () => ({ result: null, trouble: REASONS[reason] ?? String(error) }));
}

export function startComputing(store: AppStore, engine: Promise<VornClient>): Computing {
    let waiting: number | undefined;
    let running: Promise<void> | undefined;

    const compute = async (deadline: number): Promise<void> => {
        const { piece } = store.state;
        try {
            const client = await engine;
            const options = { main: mainFile(piece).name, outputs: [] };
            showResult(store, piece, await client.compile(sourcesOf(piece), options, { deadline }));
        } catch (error) {
            showTrouble(store, error);
        }
    };
    const work = async (): Promise<void> => {
        store.act('begin computing', () => ({ isComputing: true }));
        while (waiting !== undefined) {
            const deadline = waiting;
            waiting = undefined;
            await compute(deadline);
        }
        running = undefined;
        store.act('end computing', () => ({ isComputing: false }));
    };
    const now = (deadline = DEADLINE): void => {
        waiting = deadline;
        running ??= work();
    };
    store.watch(
        (state) => state.piece,
        () => now(),
    );
    return { now, settled: () => running ?? Promise.resolve() };
}
