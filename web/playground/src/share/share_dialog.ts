// The address of the piece, to be copied.
import type { AppStore } from '../state/app_state';
import { openDialog } from '../ui/dialog';
import { make } from '../ui/dom';
import { notice } from '../ui/notices';
import { addressOf, LONG_ADDRESS } from './address';

const WORDS =
    'The whole piece is in the address, behind the “#”, which browsers send to no server. Whoever opens it has the piece.';

const lengthText = (length: number): string =>
    length > LONG_ADDRESS
        ? `${length.toLocaleString('en')} characters: longer than many programs pass on. Send the files instead, or shorten the piece.`
        : `${length.toLocaleString('en')} characters`;

export async function openShare(store: AppStore): Promise<void> {
    const address = await addressOf(store.state.piece, location.href);
    const field = make('input', {
        type: 'text',
        class: 'address',
        readonly: true,
        value: address,
        'aria-label': 'Address',
    });
    const copy = async (): Promise<void> => {
        field.select();
        try {
            await navigator.clipboard.writeText(address);
            notice('The address has been copied.');
            dialog.close();
        } catch {
            notice('Press Ctrl+C to copy the address.');
        }
    };
    const button = make(
        'button',
        { type: 'button', class: 'word-button primary', onclick: () => void copy() },
        'Copy the address',
    );
    const length = make(
        'p',
        { class: address.length > LONG_ADDRESS ? 'trouble' : 'muted' },
        lengthText(address.length),
    );
    const dialog = openDialog('Share', true, make('p', {}, WORDS), field, length, button);
    button.focus();
}
