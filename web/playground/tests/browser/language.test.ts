import { expect, load, SCORE, test, textOf } from './page';

test('a block is folded at the margin and opened again', async ({ playground: page }) => {
    await load(page, SCORE);
    await page.locator('.cm-foldGutter span[title="Fold line"]').first().click();
    await expect(page.locator('.cm-foldPlaceholder')).toBeVisible();
    await expect(page.locator('.cm-content')).not.toContainText('no c4');
    await page.locator('.cm-foldPlaceholder').click();
    await expect(page.locator('.cm-content')).toContainText('no c4');
});

test('brackets match, and close as they are opened', async ({ playground: page }) => {
    await load(page, SCORE);
    await page.locator('.cm-line', { hasText: 'p5 .2' }).click();
    await page.keyboard.press('End');
    await page.keyboard.type(' ra(');
    expect(await textOf(page)).toContain('p5 .2 ra()');
    await expect(page.locator('.cm-matchingBracket').first()).toBeVisible();
});

test('a word tells what it does, and words are completed', async ({ playground: page }) => {
    await load(page, SCORE);
    await page.locator('.cm-line', { hasText: 'p4(hz)' }).locator('span', { hasText: /^no$/ }).hover();
    await expect(page.locator('.cm-tooltip-hover')).toContainText('note names');
    await page.locator('.cm-line', { hasText: 'p5 .2' }).click();
    await page.keyboard.press('End');
    await page.keyboard.type(' m');
    await page.keyboard.press('Control+Space');
    await expect(page.locator('.cm-tooltip-autocomplete')).toContainText('mo');
});
