import { expect, facts, inkOf, load, SCORE, test, textOf } from './page';

test('a score that is typed becomes events in the picture', async ({ playground: page }) => {
    await load(page, '');
    await page.locator('.cm-content').click();
    await page.keyboard.insertText(SCORE);
    expect(await facts(page)).toMatchObject({ status: 0, eventCount: 8, codes: [] });
    expect(await inkOf(page)).toBeGreaterThan(500);
    await expect(page.locator('#status')).toContainText('8 events');
});

test('what is chosen is shown wherever it stands, but not a single letter', async ({ playground: page }) => {
    await load(page, SCORE);
    await page.locator('.cm-content').click();
    await page.keyboard.press('Control+Home');
    await page.keyboard.press('ArrowDown');
    await page.keyboard.press('Shift+ArrowRight');
    const alike = page.locator('.cm-selectionMatch');
    await expect(alike).toHaveCount(0);
    await page.keyboard.press('ArrowRight');
    await page.keyboard.press('ArrowRight');
    await page.keyboard.press('Shift+ArrowRight');
    await page.keyboard.press('Shift+ArrowRight');
    await expect(alike.first()).toBeVisible();
});

test('a mistake is underlined and listed, and goes by its quick fix', async ({ playground: page }) => {
    await load(page, SCORE.replace('c5', 'bb4'));
    await expect(page.locator('.cm-lintRange')).toHaveCount(1);
    await expect(page.locator('.problem')).toHaveCount(1);
    await page.locator('.problem .word-button').click();
    expect(await textOf(page)).toContain('g4 bf4');
    expect((await facts(page)).codes).toEqual([]);
    await expect(page.locator('.cm-lintRange')).toHaveCount(0);
});

for (const [wrong, right] of [
    ['p4 ra(T 1 [1 2]', 'p4 ra(T 1 [1 2])'],
    ['p4(hz) c4', 'p4(hz) no c4'],
    ['p4 0,9', 'p4 0.9'],
] as const) {
    test(`"${wrong}" is cured by a key`, async ({ playground: page }) => {
        await load(page, `i1 = 4, 0, 2 {\np2 1\np3 1\n${wrong}\n}\n`);
        expect((await facts(page)).codes).not.toEqual([]);
        await page.keyboard.press('Control+.');
        expect(await textOf(page)).toContain(right);
        expect((await facts(page)).status).toBe(0);
    });
}

test('a comma in a number is told with what to write', async ({ playground: page }) => {
    await load(page, SCORE.replace('p3 .9', 'p3 0,9'));
    await expect(page.locator('.problem')).toContainText('0.9');
});

test('the last picture stays, faint, while the score has a mistake', async ({ playground: page }) => {
    await load(page, SCORE);
    const before = await inkOf(page);
    await page.locator('.cm-content').click();
    await page.keyboard.press('Control+End');
    await page.keyboard.insertText('nonsense\n');
    expect((await facts(page)).status).toBe(1);
    expect(await inkOf(page)).toBe(before);
    await expect(page.locator('#desk')).toHaveClass(/is-stale/);
});

test('files may be added however many there are', async ({ playground: page }) => {
    const includes = Array.from({ length: 60 }, (_, index) => [`part${index}.inc`, '; part'] as const);
    await load(page, { 'piece.vorn': SCORE, ...Object.fromEntries(includes) });
    const add = page.getByRole('button', { name: 'Add a file or take one out' });
    await expect(add).toBeInViewport({ ratio: 1 });
    await page.setViewportSize({ width: 800, height: 800 });
    await expect(add).toBeInViewport({ ratio: 1 });
    await page.getByRole('tab', { name: 'piece.vorn' }).focus();
    await page.keyboard.press('ArrowLeft');
    await expect(page.getByRole('tab', { name: 'part59.inc' })).toBeInViewport({ ratio: 0.9 });
});

test('of thousands of sliders those are shown that a hand can reach', async ({ playground: page }) => {
    const constants = Array.from({ length: 3000 }, (_, index) => `#const X${index} 4 ; 1..20\n`);
    await page.getByRole('tab', { name: 'Sliders' }).click();
    await load(page, constants.join('') + SCORE);
    await expect(page.locator('.slider')).toHaveCount(100);
    await expect(page.getByRole('tabpanel')).toContainText('the first 100 of 3,000');
    await page.getByRole('slider', { name: 'X7', exact: true }).fill('15');
    await expect.poll(() => textOf(page)).toContain('#const X7 15 ; 1..20\n');
});

test('an include is a tab of its own', async ({ playground: page }) => {
    await load(page, `#include |notes.inc|\n${SCORE.replace('c4 e4 g4 c5', '$NOTES')}`);
    expect((await facts(page)).status).toBe(1);
    await page.getByRole('button', { name: 'Add a file or take one out' }).click();
    await page.getByRole('menuitem', { name: /notes\.inc/ }).click();
    await page.locator('.cm-content').click();
    await page.keyboard.insertText('#define NOTES #c4 d4#\n');
    expect(await facts(page)).toMatchObject({ status: 0, eventCount: 8 });
});

test('the expansion of the line at the cursor is shown', async ({ playground: page }) => {
    await load(page, `#const LOUD .25\n${SCORE.replace('p5 .2', 'p5 ~LOUD')}`);
    await page.locator('.cm-line', { hasText: '~LOUD' }).click();
    await expect(page.locator('#expansion')).toContainText('p5 0.25');
    await page.locator('.cm-line', { hasText: 'p3 .9' }).click();
    await expect(page.locator('#expansion')).toBeHidden();
});

test('each file keeps its own undo', async ({ playground: page }) => {
    await load(page, { 'a.vorn': SCORE, 'a.inc': '; old' });
    await page.getByRole('tab', { name: 'a.inc' }).click();
    await page.locator('.cm-content').click();
    await page.keyboard.press('Control+End');
    await page.keyboard.insertText(' new');
    await page.getByRole('tab', { name: 'a.vorn' }).click();
    await page.getByRole('tab', { name: 'a.inc' }).click();
    expect(await textOf(page, 'a.inc')).toBe('; old new');
    await page.locator('.cm-content').click();
    await page.keyboard.press('Control+z');
    expect(await textOf(page, 'a.inc')).toBe('; old');
});
