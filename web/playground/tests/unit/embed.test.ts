import { readFileSync } from 'node:fs';
import { afterEach, describe, expect, it, vi } from 'vitest';
import type { Vorn } from 'vorn-wasm';
import { loadVorn } from 'vorn-wasm/node';
import { addressBeside, compiledWithIncludes, type Texts } from '../../src/embed/score_files';

describe('what an embedded score includes', () => {
    it('is looked for beside it', () => {
        const base = 'https://host/pieces/hocket.vorn?x#y';
        expect(addressBeside('hocket.inc', base)).toBe('https://host/pieces/hocket.inc');
        expect(addressBeside('parts/a b#.inc', base)).toBe('https://host/pieces/parts/a%20b%23.inc');
    });
    it.each(['../secret.inc', '/secret.inc', '//other/x.inc', 'https://other/x.inc', 'a/../../x.inc'])(
        'is not fetched from elsewhere: %s',
        (name) => {
            const address = addressBeside(name, 'https://host/pieces/hocket.vorn');
            expect(address ?? 'https://host/pieces/').toMatch(/^https:\/\/host\/pieces\//);
        },
    );
    it('is nowhere where there is no folder', () => {
        expect(addressBeside('x.inc', 'data:text/plain,i1')).toBeUndefined();
    });
});

describe('an embedded score', () => {
    const example = (name: string): string =>
        readFileSync(new URL(`../../../../examples/hocket/${name}`, import.meta.url), 'utf8');
    const served = (files: Texts): string[] => {
        const asked: string[] = [];
        vi.stubGlobal('fetch', (address: string) => {
            asked.push(address);
            const text = files[address.split('/').at(-1) ?? ''];
            return Promise.resolve(new Response(text, { status: text === undefined ? 404 : 200 }));
        });
        return asked;
    };
    const read = async (vorn: Vorn, texts: Texts) =>
        compiledWithIncludes(
            (now) => vorn.compile(now, { outputs: [] }),
            texts,
            'https://host/hocket/hocket.vorn',
        );
    afterEach(() => vi.unstubAllGlobals());

    it('brings its includes, and those that they include', async () => {
        const vorn = await loadVorn();
        const asked = served({
            'hocket.inc': '#include |inner.inc|\n',
            'inner.inc': example('hocket.inc'),
        });
        const { result, texts } = await read(vorn, { 'hocket.vorn': example('hocket.vorn') });
        expect(result.status).toBe(0);
        expect(result.eventCount).toBeGreaterThan(100);
        expect(Object.keys(texts)).toEqual(['hocket.vorn', 'hocket.inc', 'inner.inc']);
        expect(asked).toEqual(['https://host/hocket/hocket.inc', 'https://host/hocket/inner.inc']);
    });
    it('asks once for what is not there, and tells that it is not', async () => {
        const asked = served({});
        const { result } = await read(await loadVorn(), { 'hocket.vorn': example('hocket.vorn') });
        expect(result.status).toBe(1);
        expect(asked).toEqual(['https://host/hocket/hocket.inc']);
        expect(result.diagnostics.some(({ text }) => text.includes('hocket.inc'))).toBe(true);
    });
    it('fetches nothing that stands in its element', async () => {
        const asked = served({});
        const both = { 'hocket.vorn': example('hocket.vorn'), 'hocket.inc': example('hocket.inc') };
        expect((await read(await loadVorn(), both)).result.status).toBe(0);
        expect(asked).toEqual([]);
    });
    it('that includes itself comes to an end', async () => {
        served({ 'a.inc': '#include |a.inc|\n' });
        const { result } = await read(await loadVorn(), { 'x.vorn': '#include |a.inc|\n' });
        expect(result.status).toBe(1);
    });
});
