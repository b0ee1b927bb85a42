import { describe, expect, it } from 'vitest';
import { heldFiles } from '../../tools/service_worker';

describe('what is held for use without a network', () => {
    const files = (...pairs: [string, string][]) => pairs.map(([name, digest]) => ({ name, digest }));
    const held = heldFiles(
        files(
            ['assets/csound-x.wasm.z', 'csound'],
            ['assets/index-x.js', 'index'],
            ['assets/index-x.js.map', 'map'],
            ['csound.wasm.z', 'csound'],
            ['documents/manual.html', 'manual'],
            ['icon.svg', 'icon'],
            ['index.html', 'page'],
            ['licences/LGPL-2.1.txt', 'LGPL'],
            ['service_worker.js', 'worker'],
            ['vorn-score.js', 'score'],
        ),
    );
    it('is first what the page begins with', () => {
        expect(held.first).toEqual(['./', './assets/index-x.js', './icon.svg']);
    });
    it('is then all that is left, the same bytes once', () => {
        expect(held.later).toEqual([
            './assets/csound-x.wasm.z',
            './documents/manual.html',
            './licences/LGPL-2.1.txt',
            './vorn-score.js',
        ]);
        expect(held.twins).toEqual({
            './index.html': './',
            './csound.wasm.z': './assets/csound-x.wasm.z',
        });
    });
});
