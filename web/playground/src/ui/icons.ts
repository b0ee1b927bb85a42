// Icons, drawn with a pencil of one width on a field of 20 by 20.
import { make, type Properties } from './dom';

const SVG = 'http://www.w3.org/2000/svg';

const PATHS = {
    play: 'M6.5 4.2v11.6L15.5 10z',
    stop: 'M5.5 5.5h9v9h-9z',
    loop: 'M4.5 9V8a3 3 0 0 1 3-3h8M13 2.500 15.500 5 13 7.500M15.500 11v1a3 3 0 0 1-3 3h-8M7 17.500 4.500 15 7 12.500',
    die: 'M5.500 3.500h9a2 2 0 0 1 2 2v9a2 2 0 0 1-2 2h-9a2 2 0 0 1-2-2v-9a2 2 0 0 1 2-2zM7.200 7.200h.01M12.800 7.200h.01M10 10h.01M7.200 12.800h.01M12.800 12.800h.01',
    share: 'M10 12.500V3M6.500 6 10 2.800 13.500 6M5.500 9H4v8h12V9h-1.500',
    download: 'M10 3v9.500M6.500 9.200 10 12.500l3.500-3.300M4 13.500V17h12v-3.500',
    open: 'M3 15.500v-11h5l1.500 2H17v9z',
    gallery: 'M3.500 3.500H9V9H3.500zM11 3.500h5.500V9H11zM3.500 11H9v5.500H3.500zM11 11h5.500v5.500H11z',
    book: 'M10 5.200C8.500 4.200 6.500 3.800 3.500 3.800v11c3 0 5 .4 6.500 1.400 1.500-1 3.500-1.400 6.500-1.400v-11c-3 0-5 .4-6.500 1.400zm0 0v11',
    history: 'M4 10.500a6 6 0 1 0 1.800-4.800L4 7.500M4 4v3.500h3.500M10 7v3.300l2.300 1.500',
    more: 'M4.500 10h.01M10 10h.01M15.500 10h.01',
    close: 'M5 5l10 10M15 5 5 15',
    plus: 'M10 4.500v11M4.500 10h11',
    minus: 'M4.500 10h11',
    fit: 'M3.500 7V3.500H7M13 3.500h3.500V7M16.500 13v3.500H13M7 16.500H3.500V13',
    sound: 'M3.500 8v4H6l3.500 3V5L6 8zM12.500 7.500a3.500 3.500 0 0 1 0 5M14.500 5.300a6.500 6.500 0 0 1 0 9.400',
    theme: 'M10 3.500a6.500 6.500 0 1 0 0 13 6.500 6.500 0 0 0 0-13zm0 0v13m2.500-12v11m2-9v7',
    heart: 'M10 16S3.500 12.500 3.500 7.800A3.300 3.300 0 0 1 10 6.600a3.300 3.300 0 0 1 6.500 1.200C16.500 12.500 10 16 10 16z',
    here: 'M4.500 4v12M8.500 5v10l7-5z',
} as const;

export type IconName = keyof typeof PATHS;

export function icon(name: IconName): SVGSVGElement {
    const drawing = document.createElementNS(SVG, 'svg');
    drawing.setAttribute('viewBox', '0 0 20 20');
    drawing.setAttribute('class', 'icon');
    drawing.setAttribute('aria-hidden', 'true');
    const path = document.createElementNS(SVG, 'path');
    path.setAttribute('d', PATHS[name]);
    drawing.append(path);
    return drawing;
}

// A button with an icon alone, whose name is read aloud and shown on hover.
export function iconButton(
    name: IconName,
    label: string,
    onclick: () => void,
    extra: Properties = {},
): HTMLButtonElement {
    const properties = { type: 'button', class: 'icon-button', 'aria-label': label, title: label, onclick };
    return make('button', { ...properties, ...extra }, icon(name));
}

// A button with an icon and a word.
export function wordButton(
    name: IconName,
    word: string,
    onclick: () => void,
    extra: Properties = {},
): HTMLButtonElement {
    const properties = { type: 'button', class: 'word-button', onclick };
    return make('button', { ...properties, ...extra }, icon(name), make('span', {}, word));
}
