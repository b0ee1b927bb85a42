import { readFileSync } from 'node:fs';
import type { Page } from '@playwright/test';
import { expect, PATIENCE, SCORE, test } from './page';

const example = (name: string): string =>
    readFileSync(new URL(`../../../../examples/hocket/${name}`, import.meta.url), 'utf8');

const TYPES: Record<string, string> = { html: 'text/html; charset=utf-8', css: 'text/css' };

// A page of somebody else, in a folder beside that of the script.
async function host(page: Page, body: string, files: Record<string, string> = {}): Promise<void> {
    const html = `<!doctype html><meta charset="utf-8"><title>x</title><script type="module" src="../vorn-score.js"></script>${body}`;
    await page.route('**/some/path/host/**', (route) => {
        const name = new URL(route.request().url()).pathname.split('/host/')[1] ?? '';
        const text = { 'page.html': html, ...files }[name];
        const type = TYPES[name.split('.').at(-1) ?? ''] ?? 'text/plain; charset=utf-8';
        return text === undefined
            ? route.fulfill({ status: 404 })
            : route.fulfill({ body: text, contentType: type });
    });
    await page.goto('./host/page.html');
}

test('a score in a page brings what it includes from beside it', async ({ page }) => {
    const score = page.locator('vorn-score');
    await host(page, '<vorn-score src="pieces/hocket.vorn" orchestra="pieces/hocket.orc"></vorn-score>', {
        'pieces/hocket.vorn': example('hocket.vorn'),
        'pieces/hocket.inc': example('hocket.inc'),
        'pieces/hocket.orc': example('hocket.orc'),
    });
    await expect(score).toContainText(/[0-9]{3} events, [0-9]:/);
    await score.getByRole('button', { name: 'Play' }).click();
    await expect(score.getByRole('button', { name: 'Stop' })).toBeVisible();
});

test('a score in a page has its texts in its element', async ({ page }) => {
    const named = (name: string, text: string): string =>
        `<script type="text/plain" data-name="${name}">\n${text}</script>`;
    const texts =
        named('piece.vorn', '#include |theme.inc|\n') +
        named('theme.inc', SCORE) +
        named('piece.orc', 'instr 1\nout poscil(.2, 440)\nendin\n');
    await host(page, `<vorn-score>${texts}</vorn-score><vorn-score>\n; of its own\nnonsense</vorn-score>`);
    await expect(page.locator('vorn-score').first()).toContainText('8 events');
    await expect(page.locator('vorn-score').last()).toContainText('Line 2');
});

test('a score of one event is not told of as of several', async ({ page }) => {
    await host(page, '<vorn-score>i1 = 3 0 1 {p2 1 p3 1}</vorn-score>');
    await expect(page.locator('vorn-score')).toContainText('1 event, ');
});

test('a score in a page is played by the orchestra that includes the others', async ({ page }) => {
    const named = (name: string, text: string): string =>
        `<script type="text/plain" data-name="${name}">\n${text}</script>`;
    const texts =
        named('piece.vorn', SCORE) +
        named('part.orc', 'instr 1\nout poscil(.2, 440)\nendin\n') +
        named('whole.orc', '#include "part.orc"\ninstr 2\nnosuch\nendin\n');
    await host(page, `<vorn-score>${texts}</vorn-score>`);
    await page.locator('vorn-score').getByRole('button', { name: 'Play' }).click();
    await expect(page.locator('vorn-score .trouble')).toContainText('whole.orc, line ', {
        timeout: PATIENCE,
    });
});

test('a score in a page tells its mistake in place of a picture', async ({ page }) => {
    await host(page, `<vorn-score>${SCORE.replace('c4 e4', 'h9')}</vorn-score>`);
    const score = page.locator('vorn-score');
    await expect(score.locator('.trouble')).toContainText('Line 4');
    await expect(score.locator('.advice')).toHaveText('the note below c is b: write b9');
    await expect(score.locator('.stage')).toBeHidden();
    expect((await score.boundingBox())?.height).toBeLessThan(120);
    await score.evaluate((element, text) => element.setAttribute('src', `data:text/plain,${text}`), SCORE);
    await expect(score.locator('.stage')).toBeVisible();
    await expect(score.locator('.trouble')).toHaveCount(0);
    await score.evaluate((element) => element.setAttribute('src', './nowhere.vorn'));
    await expect(score.locator('.trouble')).toContainText('nowhere.vorn cannot be read');
});

