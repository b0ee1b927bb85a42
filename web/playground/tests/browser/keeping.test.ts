import { readFileSync } from 'node:fs';
import { expect, facts, heard, load, open, ready, SCORE, SINE, state, test, textOf } from './page';

test('a piece is shared by its address and opened from it', async ({ playground: page, context }) => {
    await load(page, { 'piece.vorn': SCORE + '; ä♪\n', 'piece.orc': 'instr 1\nendin\n' });
    await page.keyboard.press('Control+s');
    const address = await page.getByRole('textbox', { name: 'Address' }).inputValue();
    const other = await context.newPage();
    await other.goto(address);
    await ready(other);
    await expect.poll(() => textOf(other)).toBe(SCORE + '; ä♪\n');
    expect((await state(other)).files['piece.orc']).toContain('instr 1');
    expect(new URL(other.url()).hash).toBe('');
});

test('a long address says so', async ({ playground: page }) => {
    const noise = Array.from({ length: 9000 }, (_, index) => (index * 7919 * 104729) % 999983).join(' ');
    await load(page, `; ${noise}\n${SCORE}`);
    await page.getByRole('button', { name: 'Share' }).click();
    await expect(page.locator('dialog .trouble')).toContainText('longer than');
});

test('nothing is lost by a reload', async ({ playground: page }) => {
    await load(page, SCORE);
    await page.locator('.cm-content').click();
    await page.keyboard.press('Control+End');
    await page.keyboard.insertText('; the last word\n');
    await page.reload();
    await ready(page);
    expect(await textOf(page)).toBe(SCORE + '; the last word\n');
});

test('nor of a piece that is longer than a browser writes at once', async ({ playground: page }) => {
    await load(page, SCORE + `; ${'long '.repeat(20)}\n`.repeat(60_000));
    await page.waitForTimeout(1500); // it has been kept
    await page.locator('.cm-content').click();
    await page.keyboard.press('Control+Home');
    await page.keyboard.insertText('; the last word\n');
    await page.reload();
    await ready(page);
    expect((await textOf(page))?.slice(0, 16)).toBe('; the last word\n');
});

test('what was replaced is in the history', async ({ playground: page }) => {
    await load(page, SCORE + '; mine\n');
    await load(page, SCORE);
    await page.getByRole('button', { name: 'More', exact: true }).click();
    await page.getByRole('menuitem', { name: 'History' }).click();
    await page.getByRole('button', { name: 'Open', exact: true }).first().click();
    await expect.poll(() => textOf(page)).toContain('; mine');
});

test('files are dropped', async ({ playground: page }) => {
    const data = await page.evaluateHandle((text) => {
        const transfer = new DataTransfer();
        transfer.items.add(new File([text], 'dropped.vorn'));
        transfer.items.add(new File(['instr 1\nendin\n'], 'dropped.orc'));
        return transfer;
    }, SCORE);
    await page.dispatchEvent('#stage', 'dragover', { dataTransfer: data });
    await page.dispatchEvent('#stage', 'drop', { dataTransfer: data });
    await expect(page.getByRole('tab', { name: 'dropped.orc' })).toBeVisible();
    expect(await facts(page)).toMatchObject({ status: 0, eventCount: 8 });
});

test('the orchestra that is dropped last plays, until another one is chosen, also after a reload', async ({
    playground: page,
}) => {
    await load(page, SINE);
    const octave = (SINE['sine.orc'] ?? '').replace('p5, p4', 'p5, 2 * p4');
    const data = await page.evaluateHandle((text) => {
        const transfer = new DataTransfer();
        transfer.items.add(new File(['\ufeff', text], 'OCTAVE.ORC'));
        return transfer;
    }, octave);
    await page.dispatchEvent('#stage', 'drop', { dataTransfer: data });
    await expect(page.locator('.notice').last()).toContainText('OCTAVE.ORC plays from now on.');
    const hertz = async (): Promise<number> => Math.round((await heard(page)).hertz / 20) * 20;
    await page.keyboard.press('Control+Enter');
    await expect.poll(hertz, { timeout: 15000 }).toBe(880);
    await page.keyboard.press('Control+Enter');
    await page.getByRole('tab', { name: 'Sound' }).click();
    const choice = page.getByRole('combobox', { name: 'Played by' });
    await expect(choice).toHaveValue('orchestra:OCTAVE.ORC');
    await choice.selectOption('Csound with sine.orc');
    await page.keyboard.press('Control+Enter');
    await expect.poll(hertz, { timeout: 15000 }).toBe(440);
    await choice.selectOption('Csound with OCTAVE.ORC');
    await page.reload();
    await ready(page);
    await page.getByRole('tab', { name: 'Sound' }).click();
    await expect(choice).toHaveValue('orchestra:OCTAVE.ORC');
    await page.getByRole('tab', { name: 'OCTAVE.ORC' }).click();
    await page.getByRole('button', { name: 'Add a file or take one out' }).click();
    await page.getByRole('menuitem', { name: 'Take out OCTAVE.ORC' }).click();
    await expect(page.locator('.notice')).toContainText('sine.orc plays from now on.');
    await load(page, SCORE);
    await expect(page.locator('.notice')).toHaveCount(0);
});

