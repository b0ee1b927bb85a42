// The picture on the page: it follows results, cursor and sound, and leads back to the text.
import type { Editor } from '../editor/editor';
import { eventLines, eventTitle, spokenEvent } from '../picture/event_text';
import { listenToHands } from '../picture/gestures';
import type { Hit } from '../picture/hit';
import { Picture } from '../picture/picture';
import { colorOf, hex } from '../picture/tones';
import { onThemeChange, tonesNow } from '../picture/theme';
import type { Sounding } from '../sound/sounding';
import type { AppState, AppStore } from '../state/app_state';
import { counted, find, make, redraw } from '../ui/dom';
import { iconButton } from '../ui/icons';
import { speak } from '../ui/notices';

function showLabel(label: HTMLElement, stage: HTMLElement, hit: Hit | undefined, x: number, y: number): void {
    label.hidden = hit === undefined || x < 0;
    if (!hit) return;
    if (x < 0) {
        speak(spokenEvent(hit.of, hit.row));
        return;
    }
    const rows = eventLines(hit.of, hit.row).flatMap(({ name, value }) => [
        make('dt', {}, name),
        make('dd', {}, value),
    ]);
    label.replaceChildren(make('b', {}, eventTitle(hit.of)), make('dl', {}, ...rows));
    const left = Math.min(
        stage.offsetLeft + x + 16,
        stage.offsetLeft + stage.clientWidth - label.offsetWidth - 8,
    );
    const below = stage.offsetTop + y + 18;
    const isLow = y + label.offsetHeight + 24 > stage.clientHeight;
    label.style.left = `${Math.max(8, left)}px`;
    label.style.top = `${Math.max(4, isLow ? below - label.offsetHeight - 32 : below)}px`;
}

// The block whose text holds the cursor, by its index in the result; -1: none.
function blockAtCursor({ cursor, goodResult }: Readonly<AppState>): number {
    const blocks = goodResult?.blocks ?? [];
    return blocks.findIndex(
        ({ header, end }) =>
            header?.file === cursor.file &&
            cursor.offset >= header.from &&
            cursor.offset <= (end?.to ?? header.to),
    );
}

function chooseEvent(editor: Editor, { of }: Hit): void {
    const { header } = of.block;
    if (header) editor.reveal(header.file, header.from, header.to);
}

const MOST_CHIPS = 60; // of instruments that can be hidden

function showLegend(store: AppStore, picture: Picture): void {
    const legend = find('.legend', HTMLElement);
    const toggle = (number: number): void =>
        store.act('hide instrument', ({ hiddenInstruments }) => {
            const hidden = new Set(hiddenInstruments);
            if (!hidden.delete(number)) hidden.add(number);
            return { hiddenInstruments: hidden };
        });
    const draw = (): void => {
        const instruments = picture.scene?.instruments ?? [];
        const chips: Node[] = instruments.slice(0, MOST_CHIPS).map(({ number, rank, events }) => {
            const isShown = !store.state.hiddenInstruments.has(number);
            const title = `Instrument ${number}: ${counted(events, 'event')}. Shows or hides it.`;
            const chip = make(
                'button',
                {
                    type: 'button',
                    class: 'chip',
                    'aria-pressed': String(isShown),
                    title,
                    onclick: () => toggle(number),
                },
                `i${number}`,
            );
            chip.style.setProperty('--data', hex(colorOf(tonesNow(), rank)));
            return chip;
        });
        const more = instruments.length - MOST_CHIPS;
        if (more > 0) chips.push(make('span', { class: 'muted' }, `and ${more.toLocaleString('en')} more`));
        redraw(legend, chips);
    };
    store.watch((state) => state.goodResult, draw);
    store.watch((state) => state.hiddenInstruments, draw);
    onThemeChange(draw);
}

function showTools(picture: Picture): void {
    const zoom = make(
        'div',
        { class: 'zoom', role: 'group', 'aria-label': 'Zoom' },
        iconButton('minus', 'Show more time (minus)', () => picture.zoom(1 / 1.5)),
        iconButton('plus', 'Show less time (plus)', () => picture.zoom(1.5)),
        iconButton('fit', 'Show all (0)', () => picture.fit()),
    );
    const legend = make('div', { class: 'legend', role: 'group', 'aria-label': 'Instruments' });
    find('#picture-tools', HTMLElement).append(legend, zoom);
}

const EMPTY = 'Nothing to see yet: write a block, or choose an example.';
const WRONG = 'The picture comes when the first mistake is mended.';

function showEmptiness(store: AppStore): void {
    const place = find('#picture-empty', HTMLElement);
    store.watch(
        ({ goodResult, result }) => {
            if (!result || (goodResult?.eventCount ?? 0) > 0) return '';
            return result.status === 0 ? EMPTY : WRONG;
        },
        (words) => {
            place.hidden = words === '';
            place.textContent = words;
        },
    );
}

// The moving line, for as long as it sounds; the store is told ten times a second.
function followSound(store: AppStore, picture: Picture, sounding: Sounding): void {
    let last = 0;
    const frame = (now: number): void => {
        if (store.state.sounding !== 'playing') return;
        const { position } = sounding;
        picture.setPosition(position, true);
        if (now - last > 100) {
            last = now;
            store.act('time passes', () => ({ position }));
        }
        requestAnimationFrame(frame);
    };
    store.watch(
        (state) => state.sounding,
        (state) => state === 'playing' && requestAnimationFrame(frame),
    );
    store.watch(
        ({ sounding: now, position }) => (now === 'playing' ? undefined : position),
        (position) => position !== undefined && picture.setPosition(position, false),
    );
}

export interface PictureView {
    readonly picture: Picture;
    // Settles when what is shown now has been drawn.
    drawn(): Promise<void>;
}

export function showPicture(store: AppStore, editor: Editor, sounding: Sounding): PictureView {
    const stage = find('#stage', HTMLElement);
    const label = find('#event-label', HTMLElement);
    let waiting: (() => void)[] = [];
    const picture = new Picture(stage, {
        onChoose: (hit) => chooseEvent(editor, hit),
        onHover: (hit, x, y) => showLabel(label, stage, hit, x, y),
        onSpan: () => (label.hidden = true),
        onDrawn: () => {
            const settled = waiting;
            waiting = [];
            for (const settle of settled) settle();
        },
    });
    showTools(picture);
    listenToHands(picture);
    store.watch(
        (state) => state.goodResult,
        (result) => picture.show(result),
    );
    store.watch(
        (state) => state.pieceNumber,
        () => picture.fit(),
    );
    store.watch(
        (state) => state.hiddenInstruments,
        (hidden) => picture.setHidden(hidden),
    );
    store.watch(blockAtCursor, (block) => picture.choose(block));
    showLegend(store, picture);
    showEmptiness(store);
    followSound(store, picture, sounding);
    const drawn = (): Promise<void> =>
        new Promise((resolve) => {
            waiting.push(resolve);
            picture.redraw();
        });
    return { picture, drawn };
}
