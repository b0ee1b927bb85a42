import { history, undo } from '@codemirror/commands';
import { EditorState } from '@codemirror/state';
import { expect, it } from 'vitest';
import { hasLongLine } from '../../src/editor/language';
import { difference, editedState } from '../../src/editor/texts';

const applied = (before: string, after: string): string => {
    const change = difference(before, after);
    return change ? before.slice(0, change.from) + change.insert + before.slice(change.to) : before;
};

it.each([
    ['', ''],
    ['', 'abc'],
    ['abc', ''],
    ['aaa', 'aa'],
    ['aa', 'aaa'],
    ['p3 0,9\n', 'p3 0.9\n'],
    ['abab', 'ab'],
    ['same', 'same'],
])('the difference of "%s" and "%s" leads from one to the other', (before, after) => {
    expect(applied(before, after)).toBe(after);
});

it('is no longer than what differs', () => {
    expect(difference('p3 0,9 ; x', 'p3 0.9 ; x')).toEqual({ from: 4, to: 5, insert: '.' });
});

it('tells a line that nobody has written by hand', () => {
    expect(hasLongLine(`${'x'.repeat(20000)}\n`.repeat(3))).toBe(false);
    expect(hasLongLine(`a\n${'x'.repeat(20001)}`)).toBe(true);
    expect(hasLongLine('')).toBe(false);
});

it('edits of a text that is not shown are undone at once, and nothing that was there before', () => {
    const before = EditorState.create({ doc: 'p4 bb4\n', extensions: history() });
    const edits = [
        { file: 'x.inc', from: 7, to: 7, insert: 'p6 1\n' },
        { file: 'x.inc', from: 3, to: 4, insert: 'c' },
    ];
    let state = editedState(before, 'p4 bb5\n', edits, false);
    expect(state.doc.toString()).toBe('p4 cb5\np6 1\n');
    undo({ state, dispatch: (change) => (state = change.state) });
    expect(state.doc.toString()).toBe('p4 bb5\n');
});
