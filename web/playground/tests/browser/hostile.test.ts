// Input that means harm, or is only too much: the page stays alive and nothing in it is executed.
import type { Page } from '@playwright/test';
import { MARKUP, TEXTS } from '../../tools/hostile.mjs';
import { expect, facts, load, open, SCORE, test, textOf } from './page';

// The page answers; how soon is measured by tools/measure.mjs.
async function isAlive(page: Page): Promise<void> {
    await page.evaluate(() => new Promise((resolve) => requestAnimationFrame(resolve)));
    expect(await page.evaluate(() => 'harmed' in window)).toBe(false);
}

async function recovers(page: Page): Promise<void> {
    await load(page, SCORE);
    expect(await facts(page)).toMatchObject({ status: 0, eventCount: 8 });
}

const loadSoon = (page: Page, files: Record<string, string>): Promise<void> =>
    page.evaluate((given) => void window.vornPlayground?.load(given), files);

for (const [name, files] of Object.entries(TEXTS)) {
    test(name, async ({ playground: page }) => {
        await loadSoon(page, files);
        await page.waitForTimeout(300);
        await isAlive(page);
        await facts(page);
        await isAlive(page);
        await recovers(page);
    });
}

test('the end of a time beyond counting, as near as it goes', async ({ playground: page }) => {
    await load(page, 'i1 = 5, 0, -4 {\np2 999999999999999\np3 1\np4(hz) 60 62\np5 1\n}\n');
    await page.locator('#stage').focus();
    await page.keyboard.press('End');
    for (let press = 0; press < 150; press++) await page.keyboard.press('+');
    await isAlive(page);
    await recovers(page);
});

test('a score in another page has keys and times beyond counting', async ({ page }) => {
    const scores = ['a key that nobody hears', 'keys beyond counting', 'a time beyond counting'].map(
        (name) => `<vorn-score>${TEXTS[name]?.['a.vorn'] ?? ''}</vorn-score>`,
    );
    const body = `<!doctype html><meta charset="utf-8"><title>x</title><script type="module" src="./vorn-score.js"></script>${scores.join('')}`;
    await page.route('**/some/path/embedded.html', (route) =>
        route.fulfill({ body, contentType: 'text/html' }),
    );
    await page.goto('./embedded.html');
    for (const score of await page.locator('vorn-score').all()) await expect(score).toContainText('events');
    await isAlive(page);
});

test('5 MB are pasted', async ({ playground: page }) => {
    await load(page, '');
    await page.locator('.cm-content').click();
    await page.evaluate(() => {
        const transfer = new DataTransfer();
        transfer.setData('text/plain', 'i1 = 4 0 4 { p2 1 p3 1 p4 60 }\n'.repeat(5e6 / 31));
        const paste = new ClipboardEvent('paste', {
            clipboardData: transfer,
            bubbles: true,
            cancelable: true,
        });
        document.querySelector('.cm-content')?.dispatchEvent(paste);
    });
    await isAlive(page);
    expect((await textOf(page))?.length).toBeGreaterThan(4.9e6);
    await recovers(page);
});

test('5 MB in one line', async ({ playground: page }) => {
    await loadSoon(page, { 'a.vorn': '1 '.repeat(2.5e6) });
    await page.waitForTimeout(300);
    await isAlive(page);
    await recovers(page);
});

for (const fragment of [
    '#piece=AAAA',
    '#piece=%00%ff',
    `#${MARKUP}`,
    '#piece=' + 'A'.repeat(100000),
    `#piece=${MARKUP}`,
]) {
    test(`the fragment ${fragment.slice(0, 40)}`, async ({ page }) => {
        await open(page, './' + fragment);
        await isAlive(page);
        expect((await facts(page)).eventCount).toBeGreaterThan(100);
    });
}

test('a piece in an address that is made of markup stays text', async ({ page }) => {
    const piece = { title: MARKUP, files: [{ name: `${MARKUP}.vorn`, text: MARKUP }] };
    await open(page);
    const fragment = await page.evaluate(async (given) => {
        const stream = new Blob([JSON.stringify(given)])
            .stream()
            .pipeThrough(new CompressionStream('deflate-raw'));
        const bytes = new Uint8Array(await new Response(stream).arrayBuffer());
        return btoa(String.fromCharCode(...bytes))
            .replaceAll('+', '-')
            .replaceAll('/', '_');
    }, piece);
    await open(page, './?again#piece=' + fragment);
    await expect(page.getByRole('textbox', { name: 'Title of the piece' })).toHaveValue(MARKUP.slice(0, 80));
    await expect(page.locator('.problem').first()).toBeVisible();
    await isAlive(page);
});
