// The panel of sound: by what it is played, and what Csound says.
import { findPorts, hasMidi, type Port } from '../sound/midi_ports';
import { withoutMarks } from '../sound/orchestra_mistakes';
import { BUILT_IN, MIDI, ORCHESTRA, playWith, type AppState, type AppStore } from '../state/app_state';
import { orchestraOf, orchestrasOf } from '../state/orchestras';
import { find, make } from '../ui/dom';
import { notice } from '../ui/notices';
import { drawing, type PanelView } from './panels';

const MADE = 'Csound with an orchestra made for it';
const OF = `${ORCHESTRA}:`; // before the name of one

function outputChoice({ state }: AppStore, ports: readonly Port[]): HTMLOptionElement[] {
    const { piece, output } = state;
    const playing = orchestraOf(piece);
    const own = orchestrasOf(piece).map(({ name }) => ({ id: OF + name, name: `Csound with ${name}` }));
    const choices = [
        ...own,
        { id: own.length > 0 ? BUILT_IN : ORCHESTRA, name: MADE },
        { id: MIDI, name: 'MIDI: an instrument of this page' },
        ...ports.map(({ id, name }) => ({ id, name: `MIDI: ${name}` })),
    ];
    const now = output === ORCHESTRA && playing ? OF + playing.name : output;
    return choices.map(({ id, name }) => make('option', { value: id, selected: id === now }, name));
}

function choose(store: AppStore, id: string): void {
    if (id.startsWith(OF)) playWith(store, id.slice(OF.length));
    else store.act('choose output', () => ({ output: id }));
}

class SoundView {
    private readonly choice = make('select', { 'aria-label': 'Played by' });
    private readonly find = make(
        'button',
        { type: 'button', class: 'word-button outlined' },
        'Find MIDI ports',
    );
    private readonly trouble = make('p', { class: 'trouble', role: 'alert' });
    private readonly text = make('pre', {
        class: 'csound-text',
        tabindex: 0,
        'aria-label': 'What Csound says',
    });

    constructor(
        private readonly store: AppStore,
        private readonly found: { ports: readonly Port[] }, // outlasts the view
        place: HTMLElement,
    ) {
        this.find.hidden = !hasMidi();
        this.find.addEventListener('click', () => void this.look());
        this.choice.addEventListener('change', () => choose(store, this.choice.value));
        const row = make(
            'div',
            { class: 'panel-row' },
            make('label', {}, 'Played by', this.choice),
            this.find,
        );
        place.append(row, this.trouble, this.text);
    }

    private async look(): Promise<void> {
        this.found.ports = await findPorts().catch(() => []);
        this.find.textContent = this.found.ports.length > 0 ? 'Look again' : 'No MIDI ports found';
        this.draw();
    }

    draw(): void {
        const { soundTrouble, soundText } = this.store.state;
        this.choice.replaceChildren(...outputChoice(this.store, this.found.ports));
        this.trouble.textContent = soundTrouble;
        this.trouble.hidden = soundTrouble === '';
        const said = withoutMarks(soundText).trim();
        this.text.textContent = said === '' ? 'Csound has not played yet.' : said;
    }
}

// Where a narrow screen shows something else, what keeps it from sounding is told all the same.
function tellTrouble(store: AppStore): void {
    store.watch(
        (state) => state.soundTrouble,
        (trouble) => {
            const isShown = find('#panel', HTMLElement).offsetParent !== null;
            if (trouble !== '' && !isShown) notice(trouble);
        },
    );
}

export function soundPanel(store: AppStore): PanelView {
    const found = { ports: [] };
    tellTrouble(store);
    return {
        name: 'Sound',
        show(place) {
            const view = new SoundView(store, found, place);
            const slices = [
                (state: AppState) => state.soundText,
                (state: AppState) => state.soundTrouble,
                (state: AppState) => state.piece,
                (state: AppState) => state.output,
            ];
            return drawing(store, slices, () => view.draw());
        },
    };
}
