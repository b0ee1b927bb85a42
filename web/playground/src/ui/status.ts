// The line at the foot: how many events, how long, how fast.
import type { AppStore } from '../state/app_state';
import { countEvents } from '../picture/scene';
import { timeText } from '../picture/span';
import { seedOf } from '../seeds/seeds';
import { counted, find, make } from './dom';

export function showStatus(store: AppStore): void {
    const place = find('#status', HTMLElement);
    const draw = (): void => {
        const { result, trouble, piece } = store.state;
        const desk = find('#desk', HTMLElement);
        desk.classList.toggle('is-stale', result?.status === 1 || trouble !== '');
        if (!result) return;
        const blocks = result.blocks.filter((block) => !block.isSkipped).length;
        const events = result.blocks.reduce((sum, block) => sum + countEvents(block), 0);
        const facts = [
            counted(events, 'event'),
            counted(blocks, 'block'),
            timeText(result.seconds, 0.1),
            `seed ${seedOf(result)}`,
        ];
        const time = `computed in ${Math.max(1, Math.round(result.milliseconds))} ms`;
        place.replaceChildren(
            ...facts.map((fact) => make('span', {}, fact)),
            make('span', { class: 'far' }, time),
        );
        document.title = `${piece.title} · Vorn playground`;
    };
    store.watch((state) => state.result, draw);
    store.watch((state) => state.trouble, draw);
}
