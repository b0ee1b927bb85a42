// Which tones hold now: those that the page was asked for, or those of the reader's system.
import { DARK, LIGHT, type Tones } from './tones';

const HALF = (3 * 255) / 2;

const system = (): MediaQueryList => matchMedia('(prefers-color-scheme: dark)');

export const isDark = (): boolean => {
    const asked = document.documentElement.dataset['theme'];
    return asked ? asked === 'dark' : system().matches;
};

export const tonesNow = (): Tones => (isDark() ? DARK : LIGHT);

// Those for what stands in `place`: its writing is dark on light, or light on dark.
export function tonesOf(place: HTMLElement): Tones {
    const [red = 0, green = 0, blue = 0] = getComputedStyle(place).color.match(/\d+/g)?.map(Number) ?? [];
    return red + green + blue > HALF ? DARK : LIGHT;
}

export function onThemeChange(listener: () => void): () => void {
    const ofSystem = system();
    const ofPage = new MutationObserver(listener);
    ofSystem.addEventListener('change', listener);
    ofPage.observe(document.documentElement, { attributeFilter: ['data-theme'] });
    return () => {
        ofSystem.removeEventListener('change', listener);
        ofPage.disconnect();
    };
}
