// Short notices at the foot of the page, which go by themselves; one with something to do stays longer, or
// until it is closed.
import { find, make } from './dom';
import { iconButton } from './icons';

const SECONDS = 6;
const SECONDS_TO_ACT = 15;
const SOON = 400; // milliseconds; what is over by then has no progress to tell
const BETWEEN_WORDS = 100;

export interface NoticeAction {
    readonly word: string;
    readonly act: () => void;
    readonly lasts?: boolean;
}

// The same is said once; beside those that last one more stays, the newest.
function makeRoom(place: HTMLElement, text: string): void {
    for (const one of [...place.children]) if (one.querySelector('p')?.textContent === text) one.remove();
    const passing = [...place.children].filter((one) => !one.classList.contains('lasting'));
    for (const one of passing.slice(0, -1)) one.remove();
}

export function notice(text: string, action?: NoticeAction): void {
    const place = find('#notices', HTMLElement);
    const remove = (): void => box.remove();
    const act = (): void => {
        action?.act();
        remove();
    };
    const button =
        action && make('button', { type: 'button', class: 'word-button', onclick: act }, action.word);
    const box = make(
        'div',
        { class: action?.lasts ? 'notice lasting' : action ? 'notice of-piece' : 'notice' },
        make('p', {}, text),
        button,
        iconButton('close', 'Close', remove),
    );
    makeRoom(place, text);
    place.append(box);
    if (!action?.lasts) setTimeout(remove, 1000 * (action ? SECONDS_TO_ACT : SECONDS));
}

// What was to be done belonged to the piece that has gone.
export function closeThoseOfPiece(): void {
    for (const one of find('#notices', HTMLElement).querySelectorAll('.of-piece')) one.remove();
}

export interface Progress {
    // How far it is, from 0 to 1, and in words.
    tell(part: number, words: string): void;
    close(): void;
}

// How far something is that takes its time. A screen reader is told once and can look at the bar.
export function progressNotice(name: string, cancel: () => void): Progress {
    const words = make('p', {}, name);
    const bar = make('progress', { max: 1, value: 0, 'aria-label': `Progress of ${name}` });
    const button = make('button', { type: 'button', class: 'word-button', onclick: cancel }, 'Cancel');
    const text = make('div', { class: 'progress' }, words, bar);
    const box = make('div', { class: 'notice lasting', 'aria-live': 'off' }, text, button);
    const timer = setTimeout(() => {
        find('#notices', HTMLElement).append(box);
        speak(`${name} is on its way.`);
    }, SOON);
    let last = 0;
    return {
        tell(part, now) {
            if (performance.now() - last < BETWEEN_WORDS) return;
            last = performance.now();
            bar.value = Math.min(1, Math.max(0, part));
            words.textContent = now;
        },
        close() {
            clearTimeout(timer);
            box.remove();
        },
    };
}

export function speak(text: string): void {
    find('#spoken', HTMLElement).textContent = text;
}
