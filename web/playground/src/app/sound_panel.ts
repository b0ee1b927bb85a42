// The panel of sound: by what it is played, and what Csound says.
import { findPorts, hasMidi, type Port } from '../sound/midi_ports';
import { BUILT_IN, ORCHESTRA } from '../sound/sounding';
import type { AppStore } from '../state/app_state';
import { orchestraOf } from '../state/piece';
import { make } from '../ui/dom';
import { drawing, type PanelView } from './panels';

const ESCAPES = new RegExp(String.raw`\u001b\[[0-9;]*m`, 'g');

function outputChoice(store: AppStore, ports: readonly Port[]): HTMLOptionElement[] {
    const orchestra = orchestraOf(store.state.piece);
    const choices = [
        {
            id: ORCHESTRA,
            name: orchestra ? `Csound with ${orchestra.name}` : 'Csound with an orchestra made for it',
        },
        ...(orchestra ? [{ id: BUILT_IN, name: 'Csound with an orchestra made for it' }] : []),
        ...ports.map(({ id, name }) => ({ id, name: `MIDI: ${name}` })),
    ];
    return choices.map(({ id, name }) =>
        make('option', { value: id, selected: id === store.state.output }, name),
    );
}

export function soundPanel(store: AppStore): PanelView {
    let ports: readonly Port[] = [];
    return {
        name: 'Sound',
        show(place) {
            const choice = make('select', { 'aria-label': 'Played by' });
            const trouble = make('p', { class: 'trouble', role: 'alert' });
            const text = make('pre', { class: 'csound-text', 'aria-label': 'What Csound says' });
            const draw = (): void => {
                choice.replaceChildren(...outputChoice(store, ports));
                trouble.textContent = store.state.soundTrouble;
                trouble.hidden = store.state.soundTrouble === '';
                const said = store.state.soundText.replace(ESCAPES, '').trim();
                text.textContent = said === '' ? 'Csound has not played yet.' : said;
            };
            const ask = async (): Promise<void> => {
                ports = await findPorts().catch(() => []);
                find.textContent = ports.length > 0 ? 'Look again' : 'No MIDI ports found';
                draw();
            };
            const find = make(
                'button',
                { type: 'button', class: 'word-button outlined', onclick: () => void ask() },
                'Find MIDI ports',
            );
            find.hidden = !hasMidi();
            choice.addEventListener('change', () =>
                store.act('choose output', () => ({ output: choice.value })),
            );
            place.append(
                make('div', { class: 'panel-row' }, make('label', {}, 'Played by', choice), find),
                trouble,
                text,
            );
            return drawing(
                store,
                [(s) => s.soundText, (s) => s.soundTrouble, (s) => s.piece, (s) => s.output],
                draw,
            );
        },
    };
}
