// A menu below its button: arrows, Home and End move, Enter chooses, Escape and Tab close.
import { make } from './dom';

export interface MenuItem {
    readonly name: string;
    readonly hint?: string;
    readonly act: () => void;
}

export type MenuEntry = MenuItem | 'line';

let serial = 0;

function moveFocus(menu: HTMLElement, key: string): void {
    const items = [...menu.querySelectorAll('button')];
    const at = items.findIndex((item) => item === document.activeElement);
    const to = { ArrowDown: (at + 1) % items.length, ArrowUp: at - 1, Home: 0, End: -1 }[key];
    if (to !== undefined) items.at(to)?.focus();
}

function place(menu: HTMLElement, button: HTMLElement): void {
    const box = button.getBoundingClientRect();
    const left = Math.min(box.left, innerWidth - menu.offsetWidth - 8);
    menu.style.left = `${Math.max(8, left)}px`;
    menu.style.top = `${Math.min(box.bottom + 6, Math.max(8, innerHeight - menu.offsetHeight - 8))}px`;
}

function entry(item: MenuEntry, close: () => void): HTMLElement {
    if (item === 'line') return make('hr');
    const onclick = (): void => {
        close();
        item.act();
    };
    const hint = item.hint !== undefined && make('span', {}, item.hint);
    return make('button', { type: 'button', role: 'menuitem', onclick }, make('span', {}, item.name), hint);
}

// Makes `button` open a menu whose entries are asked for each time.
export function attachMenu(button: HTMLButtonElement, name: string, entries: () => MenuEntry[]): void {
    const id = `menu-${++serial}`;
    button.setAttribute('aria-haspopup', 'menu');
    button.setAttribute('aria-expanded', 'false');
    button.addEventListener('click', () => {
        const menu = make('div', { id, class: 'menu', role: 'menu', popover: 'auto', 'aria-label': name });
        const close = (): void => menu.hidePopover();
        menu.append(...entries().map((item) => entry(item, close)));
        button.after(menu);
        menu.addEventListener('toggle', (event) => {
            if ((event as ToggleEvent).newState === 'open') return;
            button.setAttribute('aria-expanded', 'false');
            const hadFocus =
                menu.contains(document.activeElement) || document.activeElement === document.body;
            menu.remove();
            if (hadFocus) button.focus();
        });
        menu.addEventListener('keydown', ({ key }) => {
            moveFocus(menu, key);
            if (key === 'Tab') close();
        });
        menu.showPopover();
        place(menu, button);
        button.setAttribute('aria-expanded', 'true');
        menu.querySelector('button')?.focus();
    });
}
