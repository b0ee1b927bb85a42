// What the page knows at one moment.
import type { Diagnostic, Result } from 'vorn-wasm';
import { emptyPiece, mainFile, type Piece } from './piece';
import { createStore, type Store } from './store';

// By what a piece is played, where it is no MIDI port.
export const ORCHESTRA = 'orchestra'; // its own, or else one that is made for it
export const BUILT_IN = 'built-in'; // the one that is made for it
export const MIDI = 'midi'; // the file, on an instrument of the page's own

export type Sounding = 'silent' | 'loading' | 'playing';
export type Panel = 'values' | 'seeds' | 'sliders' | 'sound';
export type Theme = 'automatic' | 'light' | 'dark';
export type Page = 'text' | 'picture' | 'panels'; // which of them a narrow screen shows

export interface CursorPlace {
    readonly file: string;
    readonly offset: number;
    readonly line: number;
}

// A seed that was liked, with its small picture as the address of an image.
export interface KeptSeed {
    readonly value: number;
    readonly picture: string;
}

// What is kept of a piece beside its texts.
export interface Seeds {
    readonly keptSeeds: readonly KeptSeed[];
    readonly seedIsLocked: boolean;
}

export interface AppState extends Seeds {
    readonly piece: Piece;
    readonly activeFile: string;
    readonly pieceNumber: number; // rises when another piece takes the place of this one
    readonly result: Result | null; // of the newest text that was computed
    readonly resultPiece: Piece | null; // the texts it belongs to
    readonly goodResult: Result | null; // the last one with events to show
    readonly trouble: string; // why there is no result
    readonly isComputing: boolean;
    readonly cursor: CursorPlace;
    readonly hiddenInstruments: ReadonlySet<number>;
    readonly sounding: Sounding;
    readonly position: number; // seconds of the score
    readonly loops: boolean;
    readonly volume: number; // 0 to 1
    readonly output: string; // one of those above or the id of a MIDI port
    readonly soundText: string; // what Csound said
    readonly soundDiagnostics: readonly Diagnostic[];
    readonly soundTrouble: string;
    readonly panel: Panel;
    readonly page: Page;
    readonly theme: Theme;
    readonly isManualOpen: boolean;
}

export type AppStore = Store<AppState>;

export function createAppStore(): AppStore {
    const piece = emptyPiece();
    return createStore<AppState>({
        piece,
        activeFile: mainFile(piece).name,
        pieceNumber: 0,
        result: null,
        resultPiece: null,
        goodResult: null,
        trouble: '',
        isComputing: false,
        cursor: { file: mainFile(piece).name, offset: 0, line: 1 },
        hiddenInstruments: new Set(),
        sounding: 'silent',
        position: 0,
        loops: false,
        volume: 0.8,
        output: ORCHESTRA,
        soundText: '',
        soundDiagnostics: [],
        soundTrouble: '',
        panel: 'values',
        page: 'text',
        theme: 'automatic',
        isManualOpen: false,
        seedIsLocked: false,
        keptSeeds: [],
    });
}

// An orchestra of the piece is part of it: the choice goes with its address, and is kept.
export const playWith = (store: AppStore, orchestra: string): void =>
    store.act('choose orchestra', ({ piece }) => ({ output: ORCHESTRA, piece: { ...piece, orchestra } }));

export function openPiece(
    store: AppStore,
    piece: Piece,
    { keptSeeds = [], seedIsLocked = false }: Partial<Seeds> = {},
): void {
    store.act('open piece', (state) => ({
        piece,
        pieceNumber: state.pieceNumber + 1,
        activeFile: mainFile(piece).name,
        cursor: { file: mainFile(piece).name, offset: 0, line: 1 },
        hiddenInstruments: new Set<number>(),
        position: 0,
        soundText: '',
        soundDiagnostics: [],
        soundTrouble: '',
        output: state.output === BUILT_IN ? ORCHESTRA : state.output, // it was chosen for the other piece
        goodResult: null, // the picture of another piece would mislead
        keptSeeds,
        seedIsLocked,
    }));
}
