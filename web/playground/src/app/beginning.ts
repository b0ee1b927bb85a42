// With which piece the page begins: the one in the address, else what was written last, else a piece that
// sounds well. An address that is opened later puts its piece here, too.
import { firstPiece } from '../gallery/first_piece';
import type { Autosave } from '../keep/autosave';
import { recall } from '../keep/storage';
import { fromFragment, isPieceFragment } from '../share/address';
import { openPiece, type AppStore } from '../state/app_state';
import { notice } from '../ui/notices';

const DAMAGED = 'The piece in this address is damaged and cannot be read. What you had is still here.';

// The piece is the page's from now on; a reload must bring back what was made of it.
const clearFragment = (): void => history.replaceState(null, '', location.pathname + location.search);

async function openAddress(autosave: Autosave): Promise<void> {
    const { hash } = location;
    if (!isPieceFragment(hash)) return;
    const piece = await fromFragment(hash);
    clearFragment();
    if (piece) autosave.replace(piece, 'before an address was opened');
    else notice(DAMAGED);
}

export async function begin(store: AppStore, autosave: Autosave): Promise<void> {
    const kept = await recall();
    openPiece(store, kept?.piece ?? firstPiece, kept);
    await openAddress(autosave);
    addEventListener('hashchange', () => void openAddress(autosave));
}
