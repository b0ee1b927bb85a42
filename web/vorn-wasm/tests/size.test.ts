import { readFileSync } from 'node:fs';
import { gzipSync } from 'node:zlib';
import { describe, expect, it } from 'vitest';

// What a page loads first stays small, and what is told on request alone is not in it.

const module = (name: string): Buffer => readFileSync(new URL(`../dist/${name}`, import.meta.url));

describe('the small module', () => {
    it('has at most 150 kilobytes, compressed as every server can', () => {
        expect(gzipSync(module('vorn-small.wasm')).length).toBeLessThan(150_000);
    });

    it('has the cures of mistakes, but neither their causes nor examples', () => {
        const texts = [
            'Write a tempo from 1 to 4000', // cure of E46
            'This one lies outside', // its cause
            'Tempo in beats per minute, or its movement', // of the word te
        ];
        const has = (name: string): boolean[] => texts.map((text) => module(name).includes(text));
        expect(has('vorn-small.wasm')).toEqual([true, false, false]);
        expect(has('vorn.wasm')).toEqual([true, true, true]);
    });
});
