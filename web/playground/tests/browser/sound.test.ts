import { readFileSync } from 'node:fs';
import { expect, heard, load, PATIENCE, SINE, state, test } from './page';
import type { Page } from '@playwright/test';

const sounding = (page: Page): Promise<unknown> =>
    expect.poll(async () => (await heard(page)).peak, { timeout: 15000 }).toBeGreaterThan(0.05);

test('Csound plays what the score says', async ({ playground: page }) => {
    await load(page, SINE);
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await sounding(page);
    await page.waitForTimeout(300);
    const { peak, hertz } = await heard(page);
    expect(hertz).toBeGreaterThan(438);
    expect(hertz).toBeLessThan(442);
    // .3 at a volume of .8, which is taken as .64
    expect(peak).toBeCloseTo(0.3 * 0.64, 1);
    await page.getByRole('button', { name: 'Stop' }).click();
    expect((await state(page)).sounding).toBe('silent');
});

test('a piece without an orchestra is played by one that is made for it', async ({ playground: page }) => {
    await load(page, { 'sine.vorn': SINE['sine.vorn'] ?? '' });
    await page.keyboard.press('Control+Enter');
    await sounding(page);
});

test('it plays from the block at the cursor', async ({ playground: page }) => {
    const text = SINE['sine.vorn'] ?? '';
    await load(page, { ...SINE, 'sine.vorn': text + text.replace('i1 = 5, 0, 6', 'i1 = 5, 6, 6') });
    await page.locator('.cm-line', { hasText: 'i1 = 5, 6' }).click();
    await page.keyboard.press('Control+Shift+Enter');
    await sounding(page);
    expect((await state(page)).position).toBeGreaterThanOrEqual(6);
});

test('another orchestra is heard when the loop begins again', async ({ playground: page }) => {
    const short = (SINE['sine.vorn'] ?? '').replace('0, 6', '0, 1').replace('p2 6', 'p2 1');
    const octave = (SINE['sine.orc'] ?? '').replace('p5, p4', 'p5, 2 * p4');
    await load(page, { ...SINE, 'sine.vorn': short, 'octave.orc': octave });
    await page.getByRole('button', { name: 'Play in a loop' }).click();
    await page.keyboard.press('Control+Enter');
    const hertz = async (): Promise<number> => Math.round((await heard(page)).hertz / 20) * 20;
    await expect.poll(hertz, { timeout: PATIENCE }).toBe(440);
    await page.getByRole('tab', { name: 'Sound' }).click();
    const choice = page.getByRole('combobox', { name: 'Played by' });
    await choice.selectOption('Csound with octave.orc');
    await expect.poll(hertz, { timeout: PATIENCE }).toBe(880);
    await choice.selectOption('built-in');
    await expect.poll(hertz, { timeout: PATIENCE }).toBe(440);
});

test('an edit is heard when the loop begins again', async ({ playground: page }) => {
    const short = (SINE['sine.vorn'] ?? '').replace('0, 6', '0, 1').replace('p2 6', 'p2 1');
    await load(page, { ...SINE, 'sine.vorn': short });
    await page.getByRole('button', { name: 'Play in a loop' }).click();
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await sounding(page);
    await page.locator('.cm-line', { hasText: 'no a4' }).click();
    await page.keyboard.press('End');
    await page.keyboard.press('Backspace');
    await page.keyboard.insertText('5');
    await expect.poll(async () => Math.round((await heard(page)).hertz / 10), { timeout: 10000 }).toBe(88);
});

test('a script plays from the ends of the piece where it asks for what lies outside', async ({
    playground: page,
}) => {
    await load(page, SINE);
    const play = (from: number): Promise<void> =>
        page.evaluate((seconds) => window.vornPlayground?.play(seconds), from);
    for (const from of [NaN, -5]) {
        await play(from);
        await expect
            .poll(async () => (await state(page)).position, { timeout: PATIENCE })
            .toBeGreaterThan(0.2);
        expect((await heard(page)).peak).toBeGreaterThan(0.05);
        await page.evaluate(() => window.vornPlayground?.stop());
    }
    await play(1e9);
    expect((await state(page)).position).toBeLessThanOrEqual(6);
    await expect.poll(async () => (await state(page)).sounding, { timeout: PATIENCE }).toBe('silent');
});