test('a file with the line ends of Windows is shown, mended and written as it is', async ({
    playground: page,
}) => {
    const broken = `; one\n\n#const X 4 ; 1..20\n${SCORE.replace('c4 e4', 'c4 bb4 e4')}`.replaceAll(
        '\n',
        '\r\n',
    );
    const data = await page.evaluateHandle((text) => {
        const transfer = new DataTransfer();
        transfer.items.add(new File([text], 'windows.vorn'));
        return transfer;
    }, broken);
    await page.dispatchEvent('#stage', 'drop', { dataTransfer: data });
    await expect(page.locator('.problem')).toHaveCount(1);
    await expect(page.locator('.cm-lintRange')).toHaveText('bb4');
    await page.locator('.problem .word-button').click();
    const mended = broken.replace('bb4', 'bf4');
    expect(await textOf(page, 'windows.vorn')).toBe(mended.replaceAll('\r\n', '\n'));
    await page.getByRole('tab', { name: 'Sliders' }).click();
    await page.getByRole('slider', { name: 'X' }).fill('15');
    await expect.poll(() => textOf(page, 'windows.vorn')).toContain('#const X 15 ; 1..20\n');
    const waiting = page.waitForEvent('download');
    await page.getByRole('button', { name: 'Download' }).click();
    await page.getByRole('menuitem', { name: 'windows.vorn' }).click();
    const path = await (await waiting).path();
    expect(readFileSync(path, 'utf8')).toBe(mended.replace('X 4', 'X 15'));
});

for (const [suffix, begin] of [
    ['.sco', ';I-block #1 (i1):'],
    ['.csd', '<CsoundSynthesizer>'],
    ['.mid', 'MThd'],
    ['.svg', '<?xml'],
    ['.json', '{'],
    ['.vorn', 'i1 = 5'],
] as const) {
    test(`a file ${suffix} is downloaded`, async ({ playground: page }) => {
        await load(page, SCORE);
        const waiting = page.waitForEvent('download');
        await page.getByRole('button', { name: 'Download' }).click();
        await page
            .getByRole('menuitem', { name: `piece${suffix}` })
            .first()
            .click();
        const download = await waiting;
        expect(download.suggestedFilename()).toBe(`piece${suffix}`);
        expect(
            readFileSync((await download.path()) ?? '', 'latin1')
                .trimStart()
                .slice(0, begin.length),
        ).toBe(begin);
    });
}

test('a seed is rolled, kept, put back and locked', async ({ playground: page }) => {
    await load(page, 'rs(7)\n' + SCORE.replace('c4 e4 g4 c5', 'ra(T 1 [c4 c5])'));
    await page.getByRole('tab', { name: 'Seeds' }).click();
    await page.getByRole('button', { name: 'Keep' }).click();
    await page.getByRole('button', { name: 'Roll', exact: true }).click();
    await page.evaluate(() => window.vornPlayground?.drawn());
    expect(await textOf(page)).not.toContain('rs(7)');
    await page.getByRole('button', { name: /^seed 7/ }).click();
    expect(await textOf(page)).toContain('rs(7)');
    await page.getByRole('checkbox', { name: 'Lock' }).check();
    await expect(page.getByRole('button', { name: 'Roll', exact: true })).toBeDisabled();
});

test('a locked seed holds for the shelf and the die, until it is unlocked', async ({ playground: page }) => {
    await load(page, 'rs(7)\n' + SCORE.replace('c4 e4 g4 c5', 'ra(T 1 [c4 c5])'));
    await page.getByRole('tab', { name: 'Seeds' }).click();
    await page.getByRole('button', { name: 'Keep' }).click();
    await page.getByRole('button', { name: 'Roll', exact: true }).click();
    await page.evaluate(() => window.vornPlayground?.drawn());
    const rolled = await textOf(page);
    await page.getByRole('checkbox', { name: 'Lock' }).check();
    await page.getByRole('button', { name: /^seed 7/ }).click();
    await expect(page.locator('#notices')).toContainText('The seed is locked');
    await expect(page.getByRole('button', { name: 'Roll another seed' })).toBeDisabled();
    expect(await textOf(page)).toBe(rolled);
    await page.getByRole('button', { name: /^seed 7/ }).click();
    await page.getByRole('button', { name: 'Unlock and use 7' }).click();
    expect(await textOf(page)).toContain('rs(7)');
    await expect(page.getByRole('checkbox', { name: 'Lock' })).not.toBeChecked();
});

