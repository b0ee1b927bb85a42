import { createRequire } from 'node:module';
import { readFileSync } from 'node:fs';
import { expect, facts, inkOf, load, open, SCORE, test } from './page';
import type { Page } from '@playwright/test';

const AXE = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');

interface Violation {
    id: string;
    nodes: { target: string[]; failureSummary?: string }[];
}

// What lies on a gradient is not looked at by axe: one colour of it stands for all.
const withoutGradients = (page: Page): Promise<void> =>
    page.evaluate(() => {
        for (const element of document.querySelectorAll<HTMLElement>('body *')) {
            const { backgroundImage } = getComputedStyle(element);
            const color = /gradient\(.*?(rgba?\([^)]*\))/.exec(backgroundImage)?.[1];
            if (color) Object.assign(element.style, { backgroundImage: 'none', backgroundColor: color });
        }
    });

async function violations(page: Page): Promise<string[]> {
    await withoutGradients(page);
    await page.evaluate(AXE);
    const found = await page.evaluate(async () => {
        const { axe } = window as unknown as { axe: { run(): Promise<{ violations: Violation[] }> } };
        return (await axe.run()).violations;
    });
    return found.map(({ id, nodes }) => `${id}: ${nodes.map((node) => node.target.join(' ')).join(', ')}`);
}

for (const colorScheme of ['light', 'dark'] as const) {
    test(`nobody is kept out, ${colorScheme}`, async ({ playground: page }) => {
        await page.emulateMedia({ colorScheme, reducedMotion: 'reduce' });
        expect(await violations(page)).toEqual([]);
        await load(page, SCORE.replace('c5', 'bb4'));
        await expect(page.locator('.problem')).toHaveCount(1);
        expect(await violations(page)).toEqual([]);
        for (const tab of ['Seeds', 'Sliders', 'Sound']) {
            await page.getByRole('tab', { name: tab }).click();
            expect(await violations(page)).toEqual([]);
        }
        await page.getByRole('button', { name: 'Manual' }).click();
        await expect(page.locator('.manual-text h1')).toBeVisible();
        expect(await violations(page)).toEqual([]);
        for (const button of ['Examples', 'Share']) {
            await page.getByRole('button', { name: button }).click();
            await expect(page.locator('dialog')).toBeVisible();
            expect(await violations(page)).toEqual([]);
            await page.keyboard.press('Escape');
        }
        await page.getByRole('button', { name: 'Download' }).click();
        expect(await violations(page)).toEqual([]);
    });
}

for (const colorScheme of ['light', 'dark'] as const) {
    test(`nor from a page of the manual, ${colorScheme}`, async ({ playground: page }) => {
        test.setTimeout(180_000);
        await page.emulateMedia({ colorScheme, reducedMotion: 'reduce' });
        await page.getByRole('button', { name: 'Manual' }).click();
        await expect(page.locator('.manual-text h1')).toBeVisible();
        const choice = page.getByRole('combobox', { name: 'Page of the manual' });
        const found: Record<string, string[]> = {};
        const titles = await choice.locator('option').allTextContents();
        expect(titles.length).toBeGreaterThan(15);
        for (const title of titles) {
            await choice.selectOption({ label: title });
            const wrong = await violations(page);
            if (wrong.length > 0) found[title] = wrong;
        }
        expect(found).toEqual({});
    });
}

