// The sizes of the modules as they travel: `npm run size -w vorn-wasm`. Ends with 1 when
// the small one, which a page loads first, is above the limit.
import { readFileSync } from 'node:fs';
import { brotliCompressSync, constants, gzipSync } from 'node:zlib';

const LIMIT = 150; // kilobytes, compressed as pages are served
const kilobytes = (size) => size / 1000;
const quality = { params: { [constants.BROTLI_PARAM_QUALITY]: constants.BROTLI_MAX_QUALITY } };

function sizeOf(name) {
    const bytes = readFileSync(new URL(`../dist/${name}`, import.meta.url));
    const gzip = kilobytes(gzipSync(bytes, { level: 9 }).length);
    const brotli = kilobytes(brotliCompressSync(bytes, quality).length);
    const sizes = [
        `${kilobytes(bytes.length).toFixed(1)} kB`,
        `gzip ${gzip.toFixed(1)}`,
        `brotli ${brotli.toFixed(1)}`,
    ];
    console.log(`${name}: ${sizes.join(', ')}`);
    return gzip;
}

const small = sizeOf('vorn-small.wasm');
sizeOf('vorn.wasm');
process.exitCode = small <= LIMIT ? 0 : 1;
