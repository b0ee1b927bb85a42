// Which orchestra plays, told where files that come or go have changed it.
import { BUILT_IN, ORCHESTRA, type AppState, type AppStore } from '../state/app_state';
import { orchestraOf, wholeOrchestrasOf } from '../state/orchestras';
import { notice } from './notices';

// The name of the orchestra; another way to play by its own name, which is none of a file.
const playedBy = ({ output, piece }: Readonly<AppState>): string =>
    (output === ORCHESTRA ? orchestraOf(piece)?.name : output) ?? BUILT_IN;

function playAsBefore(store: AppStore, before: Readonly<AppState>): void {
    if (store.state.pieceNumber !== before.pieceNumber) return;
    const orchestra = orchestraOf(before.piece)?.name;
    const output = orchestra === undefined && before.output === ORCHESTRA ? BUILT_IN : before.output;
    store.act('play as before', ({ piece }) => ({
        output,
        piece: orchestra === undefined ? piece : { ...piece, orchestra },
    }));
}

export function tellOrchestra(store: AppStore, before: Readonly<AppState>): void {
    const now = playedBy(store.state);
    if (now === playedBy(before)) return;
    const act = (): void => playAsBefore(store, before);
    notice(`${now} plays from now on.`, { word: 'Play as before', act });
}

export function tellSeveralOrchestras({ state: { output, piece } }: AppStore): void {
    const all = wholeOrchestrasOf(piece);
    if (output === ORCHESTRA && all.length > 1)
        notice(`Of ${all.length} orchestras ${orchestraOf(piece)?.name} plays; “Played by” has all.`);
}
