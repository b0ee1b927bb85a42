// Addresses are packed by a stream that browsers have and Node 18 lacks: its own knows formats with a head only.
// Here it is made of what Node packs with, so that the same tests run there.

import { Readable, Writable, type Duplex } from 'node:stream';
import { createDeflateRaw, createInflateRaw } from 'node:zlib';

function lacksRawStreams(): boolean {
    try {
        new CompressionStream('deflate-raw');
        return false;
    } catch {
        return true;
    }
}

if (lacksRawStreams()) {
    const raw = (make: () => Duplex) =>
        function (): object {
            const stream = make();
            return { readable: Readable.toWeb(stream), writable: Writable.toWeb(stream) };
        };
    Object.assign(globalThis, {
        CompressionStream: raw(createDeflateRaw),
        DecompressionStream: raw(createInflateRaw),
    });
}
