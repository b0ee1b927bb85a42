// A dialog over the desk: the platform's own, which keeps the focus and closes by Escape.
import { make, type Child } from './dom';
import { iconButton } from './icons';

export function openDialog(title: string, isSmall: boolean, ...content: Child[]): HTMLDialogElement {
    const close = (): void => dialog.close();
    const id = `dialog-${Date.now()}`;
    const head = make(
        'div',
        { class: 'dialog-head' },
        make('h2', { id, tabindex: -1, autofocus: true }, title),
        iconButton('close', 'Close', close),
    );
    const body = make('div', { class: 'dialog-body' }, ...content);
    const dialog = make('dialog', { class: isSmall ? 'small' : 'large', 'aria-labelledby': id }, head, body);
    dialog.addEventListener('close', () => dialog.remove());
    dialog.addEventListener('click', (event) => event.target === dialog && close());
    document.body.append(dialog);
    dialog.showModal();
    return dialog;
}
