// Called by run_wasi. Node 18 wants the option of its name and has fewer methods;
// what stands here is in every version since.
import { readFile } from 'node:fs/promises';
import { WASI } from 'node:wasi';

const [program, ...args] = process.argv.slice(2);
const wasi = new WASI({
    version: 'preview1',
    args: ['vorn', ...args],
    env: {},
    preopens: { '/': process.cwd(), '/tmp': '/tmp' },
    returnOnExit: true,
});
const module = await WebAssembly.compile(await readFile(program));
const instance = await WebAssembly.instantiate(module, { wasi_snapshot_preview1: wasi.wasiImport });
process.exitCode = wasi.start(instance);
