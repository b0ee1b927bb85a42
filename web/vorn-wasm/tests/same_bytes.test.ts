import { join } from 'node:path';
import { beforeAll, describe, expect, it } from 'vitest';
import { loadVorn } from '../src/node.js';
import type { Vorn } from '../src/types.js';
import { TOP, drawnScores, latin1, loadCases, nativeOutcome, outcomeOf, settled } from './outcomes.js';
import type { Outcome, ScoreCase } from './outcomes.js';

// Every case of the command and two thousand random scores leave the same bytes here as
// there. All runs share one instance, so that nothing of a run may reach the next.

const MODULE = new URL('../dist/vorn.wasm', import.meta.url);
const cases = loadCases(join(TOP, 'tests/cases'), 2);
let vorn: Vorn;

beforeAll(async () => {
    vorn = await loadVorn(MODULE);
});

function run(score: ScoreCase): Outcome {
    return outcomeOf(vorn.run(score.inputs, score.args));
}

const AT_ONCE = 4; // native runs, whose beginning costs more than their work

async function compareWithNative(scores: readonly ScoreCase[]): Promise<void> {
    for (let first = 0; first < scores.length; first += AT_ONCE) {
        const some = scores.slice(first, first + AT_ONCE);
        const native = await Promise.all(some.map(nativeOutcome));
        some.forEach((score, at) => {
            expect(run(score), score.name).toEqual(native[at]);
        });
    }
}

/** Messages are compared from behind the banner on, unless the banner is expected, too. */
function messagesOf(text: string, expected: string): string {
    if (expected.startsWith('\nVorn (')) return text;
    const banner = /\nOutput\t= ".*" \[.*\]\n(Log \t= ".*"\n)?(MExp\t= ".*"\n)?/.exec(text);
    return text.startsWith('\nVorn (') && banner ? text.slice(banner.index + banner[0].length) : text;
}

/** The file of an option, attached or as the next argument. */
function optionFile(args: readonly string[], option: string): string {
    const at = args.findIndex((argument) => argument.startsWith(option));
    if (at < 0) return '';
    const argument = args[at] ?? '';
    return argument.length > option.length ? argument.slice(option.length) : (args[at + 1] ?? '');
}

/** What the case expects, and the same of an outcome. MIDI files stand there as texts of their own. */
function expectations({ args, expected }: ScoreCase, outcome: Outcome): [Outcome, Outcome] {
    const found: Outcome = {
        'expected.status': `${outcome['status'] ?? ''}\n`,
        'expected.out': outcome['standard output'] ?? '',
        'expected.err': messagesOf(outcome['standard error'] ?? '', expected['expected.err'] ?? ''),
        'expected.score': outcome[args.at(-1) ?? ''] ?? '',
        'expected.log': messagesOf(outcome[optionFile(args, '-l')] ?? '', expected['expected.log'] ?? ''),
        'expected.exp': outcome[optionFile(args, '-x')] ?? '',
    };
    const wanted = { ...expected, 'expected.status': expected['expected.status'] ?? '0\n' };
    const names = Object.keys(wanted).filter((name) => name !== 'expected.midi');
    const only = (texts: Record<string, string>): Outcome =>
        Object.fromEntries(names.map((name) => [name, texts[name] ?? '']));
    return [only(wanted), only(found)];
}

describe('every case of the command', () => {
    it('is found', () => {
        expect(cases.length).toBeGreaterThan(1000);
    });

    for (const feature of new Set(cases.map(({ name }) => name.split('/')[0]))) {
        it(`${feature ?? ''} gives what is expected`, () => {
            for (const score of cases.filter(({ name }) => name.startsWith(`${feature ?? ''}/`))) {
                const [wanted, found] = expectations(score, run(score));
                expect(found, score.name).toEqual(wanted);
            }
        });
    }

    it('leaves the same files and texts as the native program', async () => {
        await compareWithNative(cases);
    }, 300_000);
});

describe('two thousand random scores', () => {
    it('leave the same files and texts as the native program', async () => {
        const scores = drawnScores(2000);
        expect(scores).toHaveLength(2000);
        await compareWithNative(scores);
    }, 600_000);
});

describe('a compilation', () => {
    it('gives the score, the messages and the status of the command', () => {
        const plain = cases.filter(({ args }) => args.join(' ') === 'in.vorn out.sco');
        expect(plain.length).toBeGreaterThan(500);
        for (const { name, inputs } of plain) {
            const result = vorn.compile(inputs, { main: 'in.vorn' });
            const command = outcomeOf(vorn.run(inputs, ['in.vorn', 'in.sco']));
            const found = {
                status: String(result.status),
                score: settled(latin1(result.score ?? new Uint8Array())),
                messages: settled(latin1(Buffer.from(result.messages))),
            };
            expect(found, name).toEqual({
                status: command['status'],
                score: command['in.sco'] ?? '',
                messages: latin1(
                    Buffer.from(Buffer.from(command['standard error'] ?? '', 'latin1').toString()),
                ),
            });
        }
    });
});
