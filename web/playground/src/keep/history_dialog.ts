// Older states of what was written in this browser, to go back to.
import { openDialog } from '../ui/dialog';
import { make } from '../ui/dom';
import type { Autosave } from './autosave';
import { history, type Moment } from './storage';

const when = (time: number): string =>
    new Date(time).toLocaleString(undefined, { dateStyle: 'medium', timeStyle: 'short' });

function item(moment: Moment, open: () => void): HTMLElement {
    const lines = moment.piece.files.reduce((sum, file) => sum + file.text.split('\n').length, 0);
    const words = make(
        'span',
        {},
        make('b', {}, moment.piece.title),
        make('br'),
        make('span', { class: 'muted' }, `${when(moment.time)}, ${moment.reason}, ${lines} lines`),
    );
    const button = make('button', { type: 'button', class: 'word-button outlined', onclick: open }, 'Open');
    return make('li', {}, words, button);
}

export async function openHistory(autosave: Autosave): Promise<void> {
    const moments = await history();
    const open = (moment: Moment) => (): void => {
        dialog.close();
        autosave.replace(moment.piece, 'before an older state was opened', moment);
    };
    const words =
        moments.length > 0
            ? 'Kept in this browser only. Opening one puts what you have now on this list.'
            : 'Nothing yet. Whenever another piece takes the place of yours, and every few minutes of work, a state is kept here.';
    const list = make('ul', { class: 'list' }, ...moments.map((moment) => item(moment, open(moment))));
    const dialog = openDialog('History', true, make('p', {}, words), list);
}