for (const colorScheme of ['light', 'dark'] as const) {
    test(`nor from what the editor opens, ${colorScheme}`, async ({ playground: page }) => {
        await page.emulateMedia({ colorScheme, reducedMotion: 'reduce' });
        await load(page, SCORE.replace('c5', 'bb4'));
        const text = page.locator('.cm-content');
        await text.click();
        await page.keyboard.press('Control+f');
        await expect(page.getByRole('textbox', { name: 'Find' })).toBeFocused();
        await page.keyboard.type('4');
        await expect(page.locator('.cm-searchMatch').first()).toBeVisible();
        expect(await violations(page)).toEqual([]);
        await page.keyboard.press('Escape');
        await page.keyboard.press('Control+Alt+g');
        await expect(page.locator('.cm-panel')).toBeVisible();
        expect(await violations(page)).toEqual([]);
        await page.keyboard.press('Escape');
        await page.keyboard.press('Control+Shift+m');
        await expect(page.locator('.problem-text')).toBeFocused();
        await expect(page.locator('.cm-panel')).toHaveCount(0);
        expect(await violations(page)).toEqual([]);
        await page.keyboard.press('Enter');
        await expect(text).toBeFocused();
    });
}

test('the page is dark where the system is', async ({ playground: page }) => {
    const color = (): Promise<string> => page.evaluate(() => getComputedStyle(document.body).backgroundColor);
    await page.emulateMedia({ colorScheme: 'light' });
    expect(await color()).toBe('rgb(244, 241, 236)');
    await page.emulateMedia({ colorScheme: 'dark' });
    expect(await color()).toBe('rgb(25, 26, 29)');
});

test('360 pixels are enough', async ({ playground: page }) => {
    await page.setViewportSize({ width: 360, height: 700 });
    await load(page, SCORE);
    const overflow = (): Promise<number> =>
        page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
    for (const view of ['Text', 'Picture', 'Panels']) {
        await page.getByRole('button', { name: view, exact: true }).click();
        expect(await overflow()).toBeLessThanOrEqual(0);
    }
    await expect(page.getByRole('slider', { name: 'Volume' })).toBeVisible();
    await page.getByRole('button', { name: 'Picture', exact: true }).click();
    await page.evaluate(() => window.vornPlayground?.drawn());
    expect(await inkOf(page)).toBeGreaterThan(200);
    expect(await violations(page)).toEqual([]);
});

test('on 360 pixels the manual makes way for what is asked for', async ({ playground: page }) => {
    await page.setViewportSize({ width: 360, height: 700 });
    const manual = page.getByRole('complementary', { name: 'Manual' });
    await page.getByRole('button', { name: 'Manual' }).click();
    await page.getByRole('button', { name: 'Picture', exact: true }).click();
    await expect(manual).toBeHidden();
    await expect(page.locator('#stage')).toBeVisible();
    await page.getByRole('button', { name: 'Manual' }).click();
    await page.getByRole('button', { name: 'Try it' }).first().click();
    await expect(manual).toBeHidden();
    await expect(page.locator('.cm-content')).toContainText('One note');
});

test('everything is reached by keys', async ({ playground: page }) => {
    await load(page, SCORE);
    const reached = new Set<string>();
    await page.evaluate(() => (document.activeElement as HTMLElement | null)?.blur());
    for (let press = 0; press < 60; press++) {
        await page.keyboard.press('Tab');
        const name = await page.evaluate(() => {
            const element = document.activeElement;
            return element?.getAttribute('aria-label') ?? element?.textContent?.trim() ?? '';
        });
        reached.add(name.split(' ')[0] ?? '');
        // The editor keeps Tab for itself until Escape is pressed.
        if (name.startsWith('Score')) await page.keyboard.press('Escape');
    }
    for (const name of [
        'Skip',
        'Play',
        'Volume',
        'Examples',
        'Share',
        'Download',
        'Score',
        'Picture',
        'Values',
        'Field',
    ]) {
        expect([...reached]).toContain(name);
    }
});

test('who comes into the editor by keys is told how to leave it, and who clicks is not', async ({
    playground: page,
}) => {
    const text = page.locator('.cm-content');
    const hint = page.locator('.way-out');
    await expect(text).toHaveAccessibleDescription(/Escape, then Tab leaves the editor/);
    await text.click();
    await page.keyboard.press('Tab');
    await expect(hint).toBeHidden();
    await page.keyboard.press('Control+z');
    await page.getByRole('button', { name: 'Add a file or take one out' }).focus();
    await page.keyboard.press('Tab');
    await expect(text).toBeFocused();
    await expect(hint).toBeVisible();
    expect(await violations(page)).toEqual([]);
    await page.keyboard.press('Escape');
    await page.keyboard.press('Tab');
    await expect(text).not.toBeFocused();
    await expect(hint).toBeHidden();
    await page.keyboard.press('Shift+Tab');
    await expect(text).toBeFocused();
    await expect(hint).toBeVisible();
    await page.keyboard.press('ArrowDown');
    await expect(hint).toBeHidden();
});

