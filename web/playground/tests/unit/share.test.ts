import { describe, expect, it } from 'vitest';
import { addressOf, fromFragment, toFragment } from '../../src/share/address';
import type { Piece } from '../../src/state/piece';

const piece: Piece = {
    title: 'Ä canon ♪',
    files: [
        { name: 'a.vorn', text: 'i1 = 4 0 4 {\np2 1\np3 1\np4 60\n}\n' },
        { name: 'a.orc', text: 'instr 1\nendin\n' },
    ],
};

const packed = async (text: string): Promise<string> => {
    const stream = new Blob([text]).stream().pipeThrough(new CompressionStream('deflate-raw'));
    const bytes = Buffer.from(await new Response(stream).arrayBuffer());
    return 'piece=' + bytes.toString('base64url');
};

describe('an address', () => {
    it('gives back the piece that it was made of', async () => {
        expect(await fromFragment('#' + (await toFragment(piece)))).toEqual(piece);
    });

    it('gives back which orchestra plays, and is what it was where none was chosen', async () => {
        const files = [...piece.files, { name: 'b.orc', text: 'instr 2\nendin\n' }];
        const chosen = { ...piece, files, orchestra: 'b.orc' };
        expect(await fromFragment('#' + (await toFragment(chosen)))).toEqual(chosen);
        expect(await toFragment(piece)).toBe(await packed(JSON.stringify(piece)));
    });

    it('holds letters only that need no escape', async () => {
        expect(await toFragment(piece)).toMatch(/^piece=[A-Za-z0-9_-]+$/);
    });

    it('keeps the path of the page and leaves its query behind', async () => {
        const address = new URL(await addressOf(piece, 'https://example.org/deep/path/?x=1#old'));
        expect([address.pathname, address.search]).toEqual(['/deep/path/', '']);
    });

    it.each(['', '#', '#other', '#piece=', '#piece=%%%', '#piece=AAAA', '#piece=<script>'])(
        'is no piece: %s',
        async (fragment) => {
            expect(await fromFragment(fragment)).toBeUndefined();
        },
    );

    it.each([
        'null',
        '[]',
        '{"title":1,"files":[]}',
        '{"title":"x","files":[]}',
        '{"title":"x","files":[{"name":"","text":"x"}]}',
        '{"title":"x","files":[{"name":"a","text":1}]}',
        '{"title":"x","files":[{"name":"a","text":"1"},{"name":"a","text":"2"}]}',
    ])('refuses what is not a piece: %s', async (text) => {
        expect(await fromFragment(await packed(text))).toBeUndefined();
    });

    it('does not unfold without an end', async () => {
        const bomb = JSON.stringify({ title: 'x', files: [{ name: 'a.vorn', text: ' '.repeat(40e6) }] });
        expect(await fromFragment(await packed(bomb))).toBeUndefined();
    });
});
