import { describe, expect, it } from 'vitest';
import { VornError, loadVorn } from '../src/node.js';
import type { Files, Vorn } from '../src/types.js';

// Many compilations in one instance, and inputs that are meant to break it.

const load = (): Promise<Vorn> => loadVorn(new URL('../dist/vorn.wasm', import.meta.url));

const BLOCK = 'i1 = 5 0 40 {\np2 re .125\np3 re .1\np4(op) no ra(T 1 [c3 c6])\np5 re mo(T 1 8000 20000)\n}\n';
const REFUSED = BLOCK.replace('8000', 'q');

describe('ten thousand compilations', () => {
    it('take no more memory than the first thousand', async () => {
        const vorn = await load();
        const compileSome = (count: number): void => {
            for (let at = 0; at < count; ++at) {
                const text = at % 3 === 0 ? REFUSED : `rs(${String(at)})\n${BLOCK}`;
                vorn.compile(
                    { 'piece.vorn': text },
                    at % 50 === 0 ? { outputs: ['score', 'fullMidi', 'csv'] } : {},
                );
            }
        };
        let settled = 0; // the pieces of the heap lie where they stay
        for (let hundred = 1; hundred <= 100; ++hundred) {
            compileSome(100);
            if (hundred === 10) settled = vorn.memoryBytes;
            await new Promise((resolve) => setTimeout(resolve));
        }
        expect(vorn.memoryBytes).toBe(settled);
    }, 300_000);
});

describe('hostile input', () => {
    const bomb = Array.from(
        { length: 40 },
        (_, n) => `#define M${String(n + 1)} #$M${String(n)} $M${String(n)}#`,
    );
    const inputs: Record<string, Files> = {
        nothing: { 'a.vorn': '' },
        'five megabytes': { 'a.vorn': 'p4 60 '.repeat(873_814) },
        'five megabytes of one number': { 'a.vorn': `${BLOCK.slice(0, -2)}p4 ${'9'.repeat(5 << 20)}}` },
        'a macro bomb': { 'a.vorn': `#define M0 #1 1#\n${bomb.join('\n')}\n> $M40\n` },
        'a macro that calls itself': { 'a.vorn': '#define A #$A#\n> $A\n' },
        'an endless include': { 'a.vorn': '#include |a.vorn|\n' },
        'two that include each other': { 'a.vorn': '#include |b|\n', b: '#include |a.vorn|\n' },
        'open parentheses': { 'a.vorn': `${BLOCK.slice(0, -2)}p4 ${'('.repeat(100_000)}` },
        'open brackets': { 'a.vorn': `#const A ~${'['.repeat(100_000)}1\n` },
        emoji: { 'a.vorn': '🎼'.repeat(16_384) },
        bytes: { 'a.vorn': Uint8Array.from({ length: 65_536 }, (_, at) => (at * 7919) % 256) },
        zeros: { 'a.vorn': new Uint8Array(65_536) },
        'more than a float holds': { 'a.vorn': `i1 = 5 0 1e99 {\np2 re 1e-99\np3 1\n}\n` },
        'a million events': { 'a.vorn': BLOCK.replace('0 40', '0 10000').replace('.125', '.01') },
    };

    for (const [name, files] of Object.entries(inputs)) {
        it(`${name} gets an answer, and so does the next score`, async () => {
            const vorn = await load();
            expect([0, 1]).toContain(vorn.compile(files).status);
            expect(vorn.compile({ 'piece.vorn': BLOCK }).eventCount).toBe(320);
        }, 60_000);
    }

    it('that asks for more memory than there is, is refused, and the next score is served', async () => {
        const vorn = await load();
        const enormous = BLOCK.replace('5 0 40', '120 0 10000').replace('.125', '.0034');
        let said = '';
        try {
            said = vorn.compile({ 'a.vorn': enormous }).messages;
        } catch (error) {
            expect(error).toBeInstanceOf(VornError);
            said = (error as VornError).reason;
        }
        expect(said).toMatch(/memory/i);
        expect(vorn.compile({ 'piece.vorn': BLOCK }).eventCount).toBe(320);
    }, 120_000);

    it('of names that no file can have is refused', async () => {
        const vorn = await load();
        for (const name of ['../a', 'a/', '', 'a\0b']) {
            expect(() => vorn.compile({ [name]: BLOCK }), JSON.stringify(name)).toThrow(TypeError);
        }
        expect(() => vorn.compile({})).toThrow(TypeError);
        expect(() => vorn.compile({ a: BLOCK }, { main: 'b' })).toThrow(TypeError);
    });
});
