// The size of the module as it travels: `npm run size -w vorn-wasm`. Ends with 1 above the limit.
import { readFileSync } from 'node:fs';
import { brotliCompressSync, constants, gzipSync } from 'node:zlib';

const LIMIT = 150; // kilobytes, compressed as pages are served
const bytes = readFileSync(new URL('../dist/vorn.wasm', import.meta.url));
const kilobytes = (size) => size / 1000;
const gzip = kilobytes(gzipSync(bytes, { level: 9 }).length);
const brotli = kilobytes(
    brotliCompressSync(bytes, { params: { [constants.BROTLI_PARAM_QUALITY]: constants.BROTLI_MAX_QUALITY } })
        .length,
);
console.log(
    `${kilobytes(bytes.length).toFixed(0)} kB, gzip ${gzip.toFixed(1)} kB, brotli ${brotli.toFixed(1)} kB`,
);
process.exitCode = brotli <= LIMIT ? 0 : 1;
