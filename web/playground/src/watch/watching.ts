// A file on disk that the server of this page watches (scripts/playground --watch FILE): its texts are put
// into the piece whenever they change. The server tells by events of its own, and names itself in the address.
import type { Autosave } from '../keep/autosave';
import type { AppStore } from '../state/app_state';
import { readText } from '../files/decoding';
import { isSamePiece, toPiece, withFile, type Piece } from '../state/piece';
import { notice } from '../ui/notices';

const PLACE = './watched';

interface WatchedFile {
    readonly name: string;
    readonly bytes: string; // in base64
}

function toTexts(told: string): Piece | undefined {
    const { title, files } = JSON.parse(told) as { title: string; files: WatchedFile[] };
    const texts = files.map(({ name, bytes }) =>
        readText(
            name,
            Uint8Array.from(atob(bytes), (letter) => letter.charCodeAt(0)),
        ),
    );
    return toPiece({ title, files: texts.filter((text) => text !== undefined) });
}

// The cursor and the undo of the editor stay when the same files have other texts.
function take(store: AppStore, autosave: Autosave, piece: Piece): void {
    const { piece: before } = store.state;
    const isSameFile = before.files[0]?.name === piece.files[0]?.name;
    if (!isSameFile) autosave.replace(piece, 'before a file was watched');
    else {
        const renewed = piece.files.reduce(withFile, { ...before, title: piece.title });
        if (!isSamePiece(before, renewed)) store.act('file changed', () => ({ piece: renewed }));
    }
}

export async function followWatchedFile(store: AppStore, autosave: Autosave): Promise<void> {
    if (!new URLSearchParams(location.search).has('watch')) return;
    const source = new EventSource(PLACE);
    source.onmessage = ({ data }: MessageEvent<string>) => {
        const piece = toTexts(data);
        if (piece) take(store, autosave, piece);
    };
    source.onerror = () => notice('The server that watches the file is gone. The text stays.');
}
