import { fileURLToPath } from 'node:url';
import { describe, expect, it } from 'vitest';
import { triedPiece } from '../../src/learn/tried';
import { sourcesOf } from '../../src/state/piece';
import { loadVorn } from 'vorn-wasm/node';
import manual from '../../generated/manual.json';
import { manualPages } from '../../tools/manual.mjs';

const files = [
    { name: 'whole.vorn', text: '#include |part.inc|\n' },
    { name: 'whole.orc', text: 'instr 1\nendin\n' },
    { name: 'part.inc', text: '#include |notes.txt|\n' },
    { name: 'notes.txt', text: 'c4 d4\n' },
    { name: 'other.inc', text: '; nothing\n' },
];
const namesOf = (text: string): string[] => triedPiece(text, files).files.map(({ name }) => name);

const ENTITIES: Record<string, string> = { lt: '<', gt: '>', quot: '"', amp: '&' };

describe('a score of the manual', () => {
    it('brings what it names, what that names, and its orchestra', () => {
        expect(namesOf('#include |part.inc|\n')).toEqual([
            'whole.vorn',
            'part.inc',
            'notes.txt',
            'whole.orc',
        ]);
    });
    it('stands alone when it names nothing', () => {
        expect(namesOf('i1 = 4 0 4 {}\n')).toEqual(['manual.vorn']);
    });
    it('has links to the pages that readers on Windows want', () => {
        const docs = fileURLToPath(new URL('../../../../docs', import.meta.url));
        const lesson = manualPages(docs).find(({ id }) => id === 'tutorial/01-one-note.md');
        expect(lesson?.html).toContain('data-page="windows.md" data-anchor="manual-the-tutorial"');
    });
    it('finds every file that it includes', () => {
        const docs = fileURLToPath(new URL('../../../../docs', import.meta.url));
        const recipes = manualPages(docs).find(({ id }) => id === 'recipes.md');
        const whole = recipes?.files.find(({ name }) => name === 'parts.vorn');
        expect(triedPiece(whole?.text ?? '', recipes?.files ?? []).files.map(({ name }) => name)).toEqual([
            'parts.vorn',
            'part-bass.vorn',
            'part-melody.vorn',
        ]);
    });
});

describe('a score that can be tried', () => {
    const tried = manual.flatMap(({ id, html, files: beside }) =>
        [...html.matchAll(/<code class="language-vorn">([^<]*)</g)].map(([, code = '']) => ({
            id,
            piece: triedPiece(
                code.replace(/&(lt|gt|quot|amp);/g, (_, name: string) => ENTITIES[name] ?? ''),
                beside,
            ),
        })),
    );
    it('has events, or the mistake that it shows', async () => {
        const vorn = await loadVorn();
        expect(tried.length).toBeGreaterThan(50);
        for (const { id, piece } of tried) {
            const { status, eventCount } = vorn.compile(sourcesOf(piece), { outputs: [] });
            expect(status === 1 || eventCount > 0, `${id}: ${piece.files[0]?.text ?? ''}`).toBe(true);
        }
    });
    it('has a button; what only passes lines on has none', () => {
        const preprocessor = manual.find(({ id }) => id === 'preprocessor.md')?.html ?? '';
        expect(preprocessor).toContain('<code data-silent="" class="language-vorn">; A constant');
        expect(preprocessor).toContain('<code class="language-vorn">; A tempo');
    });
});
