// window.vornPlayground: how other programs drive the page and read what it shows. README.md documents it.
import type { Diagnostic, Result, VornClient } from 'vorn-wasm';
import type { PictureView } from '../app/picture_view';
import type { Computing } from '../engine/computing';
import type { Autosave } from '../keep/autosave';
import type { Sounding } from '../sound/sounding';
import type { AppStore } from '../state/app_state';
import { mainFile, toPiece, writtenSourcesOf } from '../state/piece';

export interface PlaygroundResult {
    readonly status: 0 | 1 | null; // null: it was stopped
    readonly messages: string;
    readonly trouble: string;
    readonly diagnostics: readonly Diagnostic[];
    readonly blocks: Result['blocks'];
    readonly eventCount: number;
    readonly seconds: number;
    readonly milliseconds: number; // that the engine has worked
}

export interface PlaygroundState {
    readonly title: string;
    readonly files: Record<string, string>;
    readonly sounding: 'silent' | 'loading' | 'playing';
    readonly position: number;
    readonly loops: boolean;
    readonly soundTrouble: string;
    readonly span: { readonly from: number; readonly to: number };
}

export interface Playground {
    /** Puts named texts in the place of the piece, the score first. Settles when the result is drawn. */
    load(files: Record<string, string>, title?: string): Promise<PlaygroundResult>;
    /** The result of the present text, when it is drawn. */
    result(): Promise<PlaygroundResult>;
    /** Settles when all that was written so far is computed and drawn. */
    drawn(): Promise<void>;
    /** Computes texts that are not shown, and tells how many events they have. */
    compile(files: Record<string, string>): Promise<{ status: 0 | 1; eventCount: number }>;
    /** The bytes of the Csound score. */
    score(): Promise<Uint8Array>;
    /** From so many seconds on, which lie within the piece. Browsers want a click or a key before the first sound. */
    play(from?: number): Promise<void>;
    stop(): void;
    state(): PlaygroundState;
    /** The samples that are heard at this moment. */
    heard(): { samples: Float32Array; sampleRate: number };
    /** Settles when all of the page is held for use without a network; false where it is not to be. */
    offline(): Promise<boolean>;
    /** Draws the picture so many times and tells the milliseconds of each. */
    measureDrawing(times: number): number[];
}

export interface Parts {
    readonly store: AppStore;
    readonly computing: Computing;
    readonly view: PictureView;
    readonly sounding: Sounding;
    readonly autosave: Autosave;
    readonly engine: Promise<VornClient>;
    readonly held: Promise<boolean>;
}

function toResult(store: AppStore): PlaygroundResult {
    const { result, trouble } = store.state;
    return {
        status: result?.status ?? null,
        messages: result?.messages ?? '',
        trouble,
        diagnostics: result?.diagnostics ?? [],
        blocks: result?.blocks ?? [],
        eventCount: result?.eventCount ?? 0,
        seconds: result?.seconds ?? 0,
        milliseconds: result?.milliseconds ?? 0,
    };
}

function toState({ store, view, sounding }: Parts): PlaygroundState {
    const { piece, loops, soundTrouble, sounding: now } = store.state;
    return {
        title: piece.title,
        files: Object.fromEntries(piece.files.map(({ name, text }) => [name, text])),
        sounding: now,
        position: now === 'playing' ? sounding.position : store.state.position,
        loops,
        soundTrouble,
        span: view.picture.span,
    };
}

// What lies outside of the piece leads to its ends, and what is no number to its beginning.
function placeIn({ state: { piece, result, resultPiece } }: AppStore, from: number): number {
    const end = result && resultPiece === piece ? result.seconds : Infinity;
    return Math.min(Math.max(from, 0) || 0, end);
}

function measureDrawing({ view }: Parts, times: number): number[] {
    return Array.from({ length: times }, () => {
        const begin = performance.now();
        view.picture.draw();
        return performance.now() - begin;
    });
}

async function scoreBytes({ store, engine }: Parts): Promise<Uint8Array> {
    const { piece } = store.state;
    const options = { main: mainFile(piece).name, outputs: ['score' as const] };
    return (await (await engine).compile(writtenSourcesOf(piece), options)).score ?? new Uint8Array();
}

async function compileAside(
    { engine }: Parts,
    files: Record<string, string>,
): Promise<{ status: 0 | 1; eventCount: number }> {
    const { status, eventCount } = await (await engine).compile(files, { outputs: [] });
    return { status, eventCount };
}

export function makeInterface(parts: Parts): Playground {
    const { store, computing, view, sounding, autosave } = parts;
    const drawn = async (): Promise<void> => {
        await computing.settled();
        if (view.picture.scene) await view.drawn();
    };
    const result = async (): Promise<PlaygroundResult> => {
        await drawn();
        return toResult(store);
    };
    const load = (files: Record<string, string>, title = 'untitled'): Promise<PlaygroundResult> => {
        const texts = Object.entries(files).map(([name, text]) => ({ name, text }));
        const piece = toPiece({ title, files: texts });
        if (!piece) throw new TypeError('load wants named texts, the score first.');
        autosave.replace(piece, 'before a program put another piece here');
        return result();
    };
    return {
        load,
        drawn,
        result,
        compile: (files) => compileAside(parts, files),
        score: () => scoreBytes(parts),
        play: (from = 0) => sounding.play(placeIn(store, from)),
        stop: () => sounding.stop(),
        state: () => toState(parts),
        heard: () => sounding.heard(),
        offline: () => parts.held,
        measureDrawing: (times) => measureDrawing(parts, times),
    };
}

declare global {
    interface Window {
        vornPlayground?: Playground;
    }
}
