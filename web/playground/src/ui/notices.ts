// Short notices at the foot of the page, which go by themselves; one with something to do stays longer, or
// until it is closed.
import { find, make } from './dom';
import { iconButton } from './icons';

const SECONDS = 6;
const SECONDS_TO_ACT = 15;

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
        { class: action?.lasts ? 'notice lasting' : 'notice' },
        make('p', {}, text),
        button,
        iconButton('close', 'Close', remove),
    );
    makeRoom(place, text);
    place.append(box);
    if (!action?.lasts) setTimeout(remove, 1000 * (action ? SECONDS_TO_ACT : SECONDS));
}

export function speak(text: string): void {
    find('#spoken', HTMLElement).textContent = text;
}
