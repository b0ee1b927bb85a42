// The engine as WebAssembly against the native program, on scores of 100,000 events each:
// the best of several runs, and the ratio. Behind `npm run bench -w vorn-wasm`, which builds both.
import { execFileSync } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { loadVorn } from '../dist/node.js';

const PROGRAM = new URL('../../../build/release/vorn', import.meta.url).pathname;
const LIMIT = 1.6;
const ROUNDS = 9;
const EVENTS = 100_000;

const block = (values) => `i1 = 6 0 -${EVENTS} {\np2 re .01\np3 re .009\n${values}\n}\n`;
const SCORES = {
    loops: block('p4(op) no < c4 e4 g4 c5 >\np5 re < 100 200 300 >\np6 re 1 x50000 2'),
    chance: block(
        'p4(op) no ra(T 1 [c3 c6])\np5 re ra(T .5 [g 8000 20000] .5 [l 100 200])\np6 re rw(T 1 [1 9] .2 5)',
    ),
    curves: block('p4 re mo(T*.5 1 f 60 72) mo(T*.5 1 e 72 60)\np5 re mo(T 1 v3 100 20000)\np6 re ho(1 5) 3'),
    equations: block('p4 re ex(T 1 [p2 * 2 + 60])\np5 re ex(T 1 [p4 % 12])\np6 re 1 2 3'),
    tempo: `te(0 500 60 120)\nte(500 1000 120 60 f)\n${block('p4(hz) no c4 d ef f g\np5(db) db 60 72\np6(tr) no c4 e')}`,
};

function timeOf(work) {
    const begin = performance.now();
    work();
    return performance.now() - begin;
}

/** The shortest time of each, taken in turn, so that whatever else goes on slows all of them. */
function best(...works) {
    const shortest = works.map(() => Infinity);
    for (let round = 0; round < ROUNDS; ++round) {
        works.forEach((work, at) => (shortest[at] = Math.min(shortest[at], timeOf(work))));
    }
    return shortest;
}

const vorn = await loadVorn();
let worst = 0;
console.log('score        native    wasm    ratio   compiled with tables');
for (const [name, text] of Object.entries(SCORES)) {
    const folder = mkdtempSync(join(tmpdir(), 'vorn-bench-'));
    const files = { 'in.vorn': text };
    const words = ['-s', 'in.vorn', 'out.sco'];
    writeFileSync(join(folder, 'in.vorn'), text);
    const [native, wasm, tables] = best(
        () => execFileSync(PROGRAM, words, { cwd: folder, stdio: 'ignore' }),
        () => vorn.run(files, words),
        () => vorn.compile(files, { outputs: [] }),
    );
    const isSame = readFileSync(join(folder, 'out.sco')).equals(vorn.run(files, words).files['out.sco']);
    rmSync(folder, { recursive: true });
    if (!isSame) throw new Error(`${name}: the scores differ`);
    worst = Math.max(worst, wasm / native);
    const column = (value) => `${value.toFixed(0).padStart(6)} ms`;
    const ratio = (wasm / native).toFixed(2).padStart(8);
    console.log(`${name.padEnd(10)}${column(native)}${column(wasm)}${ratio}${column(tables)}`);
}
console.log(`The slowest takes ${worst.toFixed(2)} times as long; ${LIMIT} is the limit.`);
process.exitCode = worst <= LIMIT ? 0 : 1;