test('a screen reader is told what stands where', async ({ playground: page }) => {
    await load(page, SCORE);
    await expect(page.locator('body')).toMatchAriaSnapshot(`
      - banner:
        - heading "Vorn" [level=1]
        - textbox "Title of the piece"
        - group "Sound":
          - button "Play"
          - button "Play from the block at the cursor (Ctrl+Shift+Enter)"
          - button "Play in a loop"
          - slider "Volume"
          - timer "Time"
        - group "Piece":
          - button "Roll another seed"
          - button "Examples"
          - button "Manual"
          - button "Share"
          - button "Download"
          - button "More"
      - main:
        - region "Text":
          - tablist "Files":
            - tab "piece.vorn" [selected]
          - textbox "Score piece.vorn"
          - region "Mistakes and advice":
            - paragraph: Nothing to mend.
        - separator "Width of the text"
        - region "Picture":
          - group "Instruments":
            - button "i1" [pressed]
          - group "Zoom"
          - application "Picture of the score"
          - region "Panels":
            - tablist "Panels":
              - tab "Values" [selected]
            - tabpanel "Values":
              - combobox "Field"
              - img /Histogram of P5/
      - contentinfo
      - status
    `);
    await load(page, SCORE.replace('c5', 'bb4'));
    await expect(page.locator('#spoken')).toContainText(/^Line 4: .*bb4/);
});

test('who works by keys stays where something is drawn anew', async ({ playground: page }) => {
    await load(page, SCORE + SCORE.replace('i1', 'i2'));
    const chip = page.getByRole('button', { name: 'i2' });
    await chip.press('Enter');
    await expect(chip).toHaveAttribute('aria-pressed', 'false');
    await expect(chip).toBeFocused();
    await page.getByRole('tab', { name: 'Seeds' }).click();
    const keep = page.getByRole('button', { name: 'Keep' });
    await keep.click();
    await page.getByRole('button', { name: 'Roll', exact: true }).click();
    const kept = page.getByRole('button', { name: 'seed 1', exact: true });
    await expect(kept).toHaveAttribute('aria-pressed', 'false');
    await kept.press('Enter');
    await expect(kept).toHaveAttribute('aria-pressed', 'true');
    await expect(kept).toBeFocused();
    await page.getByRole('button', { name: 'Take seed 1 off the shelf' }).press('Enter');
    await expect(kept).toHaveCount(0);
    await expect(keep).toBeFocused();
});

test('the first link leads into the score', async ({ playground: page }) => {
    await page.setViewportSize({ width: 360, height: 700 });
    await page.getByRole('button', { name: 'Picture', exact: true }).click();
    await page.getByRole('link', { name: 'Skip to the score' }).press('Enter');
    await expect(page.locator('.cm-content')).toBeFocused();
});

test('on 360 pixels, too, it is told what keeps a piece from sounding', async ({ playground: page }) => {
    await page.setViewportSize({ width: 360, height: 700 });
    await load(page, SCORE.replace('p2', 'p9'));
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await expect(page.locator('.notice')).toContainText('The score has a mistake');
});

test('a menu closes when it is left by Tab', async ({ playground: page }) => {
    await page.getByRole('button', { name: 'Download' }).focus();
    await page.keyboard.press('Enter');
    await expect(page.getByRole('menuitem').first()).toBeFocused();
    await page.keyboard.press('End');
    await expect(page.getByRole('menuitem').last()).toBeFocused();
    await page.keyboard.press('Tab');
    await expect(page.getByRole('menu')).toHaveCount(0);
    await expect(page.getByRole('button', { name: 'More', exact: true })).toBeFocused();
});