test('the shelf comes back with the piece from the history', async ({ playground: page }) => {
    await load(page, SCORE);
    await page.getByRole('tab', { name: 'Seeds' }).click();
    await page.getByRole('button', { name: 'Keep' }).click();
    await load(page, SCORE + '; another\n');
    await expect(page.locator('.kept-seed')).toHaveCount(0);
    await page.getByRole('button', { name: 'More', exact: true }).click();
    await page.getByRole('menuitem', { name: 'History' }).click();
    await page.getByRole('button', { name: 'Open', exact: true }).first().click();
    await expect(page.locator('.kept-seed')).toHaveCount(1);
});

test('what is mended in another file is undone there', async ({ playground: page }) => {
    const part = SCORE.replace('c5', 'bb4');
    await load(page, { 'whole.vorn': '#include |part.inc|\n', 'part.inc': part });
    await page.locator('.problem .word-button').first().click();
    await expect.poll(() => textOf(page, 'part.inc')).toContain('bf4');
    await page.getByRole('tab', { name: 'part.inc' }).click();
    await page.locator('.cm-content').focus();
    await page.keyboard.press('Control+z');
    await expect.poll(() => textOf(page, 'part.inc')).toBe(part);
});

test('what a slider was drawn to is undone at once', async ({ playground: page }) => {
    await load(page, `#const X 4 ; 1..20\n${SCORE}`);
    await page.getByRole('tab', { name: 'Sliders' }).click();
    const slider = page.getByRole('slider', { name: 'X' });
    const box = await slider.boundingBox();
    if (!box) throw new Error('The slider is not shown.');
    const moveTo = async (part: number): Promise<void> => {
        await page.mouse.move(box.x + part * box.width, box.y + box.height / 2);
        await page.evaluate(() => window.vornPlayground?.drawn());
    };
    const draw = async (from: number, ...through: number[]): Promise<void> => {
        await moveTo(from);
        await page.mouse.down();
        for (const part of through) await moveTo(part);
        await page.mouse.up();
    };
    await draw(0.2, 0.4, 0.6, 0.8);
    await draw(0.8, 0.6, 0.4);
    const value = async (): Promise<string | undefined> => /X (\d+)/.exec((await textOf(page)) ?? '')?.[1];
    await expect.poll(value).toBe('9');
    await page.locator('.cm-content').focus();
    await page.keyboard.press('Control+z');
    await expect.poll(value).toBe('16');
    await page.keyboard.press('Control+z');
    await expect.poll(value).toBe('4');
});

test('a slider writes its value into the score', async ({ playground: page }) => {
    await load(page, `#const COUNT 4 ; 1..20\n${SCORE.replace('0, 4 {', '0, ~COUNT {')}`);
    await page.getByRole('tab', { name: 'Sliders' }).click();
    await page.getByRole('slider', { name: 'COUNT' }).focus();
    for (let press = 0; press < 3; press++) await page.keyboard.press('ArrowRight');
    await expect.poll(() => textOf(page)).toContain('#const COUNT 7 ;');
    expect(await facts(page)).toMatchObject({ status: 0, eventCount: 14 });
});

test('an example of the manual is tried, and given back', async ({ playground: page }) => {
    await load(page, SCORE);
    await page.getByRole('button', { name: 'Manual' }).click();
    await page.getByRole('button', { name: 'Try it' }).first().click();
    await expect.poll(() => state(page).then((now) => now.title)).toBe('From the manual');
    expect((await facts(page)).status).toBe(0);
    await page.getByRole('button', { name: 'Go back' }).click();
    await expect.poll(() => textOf(page)).toBe(SCORE);
});

test('a recipe is tried with the files that it names', async ({ playground: page }) => {
    await page.getByRole('button', { name: 'Manual' }).click();
    await page.getByRole('combobox', { name: 'Page of the manual' }).selectOption('recipes.md');
    const parts = page.locator('.manual-text pre', { hasText: '#include |part-melody.vorn|' });
    await parts.locator('xpath=following-sibling::*[1]').click();
    await expect(page.getByRole('tab', { name: 'part-bass.vorn' })).toBeVisible();
    expect((await facts(page)).status).toBe(0);
});

test('a first visit has a piece that can be played', async ({ page }) => {
    await open(page);
    expect((await facts(page)).eventCount).toBeGreaterThan(100);
});

test('a lock is kept with its piece, and locks no other', async ({ playground: page }) => {
    const locked = page.getByRole('checkbox', { name: 'Lock' });
    const seeds = (): Promise<void> => page.getByRole('tab', { name: 'Seeds' }).click();
    await load(page, SCORE);
    await seeds();
    await locked.check();
    await page.waitForTimeout(500);
    await page.reload();
    await ready(page);
    await seeds();
    await expect(locked).toBeChecked();
    await load(page, SCORE + '; another\n');
    await expect(locked).not.toBeChecked();
});
