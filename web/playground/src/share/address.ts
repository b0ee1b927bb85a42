// A piece as the fragment of an address, which browsers keep to themselves and send to no server:
//
//     #piece=<deflated JSON, in the letters of base64url>
import { toPiece, type Piece } from '../state/piece';

export const LONG_ADDRESS = 30000;
const MOST_BYTES = 16 * 1024 * 1024; // of a piece; what a small fragment may unfold to
const KEY = 'piece=';

function toLetters(bytes: Uint8Array): string {
    let text = '';
    for (let at = 0; at < bytes.length; at += 0x8000) {
        text += String.fromCharCode(...bytes.subarray(at, at + 0x8000));
    }
    return btoa(text).replaceAll('+', '-').replaceAll('/', '_').replace(/=+$/, '');
}

function fromLetters(letters: string): Uint8Array<ArrayBuffer> {
    const text = atob(letters.replaceAll('-', '+').replaceAll('_', '/'));
    return Uint8Array.from(text, (letter) => letter.charCodeAt(0));
}

async function collected(stream: ReadableStream<Uint8Array>, most: number): Promise<Uint8Array<ArrayBuffer>> {
    const parts: BlobPart[] = [];
    let size = 0;
    const reader = stream.getReader();
    for (;;) {
        const { done, value } = await reader.read();
        if (done) break;
        size += value.length;
        if (size > most) {
            await reader.cancel();
            throw new RangeError('The address holds more than a piece may.');
        }
        parts.push(value as Uint8Array<ArrayBuffer>);
    }
    return new Uint8Array(await new Blob(parts).arrayBuffer());
}

export async function toFragment(piece: Piece): Promise<string> {
    const { title, files, orchestra } = piece;
    const packed = new Blob([JSON.stringify({ title, files, orchestra })])
        .stream()
        .pipeThrough(new CompressionStream('deflate-raw'));
    return KEY + toLetters(await collected(packed, Infinity));
}

export const isPieceFragment = (fragment: string): boolean => fragment.replace(/^#/, '').startsWith(KEY);

// Undefined: the fragment is none of ours, or is damaged.
export async function fromFragment(fragment: string): Promise<Piece | undefined> {
    if (!isPieceFragment(fragment)) return undefined;
    try {
        const packed = fromLetters(fragment.replace(/^#/, '').slice(KEY.length));
        const texts = new Blob([packed]).stream().pipeThrough(new DecompressionStream('deflate-raw'));
        return toPiece(JSON.parse(new TextDecoder().decode(await collected(texts, MOST_BYTES))));
    } catch {
        return undefined;
    }
}

// The address of this page with the piece in it.
export async function addressOf(piece: Piece, page: string): Promise<string> {
    const address = new URL(page);
    address.search = '';
    address.hash = await toFragment(piece);
    return address.href;
}
