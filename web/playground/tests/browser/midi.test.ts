import { expect, heard, load, PATIENCE, SINE, test } from './page';
import type { Page } from '@playwright/test';

const FOUR = 'i1 = 4, 0, 4 {\np2 1\np3 .5\np4 no c4 d4 e4 f4\n}\n'; // a note a second

interface Sent {
    readonly bytes: number[];
    readonly due: number; // milliseconds on the page's clock
}

declare global {
    interface Window {
        sent: Sent[];
    }
}

const withPort = (page: Page): Promise<void> =>
    page.addInitScript(() => {
        window.sent = [];
        const send = (bytes: number[], due?: number): void => {
            window.sent.push({ bytes, due: due ?? performance.now() });
        };
        const outputs = new Map([['port-7', { id: 'port-7', name: 'A synthesizer', send }]]);
        Object.defineProperty(navigator, 'requestMIDIAccess', {
            value: () => Promise.resolve({ outputs }),
        });
    });

const sentSoFar = (page: Page): Promise<Sent[]> => page.evaluate(() => window.sent);
const isOn = ({ bytes }: Sent): boolean => (bytes[0] ?? 0) >> 4 === 9 && (bytes[2] ?? 0) > 0;
const isAllOff = ({ bytes }: Sent): boolean => (bytes[0] ?? 0) >> 4 === 11 && bytes[1] === 123;

async function chooseSynthesizer(page: Page): Promise<void> {
    await page.getByRole('tab', { name: 'Sound' }).click();
    await page.getByRole('button', { name: 'Find MIDI ports' }).click();
    await page.getByRole('combobox', { name: 'Played by' }).selectOption({ label: 'MIDI: A synthesizer' });
}

test.beforeEach(({ page }) => withPort(page));

test('a MIDI port is found and gets the notes at their times', async ({ playground: page }) => {
    await load(page, FOUR);
    await chooseSynthesizer(page);
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    const ons = async (): Promise<Sent[]> => (await sentSoFar(page)).filter(isOn);
    await expect.poll(async () => (await ons()).length, { timeout: PATIENCE }).toBe(4);
    const [first, ...others] = await ons();
    expect([first, ...others].map((one) => one?.bytes[1])).toEqual([60, 62, 64, 65]);
    others.forEach(({ due }, index) =>
        expect(Math.abs(due - (first?.due ?? 0) - 1000 * (index + 1))).toBeLessThan(2),
    );
    await expect(page.getByRole('button', { name: 'Play', exact: true })).toBeVisible({ timeout: PATIENCE });
});

test('a MIDI port falls silent at stop, also of notes that were handed over', async ({
    playground: page,
}) => {
    await load(page, FOUR);
    await chooseSynthesizer(page);
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await expect.poll(async () => (await sentSoFar(page)).some(isOn), { timeout: PATIENCE }).toBe(true);
    await page.getByRole('button', { name: 'Stop' }).click();
    const sent = await sentSoFar(page);
    const lastOn = Math.max(...sent.filter(isOn).map(({ due }) => due));
    const channelsAfter = new Set(
        sent.filter((one) => isAllOff(one) && one.due > lastOn).map(({ bytes }) => (bytes[0] ?? 0) & 15),
    );
    expect(channelsAfter.size).toBe(16);
    await page.waitForTimeout(500);
    expect(await sentSoFar(page)).toHaveLength(sent.length);
});

test('a MIDI file is heard on an instrument of the page', async ({ playground: page }) => {
    await load(page, { 'a.vorn': (SINE['sine.vorn'] ?? '').replace('(hz)', '') });
    await page.getByRole('tab', { name: 'Sound' }).click();
    await page.getByRole('combobox', { name: 'Played by' }).selectOption('midi');
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await expect.poll(async () => (await heard(page)).peak, { timeout: PATIENCE }).toBeGreaterThan(0.02);
});
