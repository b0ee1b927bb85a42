import { expect, it } from 'vitest';
import { hasLongLine } from '../../src/editor/language';
import { difference } from '../../src/editor/texts';

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
