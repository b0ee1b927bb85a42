// Who comes into the editor by Tab cannot leave it in the same way, for there it indents: what does is shown until
// another key is pressed. A screen reader tells it as the editor's description (index.html).
import { make } from '../ui/dom';

export function showWayOut(editor: HTMLElement): void {
    const hint = make('p', { class: 'way-out', 'aria-hidden': true, hidden: true });
    hint.append(make('kbd', {}, 'Esc'), ', then ', make('kbd', {}, 'Tab'), ' leaves the text');
    editor.append(hint);
    let isIndenting = false;
    const show = (isShown: boolean): void => void (hint.hidden = !isShown);
    editor.addEventListener('keydown', ({ key }) => {
        isIndenting = key === 'Tab';
        if (!['Tab', 'Escape', 'Shift'].includes(key)) show(false);
    });
    // The Tab that led here was pressed elsewhere.
    editor.addEventListener('keyup', ({ key }) => key === 'Tab' && !isIndenting && show(true));
    editor.addEventListener('pointerdown', () => show(false));
    editor.addEventListener('focusout', () => {
        isIndenting = false;
        show(false);
    });
}
