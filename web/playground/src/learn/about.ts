// What the page is, what it is made of, and under which licences.
import { make } from '../ui/dom';
import { openDialog } from '../ui/dialog';

interface Licence {
    readonly name: string;
    readonly version: string;
    readonly licence: string;
    readonly text: string;
}

const WORDS = [
    'Vorn writes scores for computer music from a short description. This page is Vorn in the browser: the same engine, the same bytes, the same messages. Csound, which plays them, is fetched when the rest of the page is there.',
    'Nothing you write leaves this browser. There are no cookies, no tracking and no requests to other hosts; once loaded, the page works without a network. What you write is kept in this browser, with its history.',
    'Vorn is free under the MIT licence. The page stands on the work of others:',
];

const KEYS: readonly (readonly [string, string])[] = [
    ['Ctrl+Enter', 'play or stop'],
    ['Ctrl+Shift+Enter', 'play from the block at the cursor'],
    ['Ctrl+S', 'share by address'],
    ['Ctrl+.', 'cure the mistake nearest to the cursor, where the cure is certain'],
    ['Ctrl+F', 'find and replace'],
    ['Ctrl+Shift+M', 'go to the list of mistakes'],
    ['F8', 'go to the next mistake'],
    ['Escape, then Tab', 'leave the editor'],
    ['arrows, +, −, 0', 'in the picture: move, zoom, show all'],
    ['. and ,', 'in the picture: the next event, the one before; Enter leads to its block'],
];

function licenceItem({ name, version, licence, text }: Licence): HTMLElement {
    const title = [name, version].filter((word) => word !== '').join(' ');
    const whole = make('pre', { tabindex: 0, 'aria-label': `Licence of ${name}` }, text);
    return make('li', {}, make('details', {}, make('summary', {}, `${title}, ${licence}`), whole));
}

// Csound may be exchanged for another build of it, as its licence wants: where it lies and where it comes from.
const csoundWords = (): HTMLElement =>
    make(
        'p',
        {},
        'Csound is a file of its own in the folder of this page, csound.wasm.z, as the package @csound/browser brings it; its sources are at github.com/csound/csound. Its licence, ',
        make('a', { href: './licences/LGPL-2.1.txt', target: '_blank' }, 'LGPL 2.1'),
        ', is here in full.',
    );

export async function openAbout(): Promise<void> {
    const licences = (await import('../../generated/licences.json')).default as Licence[];
    const list = make('ul', { class: 'licences' }, ...licences.map(licenceItem));
    const words = WORDS.map((text) => make('p', {}, text));
    openDialog('About this page', false, ...words.slice(0, -1), csoundWords(), ...words.slice(-1), list);
}

export function openKeys(): void {
    const rows = KEYS.flatMap(([key, words]) => [
        make('dt', {}, make('kbd', {}, key)),
        make('dd', {}, words),
    ]);
    openDialog('Keys', true, make('dl', { class: 'keys' }, ...rows));
}