test('what Csound refuses is told, and by whom', async ({ playground: page }) => {
    await load(page, { ...SINE, 'sine.orc': 'instr 1\nasound nosuch p4\nendin\n' });
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await expect(page.locator('#panel .trouble')).toContainText('orchestra', { timeout: 15000 });
    await expect(page.locator('.csound-text')).toContainText('nosuch');
});

test('an orchestra without an end leaves the page alive', async ({ playground: page }) => {
    await load(page, { ...SINE, 'sine.orc': 'instr 1\nloop:\nigoto loop\nendin\n' });
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await page.waitForTimeout(500);
    const begin = Date.now();
    await page.evaluate(() => window.vornPlayground?.drawn());
    expect(Date.now() - begin).toBeLessThan(PATIENCE);
    await expect(page.locator('#panel .trouble')).toContainText('did not come back', { timeout: 15000 });
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await page.waitForTimeout(500);
    await load(page, SINE);
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await expect.poll(async () => (await heard(page)).peak, { timeout: 7000 }).toBeGreaterThan(0.05);
});

test('a WAV file is rendered whole', async ({ playground: page }) => {
    await load(page, SINE);
    const begin = Date.now();
    const waiting = page.waitForEvent('download');
    await page.getByRole('button', { name: 'Download' }).click();
    await page.getByRole('menuitem', { name: /\.wav/ }).click();
    const bytes = readFileSync((await (await waiting).path()) ?? '');
    console.log(`      six seconds rendered and saved in ${Date.now() - begin} ms`);
    expect(bytes.toString('latin1', 0, 4)).toBe('RIFF');
    expect(bytes.readUInt32LE(24)).toBe(44100);
    expect((bytes.length - 44) / 2 / 44100).toBeCloseTo(6, 1);
    const samples = new Int16Array(bytes.buffer, bytes.byteOffset + 44, 44100);
    expect(Math.max(...samples) / 32768).toBeCloseTo(0.3, 2);
});

// One tone at few samples a second, so that minutes of it are rendered soon.
function long(minutes: number, rate: number): Record<string, string> {
    const score = `i1 = 5, 0, ${minutes * 60} {\np2 ${minutes * 60}\np3 1\np4(hz) no a4\np5 .3\n}\n`;
    const orchestra = (SINE['sine.orc'] ?? '').replace('44100', String(rate)).replace('32', '100');
    return { 'long.vorn': score, 'long.orc': orchestra };
}

const askForWave = async (page: Page): Promise<void> => {
    await page.getByRole('button', { name: 'Download' }).click();
    await page.getByRole('menuitem', { name: /\.wav/ }).click();
};

test('a WAV file of more than twenty minutes is rendered whole', async ({ playground: page }) => {
    await load(page, long(25, 2000));
    const waiting = page.waitForEvent('download');
    await askForWave(page);
    const bytes = readFileSync((await (await waiting).path()) ?? '');
    expect((bytes.length - 44) / 2 / 2000).toBeCloseTo(25 * 60, 0);
    const end = new Int16Array(bytes.buffer, bytes.byteOffset + bytes.length - 2 * 2000, 1000);
    expect(Math.max(...end) / 32768).toBeCloseTo(0.3, 2);
    await expect(page.locator('.notice')).toHaveCount(0);
});

test('how far a WAV file is stands on the page, and it can be cancelled', async ({ playground: page }) => {
    let downloads = 0;
    page.on('download', () => (downloads += 1));
    await load(page, long(160, 48000));
    await askForWave(page);
    const progress = page.locator('.notice', { hasText: /long\.wav: \d+:\d\d of 160:00/ });
    await expect(progress).toBeVisible({ timeout: 15000 });
    const part = (): Promise<number> =>
        progress.locator('progress').evaluate((bar) => (bar as HTMLProgressElement).value);
    const before = await part();
    await expect.poll(part).toBeGreaterThan(before);
    await askForWave(page);
    await expect(page.locator('.notice', { hasText: 'wait for it or cancel it' })).toBeVisible();
    await progress.getByRole('button', { name: 'Cancel' }).click();
    await expect(progress).toHaveCount(0);
    await load(page, long(1, 2000));
    const waiting = page.waitForEvent('download');
    await askForWave(page);
    await waiting;
    expect(downloads).toBe(1);
});