test('every example is computed, drawn and played', async ({ playground: page }) => {
    test.setTimeout(150_000);
    await page.getByRole('button', { name: 'Examples' }).click();
    await expect(page.locator('.card').first()).toBeVisible(); // the examples are loaded when they are asked for
    const count = await page.locator('.card').count();
    expect(count).toBeGreaterThanOrEqual(10);
    await page.keyboard.press('Escape');
    for (let index = 0; index < count; index++) {
        await page.getByRole('button', { name: 'Examples' }).click();
        const name = await page.locator('.card-name').nth(index).textContent();
        await page.locator('.card').nth(index).click();
        expect(await facts(page), name ?? '').toMatchObject({ status: 0 });
        expect(await inkOf(page), name ?? '').toBeGreaterThan(200);
        await page.evaluate(() => window.vornPlayground?.play());
        const peak = (): Promise<number> =>
            page.evaluate(() => Math.max(...(window.vornPlayground?.heard().samples ?? [0])));
        await expect.poll(peak, { timeout: 15000, message: `${name} sounds` }).toBeGreaterThan(0.003);
        await page.evaluate(() => window.vornPlayground?.stop());
    }
});

test('a score in any page, by one script', async ({ page }) => {
    const text = `<!doctype html><meta charset="utf-8"><title>x</title><script type="module" src="./vorn-score.js"></script><vorn-score>${SCORE}</vorn-score>`;
    await page.route('**/some/path/embedded.html', (route) =>
        route.fulfill({ body: text, contentType: 'text/html' }),
    );
    await page.goto('./embedded.html');
    await expect(page.locator('vorn-score')).toContainText('8 events');
    await page.locator('vorn-score').getByRole('button', { name: 'Play' }).click();
    await expect(page.locator('vorn-score').getByRole('button', { name: 'Stop' })).toBeVisible();
});

test('a score in a page falls silent when it becomes another one', async ({ playground: page, baseURL }) => {
    await page.goto(new URL('documents/tutorial/03-a-rhythm.html', baseURL).href);
    const score = page.locator('vorn-score').first();
    const words = async (): Promise<string> => (await score.locator('.words').textContent()) ?? '';
    await expect.poll(words).toMatch(/[0-9]+ events/);
    const before = await words();
    await score.getByRole('button', { name: 'Play' }).click();
    await expect(score.getByRole('button', { name: 'Stop' })).toBeVisible();
    await score.evaluate((element, text) => element.setAttribute('src', `data:text/plain,${text}`), SCORE);
    await expect(score.getByRole('button', { name: 'Play' })).toBeVisible();
    await expect.poll(words).toMatch(/^8 events/);
    expect(before).not.toMatch(/^8 events/);
    await score.evaluate((element) => element.setAttribute('src', 'data:text/plain,nonsense'));
    await expect.poll(words).toContain('Line 1');
    await expect(score.getByRole('button', { name: 'Play' })).toBeDisabled();
});

test('the documents have their scores to be heard', async ({ playground: page }) => {
    await page.goto('./documents/tutorial/03-a-rhythm.html');
    const score = page.locator('vorn-score');
    await expect(score).toContainText(/[0-9]+ events, 0:/);
    await score.getByRole('button', { name: 'Play' }).click();
    await expect(score.getByRole('button', { name: 'Stop' })).toBeVisible();
    for (const colorScheme of ['light', 'dark'] as const) {
        await page.emulateMedia({ colorScheme });
        expect(await violations(page)).toEqual([]);
    }
});

test('the page has begun within a moment', async ({ page }) => {
    await open(page);
    await open(page);
    const begun = await page.evaluate(() => performance.now());
    console.log(`      begun, computed and drawn after ${begun.toFixed(0)} ms`);
});