test('a score in a page tells what its orchestra keeps from sounding, and tries again', async ({ page }) => {
    const files: Record<string, string> = { 'broken.orc': 'instr 1\nnosuch\nendin\n' };
    const score = page.locator('vorn-score');
    const play = score.getByRole('button', { name: 'Play' });
    await host(page, `<vorn-score orchestra="none.orc">${SCORE}</vorn-score>`, files);
    await play.click();
    await expect(score.locator('.trouble')).toHaveText('none.orc cannot be read.');
    await score.evaluate((element) => element.setAttribute('orchestra', 'broken.orc'));
    await expect(score.locator('.trouble')).toHaveCount(0);
    await play.click();
    await expect(score.locator('.trouble')).toContainText('broken.orc, line 2: ', { timeout: PATIENCE });
    files['broken.orc'] = 'instr 1\nout poscil(.2, 440)\nendin\n';
    await host(page, `<vorn-score orchestra="broken.orc">${SCORE}</vorn-score>`, files);
    await page.route('**/csound.wasm.z', (route) => route.abort(), { times: 1 });
    await play.click();
    await expect(score.locator('.trouble')).toBeVisible();
    await play.click();
    await expect(score.locator('.trouble')).toHaveCount(0);
    await expect(score.getByRole('button', { name: 'Stop' })).toBeVisible();
});

interface Look {
    paper: string;
    ink: number[];
}

// The paper, and the first pixel of an event.
const lookOf = (page: Page): Promise<Look> =>
    page.locator('vorn-score').evaluate((element) => {
        const canvas = element.shadowRoot?.querySelectorAll('canvas')[1];
        const { width = 0, height = 0 } = canvas ?? {};
        const pixels = canvas?.getContext('2d')?.getImageData(0, 0, width, height).data ?? [];
        let at = 0;
        while (at < pixels.length && pixels[at + 3] !== 255) at += 4;
        const ink = [...pixels.slice(at, at + 3)];
        return { paper: getComputedStyle(element).backgroundColor, ink };
    });

test('a score in a page is light or dark as its place is', async ({ page }) => {
    const LIGHT = 'rgb(255, 255, 255)';
    const DARK = 'rgb(20, 22, 26)';
    await page.emulateMedia({ colorScheme: 'dark' });
    await host(page, `<vorn-score>${SCORE}</vorn-score>`);
    await expect(page.locator('vorn-score')).toContainText('8 events');
    await expect.poll(async () => (await lookOf(page)).ink.length).toBe(3);
    const light = await lookOf(page);
    expect(light.paper).toBe(LIGHT);

    const becomes = async (paper: string, isLightInk: boolean): Promise<void> => {
        await expect.poll(async () => (await lookOf(page)).paper).toBe(paper);
        await expect
            .poll(async () => JSON.stringify((await lookOf(page)).ink) === JSON.stringify(light.ink))
            .toBe(isLightInk);
    };
    await page.evaluate(() => (document.documentElement.style.colorScheme = 'light dark'));
    await becomes(DARK, false);
    await page.emulateMedia({ colorScheme: 'light' });
    await becomes(LIGHT, true);
    const ask = (theme: string): Promise<void> =>
        page.locator('vorn-score').evaluate((element, now) => element.setAttribute('theme', now), theme);
    await ask('dark');
    await becomes(DARK, false);
    await page.emulateMedia({ colorScheme: 'dark' });
    await ask('light');
    await becomes(LIGHT, true);
    await page.evaluate(() => (document.documentElement.style.colorScheme = ''));
    await ask('automatic');
    await becomes(DARK, false);
});

test('the documents show all their scores, those with includes too', async ({ playground: page }) => {
    await page.goto('./documents/recipes.html');
    const scores = page.locator('vorn-score');
    await expect(page.locator('vorn-score[src="recipes/parts.vorn"]')).toContainText(/[0-9]+ events/);
    await expect(scores.filter({ hasText: /[0-9]+ events?, / })).toHaveCount(await scores.count());
    await expect(page.locator('vorn-score .trouble')).toHaveCount(0);
});
