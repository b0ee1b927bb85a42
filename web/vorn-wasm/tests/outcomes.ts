import { execFileSync, spawn } from 'node:child_process';
import {
    existsSync,
    mkdirSync,
    mkdtempSync,
    readFileSync,
    readdirSync,
    rmSync,
    statSync,
    writeFileSync,
} from 'node:fs';
import { tmpdir } from 'node:os';
import { dirname, join } from 'node:path';
import type { CommandResult } from '../src/types.js';

// Scores in the form of tests/cases, and what a run leaves of one: the status, both
// streams and every file, as bytes that stand for characters (latin1).

export const TOP = new URL('../../../', import.meta.url).pathname;
export const PROGRAM = process.env['VORN_PROGRAM'] ?? join(TOP, 'build/dev/vorn');

export interface ScoreCase {
    readonly name: string;
    readonly args: string[];
    readonly inputs: Record<string, Uint8Array>;
    readonly expected: Record<string, string>;
}

export type Outcome = Record<string, string>;

export function latin1(bytes: Uint8Array): string {
    return Buffer.from(bytes).toString('latin1');
}

function filesBelow(folder: string, prefix = ''): string[] {
    return readdirSync(join(folder, prefix)).flatMap((name) => {
        const path = prefix + name;
        return statSync(join(folder, path)).isDirectory() ? filesBelow(folder, `${path}/`) : [path];
    });
}

/** Words divided by white space; between quotes of either kind white space is kept. */
function wordsOf(text: string): string[] {
    return [...text.matchAll(/"([^"]*)"|'([^']*)'|(\S+)/g)].map(([, a = '', b = '', c = '']) => a + b + c);
}

function loadCase(root: string, name: string): ScoreCase {
    const folder = join(root, name);
    const inputs: ScoreCase['inputs'] = {};
    const expected: ScoreCase['expected'] = {};
    let args = ['in.vorn', 'out.sco'];
    for (const file of filesBelow(folder)) {
        const bytes = readFileSync(join(folder, file));
        if (file === 'args') args = wordsOf(bytes.toString());
        else if (file.startsWith('expected.')) expected[file] = latin1(bytes);
        else inputs[file] = bytes;
    }
    return { name, args, inputs, expected };
}

/** The folders `depth` levels below the root, each a case. */
export function loadCases(root: string, depth: number): ScoreCase[] {
    const below = (prefix: string, levels: number): string[] =>
        levels === 0
            ? [prefix]
            : readdirSync(join(root, prefix)).flatMap((name) => below(join(prefix, name), levels - 1));
    return below('', depth).map((name) => loadCase(root, name));
}

/** What differs by chance and by build gets a fixed spelling. */
export function settled(text: string): string {
    return text
        .replace(/(^|\n)(Vorn \([0-9.]+), [^)]*\)/, '$1$2, DATE, TIME)')
        .replace(/\/tmp\/vorn[A-Za-z0-9]{6}\b/g, '/tmp/vornXXXXXX');
}

export function outcomeOf(result: CommandResult): Outcome {
    const outcome: Outcome = {
        status: String(result.status),
        'standard output': settled(latin1(result.out)),
        'standard error': settled(latin1(result.err)),
    };
    for (const [name, bytes] of Object.entries(result.files)) outcome[name] = settled(latin1(bytes));
    return outcome;
}

interface Ended {
    readonly status: number;
    readonly out: Uint8Array;
    readonly err: Uint8Array;
}

/** Not awaited in one piece: the test's process has its own business meanwhile. */
function runProgram(args: readonly string[], folder: string): Promise<Ended> {
    return new Promise((resolve, reject) => {
        const program = spawn(PROGRAM, args, { cwd: folder, stdio: ['ignore', 'pipe', 'pipe'] });
        const out: Buffer[] = [];
        const err: Buffer[] = [];
        program.stdout.on('data', (bytes: Buffer) => out.push(bytes));
        program.stderr.on('data', (bytes: Buffer) => err.push(bytes));
        program.on('error', reject);
        program.on('close', (status) => {
            if (status === null) reject(new Error(`${PROGRAM} was ended`));
            else resolve({ status, out: Buffer.concat(out), err: Buffer.concat(err) });
        });
    });
}

/** The same score through the program that is built for this machine. */
export async function nativeOutcome(score: ScoreCase): Promise<Outcome> {
    const folder = mkdtempSync(join(tmpdir(), 'vorn-web-'));
    for (const [name, bytes] of Object.entries(score.inputs)) {
        mkdirSync(dirname(join(folder, name)), { recursive: true });
        writeFileSync(join(folder, name), bytes);
    }
    const ended = await runProgram(score.args, folder);
    const files = Object.fromEntries(
        filesBelow(folder).map((name) => [name, readFileSync(join(folder, name))]),
    );
    rmSync(folder, { recursive: true });
    return outcomeOf({ ...ended, files });
}

/** Random scores of the fuzzers' grammar. */
export function drawnScores(count: number): ScoreCase[] {
    const program = join(dirname(PROGRAM), 'write_scores');
    if (!existsSync(program)) throw new Error(`${program} is missing: build it, or the tests, first`);
    const folder = mkdtempSync(join(tmpdir(), 'vorn-drawn-'));
    execFileSync(program, ['--seed', '12', '--count', String(count), '--out', folder]);
    const scores = loadCases(folder, 1);
    rmSync(folder, { recursive: true });
    return scores;
}
