// Nothing that was written is lost: the piece is kept a moment after each change and when the page is
// left; a moment of history is made every few minutes of work and before another piece takes its place.
import { openPiece, type AppStore, type Seeds } from '../state/app_state';
import { isSamePiece, type Piece } from '../state/piece';
import { keep, keepAtOnce, remember, type Kept } from './storage';

const DELAY = 200; // milliseconds of a pause
const LONGEST_DELAY = 1000; // while there is none
const BETWEEN_MOMENTS = 3 * 60 * 1000;

const WINDOW = `${Date.now()} ${Math.random()}`;

const keptNow = (store: AppStore): Kept => ({
    time: Date.now(),
    window: WINDOW,
    piece: store.state.piece,
    keptSeeds: store.state.keptSeeds,
    seedIsLocked: store.state.seedIsLocked,
});

const hasText = (piece: Piece): boolean => piece.files.some((file) => file.text.trim() !== '');

export interface Autosave {
    // Puts `piece` in the place of the present one, which goes to the history.
    replace(piece: Piece, reason: string, seeds?: Seeds): void;
    remember(reason: string): void;
}

export function startAutosave(store: AppStore): Autosave {
    let timer: ReturnType<typeof setTimeout> | undefined;
    let lastMoment = Date.now();
    let remembered: Piece | undefined;

    const rememberNow = (reason: string): void => {
        const { piece } = store.state;
        if (!hasText(piece) || (remembered && isSamePiece(remembered, piece))) return;
        remembered = piece;
        lastMoment = Date.now();
        void remember(keptNow(store), reason);
    };
    let firstChange: number | undefined; // that is not written yet
    const save = (): void => {
        firstChange = undefined;
        void keep(keptNow(store));
        if (Date.now() - lastMoment > BETWEEN_MOMENTS) rememberNow('while you worked');
    };
    const changed = (): void => {
        clearTimeout(timer);
        firstChange ??= Date.now();
        const left = firstChange + LONGEST_DELAY - Date.now();
        timer = setTimeout(save, Math.min(DELAY, Math.max(0, left)));
    };
    store.watch((state) => state.piece, changed);
    store.watch((state) => state.keptSeeds, changed);
    store.watch((state) => state.seedIsLocked, changed);
    addEventListener('pagehide', () => keepAtOnce(keptNow(store)));
    document.addEventListener('visibilitychange', () => {
        if (document.visibilityState === 'hidden') keepAtOnce(keptNow(store));
    });
    return {
        replace: (piece, reason, seeds) => {
            rememberNow(reason);
            openPiece(store, piece, seeds);
        },
        remember: rememberNow,
    };
}
