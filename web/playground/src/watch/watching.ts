// A file on disk that the server of this page watches (scripts/playground --watch FILE): its texts are put
// into the piece whenever they change. The server tells by events of its own, and names itself in the address.
import type { Autosave } from '../keep/autosave';
import type { AppStore } from '../state/app_state';
import { isSamePiece, toPiece, withFile, type Piece } from '../state/piece';
import { notice } from '../ui/notices';

const PLACE = './watched';

// The cursor and the undo of the editor stay when the same files have other texts.
function take(store: AppStore, autosave: Autosave, piece: Piece): void {
    const { piece: before } = store.state;
    const isSameFile = before.files[0]?.name === piece.files[0]?.name;
    if (!isSameFile) autosave.replace(piece, 'before a file was watched');
    else if (!isSamePiece(before, piece)) {
        store.act('file changed', () => ({
            piece: piece.files.reduce(withFile, { ...before, title: piece.title }),
        }));
    }
}

export async function followWatchedFile(store: AppStore, autosave: Autosave): Promise<void> {
    if (!new URLSearchParams(location.search).has('watch')) return;
    const source = new EventSource(PLACE);
    source.onmessage = ({ data }: MessageEvent<string>) => {
        const piece = toPiece(JSON.parse(data));
        if (piece) take(store, autosave, piece);
    };
    source.onerror = () => notice('The server that watches the file is gone. The text stays.');
}
