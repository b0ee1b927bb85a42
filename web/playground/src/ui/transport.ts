// Play, stop, from the cursor, loop, volume, and the time.
import type { Sounding } from '../sound/sounding';
import { timeText } from '../picture/span';
import type { AppStore } from '../state/app_state';
import { find, make } from './dom';
import { icon, iconButton } from './icons';

// When the block at the cursor begins; 0 where there is none.
export function secondsAtCursor(store: AppStore): number {
    const { cursor, goodResult } = store.state;
    const block = goodResult?.blocks.find(
        ({ header, end }) =>
            header?.file === cursor.file &&
            cursor.offset >= header.from &&
            cursor.offset <= (end?.to ?? Infinity),
    );
    return block?.startSeconds ?? 0;
}

export function togglePlaying(store: AppStore, sounding: Sounding, from = 0): void {
    if (store.state.sounding === 'silent') void sounding.play(from);
    else sounding.stop();
}

function playButton(store: AppStore, sounding: Sounding): HTMLButtonElement {
    const word = make('span', {}, 'Play');
    const button = make(
        'button',
        { type: 'button', class: 'word-button primary', title: 'Play or stop (Ctrl+Enter)' },
        icon('play'),
        word,
    );
    button.addEventListener('click', () => togglePlaying(store, sounding));
    store.watch(
        (state) => state.sounding,
        (now) => {
            button.firstElementChild?.replaceWith(icon(now === 'silent' ? 'play' : 'stop'));
            word.textContent = { silent: 'Play', loading: 'Loading', playing: 'Stop' }[now];
        },
    );
    return button;
}

function loopButton(store: AppStore): HTMLButtonElement {
    const toggle = (): void => store.act('loop', ({ loops }) => ({ loops: !loops }));
    const button = iconButton('loop', 'Play in a loop', toggle, { 'aria-pressed': 'false' });
    store.watch(
        (state) => state.loops,
        (loops) => button.setAttribute('aria-pressed', String(loops)),
    );
    return button;
}

function volumeSlider(store: AppStore): HTMLElement {
    const input = make('input', {
        type: 'range',
        min: 0,
        max: 1,
        step: 0.02,
        value: store.state.volume,
        'aria-label': 'Volume',
    });
    input.addEventListener('input', () => store.act('volume', () => ({ volume: Number(input.value) })));
    return make('div', { class: 'volume' }, icon('sound'), input);
}

function clock(store: AppStore): HTMLElement {
    const now = make('b', {}, timeText(0));
    const whole = make('span', {}, ' / 0:00');
    store.watch(
        (state) => timeText(state.position),
        (text) => (now.textContent = text),
    );
    store.watch(
        (state) => timeText(state.goodResult?.seconds ?? 0),
        (text) => (whole.textContent = ` / ${text}`),
    );
    return make(
        'span',
        { class: 'clock', role: 'timer', 'aria-live': 'off', 'aria-label': 'Time' },
        now,
        whole,
    );
}

export function showTransport(store: AppStore, sounding: Sounding): void {
    const fromCursor = (): void => void sounding.play(secondsAtCursor(store));
    find('#transport', HTMLElement).append(
        playButton(store, sounding),
        iconButton('here', 'Play from the block at the cursor (Ctrl+Shift+Enter)', fromCursor),
        loopButton(store),
        volumeSlider(store),
        clock(store),
    );
}
