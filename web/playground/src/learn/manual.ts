// The manual beside the editor. Its pages are made from the documents when the page is built; the scores in
// them have a button that opens them in the editor.
import type { Autosave } from '../keep/autosave';
import type { AppStore } from '../state/app_state';
import type { Piece, TextFile } from '../state/piece';
import { find, make } from '../ui/dom';
import { iconButton } from '../ui/icons';
import { notice } from '../ui/notices';
import { triedPiece } from './tried';

// Where the manual lies over the text (styles/narrow.css).
const NARROW = '(max-width: 760px)';

export interface ManualPage {
    readonly id: string;
    readonly title: string;
    readonly html: string;
    readonly files: readonly TextFile[]; // that its scores name
}

const pictures = import.meta.glob<string>('../../../../docs/**/*.svg', {
    query: '?url',
    import: 'default',
    eager: true,
});
const pictureAddress = (path: string): string | undefined => pictures[`../../../../docs/${path}`];

const loadPages = async (): Promise<readonly ManualPage[]> =>
    (await import('../../generated/manual.json')).default as ManualPage[];

function tryButton(store: AppStore, autosave: Autosave, piece: Piece): HTMLButtonElement {
    const open = (): void => {
        const before = store.state;
        autosave.replace(piece, 'before an example of the manual');
        if (matchMedia(NARROW).matches)
            store.act('show example', () => ({ isManualOpen: false, page: 'text' }));
        const back = (): void => autosave.replace(before.piece, 'before going back', before);
        notice('The example is in the editor. What you had is in the history.', {
            word: 'Go back',
            act: back,
        });
    };
    return make('button', { type: 'button', class: 'word-button outlined try', onclick: open }, 'Try it');
}

class Manual {
    private readonly text = make('div', {
        class: 'manual-text',
        tabindex: 0,
        role: 'region',
        'aria-label': 'Page of the manual',
    });
    private readonly choice = make('select', { 'aria-label': 'Page of the manual' });
    private readonly alone = make('a', { target: '_blank' }, 'As a page');
    private pages: readonly ManualPage[] = [];

    constructor(
        private readonly store: AppStore,
        private readonly autosave: Autosave,
    ) {
        const close = (): void => store.act('close manual', () => ({ isManualOpen: false }));
        const head = make(
            'div',
            { class: 'manual-head' },
            this.choice,
            this.alone,
            iconButton('close', 'Close the manual', close),
        );
        find('#manual', HTMLElement).append(head, this.text);
        this.choice.addEventListener('change', () => this.show(this.choice.value));
        this.text.addEventListener('click', (event) => this.follow(event));
    }

    async begin(): Promise<void> {
        if (this.pages.length > 0) return;
        this.pages = await loadPages();
        this.choice.replaceChildren(
            ...this.pages.map(({ id, title }) => make('option', { value: id }, title)),
        );
        this.show(this.pages[0]?.id ?? '');
    }

    private show(id: string, anchor = ''): void {
        const page = this.pages.find((one) => one.id === id);
        if (!page) return;
        this.choice.value = id;
        this.alone.href = `./documents/${id.replace(/\.md$/, '.html')}`;
        // Made by the build from the documents, and nothing else.
        const parsed = new DOMParser().parseFromString(page.html, 'text/html');
        for (const image of parsed.querySelectorAll('img')) {
            image.src = pictureAddress(image.dataset['picture'] ?? '') ?? '';
        }
        this.text.replaceChildren(...parsed.body.childNodes);
        this.addButtons(page);
        if (anchor === '') this.text.scrollTop = 0;
        else document.getElementById(anchor)?.scrollIntoView();
    }

    private addButtons({ files }: ManualPage): void {
        for (const code of this.text.querySelectorAll('code.language-vorn:not([data-silent])')) {
            const piece = triedPiece(code.textContent ?? '', files);
            code.parentElement?.after(tryButton(this.store, this.autosave, piece));
        }
        for (const box of this.text.querySelectorAll('pre, table')) box.setAttribute('tabindex', '0');
    }

    private follow(event: Event): void {
        const link =
            event.target instanceof Element ? event.target.closest<HTMLElement>('a[data-page]') : null;
        if (!link) return;
        event.preventDefault();
        this.show(link.dataset['page'] ?? '', link.dataset['anchor']);
    }
}

export function showManual(store: AppStore, autosave: Autosave): void {
    const place = find('#manual', HTMLElement);
    const desk = find('#desk', HTMLElement);
    let manual: Manual | undefined;
    store.watch(
        (state) => state.isManualOpen,
        (isOpen) => {
            place.hidden = !isOpen;
            desk.classList.toggle('with-manual', isOpen);
            if (!isOpen) return;
            manual ??= new Manual(store, autosave);
            void manual.begin().then(() => place.querySelector('select')?.focus());
        },
    );
}
