import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { describe, expect, it } from 'vitest';
import { documentFiles } from '../../tools/documents.mjs';

const files = documentFiles(fileURLToPath(new URL('../../../../docs', import.meta.url)));
const pages = files.filter(({ fileName }) => fileName.endsWith('.html'));
const named = (source: string, attribute: string): string[] =>
    [...source.matchAll(new RegExp(` ${attribute}="([^"#:]+)(?:#[^"]*)?"`, 'g'))].map(
        ([, path]) => path ?? '',
    );

describe('the documents as pages', () => {
    it('lead to nothing that is not there', () => {
        const there = new Set(['vorn-score.js', 'icon.svg', 'index.html']);
        for (const { fileName } of files) there.add(fileName);
        const missing = pages.flatMap(({ fileName, source }) =>
            ['href', 'src', 'orchestra']
                .flatMap((attribute) => named(source, attribute))
                .map((path) => join(dirname(fileName), path))
                .filter((path) => !there.has(path)),
        );
        expect(missing).toEqual([]);
    });
    it('have the scores of their pictures to be heard, beside which their includes lie', () => {
        const recipes = pages.find(({ fileName }) => fileName.endsWith('recipes.html'))?.source;
        expect(recipes).toContain('<vorn-score src="recipes/drums.vorn" orchestra="recipes/drums.orc">');
        expect(recipes).toContain('<vorn-score src="recipes/parts.vorn"');
        expect(recipes).toContain('<img src="recipes/parts.svg"');
        const names = files.map(({ fileName }) => fileName);
        expect(names).toContain('documents/recipes/part-melody.vorn');
        expect(names).toContain('documents/recipes/temperatures.txt');
    });
});
