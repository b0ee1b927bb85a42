import { fileURLToPath } from 'node:url';
import { describe, expect, it } from 'vitest';
import { triedPiece } from '../../src/learn/tried';
import { manualPages } from '../../tools/manual.mjs';

const files = [
    { name: 'whole.vorn', text: '#include |part.inc|\n' },
    { name: 'whole.orc', text: 'instr 1\nendin\n' },
    { name: 'part.inc', text: '#include |notes.txt|\n' },
    { name: 'notes.txt', text: 'c4 d4\n' },
    { name: 'other.inc', text: '; nothing\n' },
];
const namesOf = (text: string): string[] => triedPiece(text, files).files.map(({ name }) => name);

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
