import type { Page } from '@playwright/test';
import { expect, heard, load, SCORE, SINE, state, test } from './page';

const play = (page: Page): Promise<void> => page.getByRole('button', { name: 'Play', exact: true }).click();

const sounding = (page: Page): Promise<unknown> =>
    expect.poll(async () => (await heard(page)).peak, { timeout: 15000 }).toBeGreaterThan(0.05);

const problems = (page: Page) => page.locator('#problems');

test('a complaint of Csound goes when the score is mended, and with the piece', async ({
    playground: page,
}) => {
    const wrong = { ...SINE, 'sine.vorn': (SINE['sine.vorn'] ?? '').replace('i1', '; above\ni7') };
    await load(page, wrong);
    await play(page);
    await expect(problems(page)).toContainText('instr 7 is not defined', { timeout: 15000 });
    await page.locator('.cm-line', { hasText: 'i7' }).click();
    await page.keyboard.press('Home');
    await page.keyboard.press('ArrowRight');
    await page.keyboard.press('Delete');
    await page.keyboard.insertText('1');
    await expect(problems(page)).toContainText('Nothing to mend.');

    await load(page, wrong);
    await play(page);
    await expect(problems(page)).toContainText('instr 7 is not defined', { timeout: 15000 });
    await load(page, SCORE);
    await expect(problems(page)).toContainText('Nothing to mend.');
});

test('a mistake of the orchestra is listed, and underlined in its tab', async ({ playground: page }) => {
    const orchestra = (SINE['sine.orc'] ?? '').replace('poscil', 'nosuch');
    await load(page, { ...SINE, 'sine.orc': orchestra });
    await play(page);
    const mistake = problems(page).getByRole('button', { name: /unexpected .*nosuch/ });
    await expect(mistake).toBeVisible({ timeout: 15000 });
    await expect(problems(page)).not.toContainText('Nothing to mend.');
    await mistake.click();
    await expect(page.getByRole('textbox', { name: 'Orchestra sine.orc' })).toBeVisible();
    await expect(page.locator('.cm-lintRange-error')).toHaveText('nosuch');
    await page.keyboard.insertText('poscil');
    await expect(problems(page)).toContainText('Nothing to mend.');
    await play(page);
    await sounding(page);
});

// Where the line of the picture stands: the columns of the overlay that are inked from above to below.
const lineOf = (page: Page): Promise<number> =>
    page.evaluate(() => {
        const canvas = document.querySelectorAll<HTMLCanvasElement>('.picture-sight canvas')[2];
        const { width = 0, height = 0 } = canvas ?? {};
        const pixels = canvas?.getContext('2d')?.getImageData(0, 0, width, height).data ?? [];
        const inked = (x: number): boolean =>
            [0.3, 0.5, 0.7].every((part) => pixels[4 * (Math.floor(part * height) * width + x) + 3]);
        return Array.from({ length: width }, (_, x) => x).find(inked) ?? -1;
    });

test('another piece is opened in silence, its clock and its line at the beginning', async ({
    playground: page,
}) => {
    await load(page, SINE);
    const atRest = await lineOf(page);
    await play(page);
    await sounding(page);
    await expect.poll(async () => (await state(page)).position).toBeGreaterThan(1);
    await load(page, SCORE);
    expect(await state(page)).toMatchObject({ sounding: 'silent', position: 0, soundTrouble: '' });
    await expect(page.getByRole('timer')).toHaveText(/^0:00 /);
    await expect.poll(() => lineOf(page)).toBe(atRest);
    await expect.poll(async () => (await heard(page)).peak).toBeLessThan(0.001);

    await load(page, SINE);
    await play(page);
    await expect.poll(async () => (await state(page)).position).toBeGreaterThan(1);
    await page.getByRole('button', { name: 'Stop' }).click();
    expect(await lineOf(page)).toBeGreaterThan(atRest);
    await load(page, SCORE);
    await expect(page.getByRole('timer')).toHaveText(/^0:00 /);
    await expect.poll(() => lineOf(page)).toBe(atRest);
});

test('what Csound complains of is told whenever the piece is played', async ({ playground: page }) => {
    await load(page, {
        ...SINE,
        'sine.vorn': SINE['sine.vorn'] + 'i7 = 5, 0, 1 {\np2 1\np3 1\np4 9\np5 1\n}\n',
    });
    for (let time = 1; time <= 2; time++) {
        await play(page);
        await expect(problems(page)).toContainText('instr 7 is not defined', { timeout: 15000 });
        expect((await state(page)).sounding).toBe('playing');
        await page.getByRole('button', { name: 'Stop' }).click();
    }
});

// A second of sound that begins again and again, and the cursor in its orchestra.
async function openOrchestraInLoop(page: Page): Promise<void> {
    const short = (SINE['sine.vorn'] ?? '').replace('0, 6', '0, 1').replace('p2 6', 'p2 1');
    await load(page, { ...SINE, 'sine.vorn': short });
    await page.getByRole('button', { name: 'Play in a loop' }).click();
    await play(page);
    await sounding(page);
    await page.getByRole('tab', { name: 'sine.orc' }).click();
    await page.getByRole('textbox', { name: 'Orchestra sine.orc' }).click();
}

async function writeEndlessOrchestra(page: Page): Promise<void> {
    await page.keyboard.press('Control+a');
    await page.keyboard.insertText('instr 1\nagain:\nigoto again\nendin\n');
}

test('an orchestra that is broken while a loop sounds is told, however fast', async ({
    playground: page,
}) => {
    await openOrchestraInLoop(page);
    await page.keyboard.press('Control+End');
    await page.keyboard.type('instr 2\nasig nosuch 1\nendin\n', { delay: 5 });
    await expect(problems(page)).toContainText('nosuch', { timeout: 15000 });

    await writeEndlessOrchestra(page);
    await expect
        .poll(async () => (await state(page)).soundTrouble, { timeout: 20000 })
        .toContain('did not come back');
    expect((await state(page)).sounding).toBe('playing');
});

test('an orchestra that is mended before it was given up is not told of', async ({ playground: page }) => {
    await openOrchestraInLoop(page);
    await writeEndlessOrchestra(page);
    await page.waitForTimeout(2500); // in which it is begun
    await page.getByRole('button', { name: 'Stop' }).click();
    await page.keyboard.press('Control+z');
    await page.locator('.cm-line', { hasText: 'poscil' }).waitFor();
    await page.waitForTimeout(10000); // in which it is given up
    expect(await state(page)).toMatchObject({ sounding: 'silent', soundTrouble: '' });
});
