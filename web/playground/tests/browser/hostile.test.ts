// Input that means harm, or is only too much: the page stays alive and nothing in it is executed.
import { expect, facts, load, open, PATIENCE, SCORE, test, textOf } from './page';
import type { Page } from '@playwright/test';

const MARKUP = '<img src=x onerror="window.harmed=1"><script>window.harmed=1</script>';

// The page answers, within two seconds where the machine is its own, and to a good score with its events.
async function isAlive(page: Page): Promise<void> {
    const begin = Date.now();
    await page.evaluate(() => new Promise((resolve) => requestAnimationFrame(resolve)));
    expect(Date.now() - begin).toBeLessThan(PATIENCE);
    expect(await page.evaluate(() => 'harmed' in window)).toBe(false);
}

async function recovers(page: Page): Promise<void> {
    await load(page, SCORE);
    expect(await facts(page)).toMatchObject({ status: 0, eventCount: 8 });
}

const loadSoon = (page: Page, files: Record<string, string>): Promise<void> =>
    page.evaluate((given) => void window.vornPlayground?.load(given), files);

const TEXTS: Record<string, Record<string, string>> = {
    'an include of itself': { 'a.vorn': '#include |a.vorn|\n' },
    'includes in a circle': {
        'a.vorn': '#include |b.inc|\n',
        'b.inc': '#include |b.inc|\n#include |b.inc|\n',
    },
    'a macro bomb': {
        'a.vorn':
            '#define A #x x x x x x x x x x#\n' +
            [...'BCDEFGHIJ']
                .map((name, index) => `#define ${name} #${`$${'ABCDEFGHI'[index] ?? ''} `.repeat(10)}#`)
                .join('\n') +
            '\ni1 = 4 0 4 { p2 1 p3 1 p4 $J }\n',
    },
    'a million events': { 'a.vorn': 'i1 = 5, 0, -1000000 {\np2 .001\np3 1\np4 ra(T 1 [0 1])\np5 1\n}\n' },
    'a key that nobody hears': { 'a.vorn': 'i1 = 4, 0, 2 {\np2 1\np3 1\np4(hz) 44000000 60\n}\n' },
    'keys beyond counting': {
        'a.vorn': 'i1 = 4, 0, 2 {\np2 1\np3 1\np4(hz) 99999999999999999999 .0000000001\n}\n',
    },
    'a time beyond counting': {
        'a.vorn': 'i1 = 4, 0, -4 {\np2 9999999999999999999999999\np3 1\np4(hz) 60 62\n}\n',
    },
    '64 KB of emoji': { 'a.vorn': '😀🎵🎹🥁'.repeat(4096) },
    'markup everywhere': { [`${MARKUP.replaceAll('/', '')}.vorn`]: `${MARKUP}\n#include |${MARKUP}|\n` },
    'control characters': { 'a.vorn': '\u0000\u0007\u001b[31m\u202e i1 = \u2028\u2029\r\r\n' },
};

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
