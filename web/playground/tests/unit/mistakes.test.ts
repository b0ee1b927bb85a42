import { describe, expect, it, vi } from 'vitest';

vi.mock('../../src/ui/notices', () => ({ notice: vi.fn() }));

import type { Fix } from 'vorn-wasm';
import type { Editor } from '../../src/editor/editor';
import { cure } from '../../src/editor/mistakes';
import { createAppStore, openPiece } from '../../src/state/app_state';
import { withText } from '../../src/state/piece';
import { notice } from '../../src/ui/notices';

const place = { file: 'x.vorn', line: 1, column: 9, endLine: 1, endColumn: 12, from: 9, to: 12 };
const fix: Fix = { title: 'write `bf4`', edits: [{ place, replacement: 'bf4' }] };

describe('a cure', () => {
    it('is put into the text in which it was found, and into no other', () => {
        const apply = vi.fn();
        const editor = { apply } as unknown as Editor;
        const store = createAppStore();
        openPiece(store, { title: 'x', files: [{ name: 'x.vorn', text: 'p4 no c4 bb4' }] });
        store.act('show result', ({ piece }) => ({ resultPiece: piece }));
        cure(store, editor, fix);
        expect(apply.mock.calls).toEqual([[[{ file: 'x.vorn', from: 9, to: 12, insert: 'bf4' }]]]);
        store.act('type', ({ piece }) => ({ piece: withText(piece, 'x.vorn', '; new\np4 no c4 bb4') }));
        cure(store, editor, fix);
        expect(apply).toHaveBeenCalledTimes(1);
        expect(notice).toHaveBeenCalledOnce();
    });
});
