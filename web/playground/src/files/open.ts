// Files from disk: chosen or dropped. One with a score opens as a piece; orchestras and includes alone
// join the piece that is there.
import type { Autosave } from '../keep/autosave';
import type { AppStore } from '../state/app_state';
import { MAIN_SUFFIX, ORCHESTRA_SUFFIX, withFile, type Piece, type TextFile } from '../state/piece';
import { make } from '../ui/dom';
import { notice } from '../ui/notices';
import { readText } from './decoding';

const MOST_BYTES = 8 * 1024 * 1024;

async function readTexts(files: readonly File[]): Promise<TextFile[]> {
    const texts: (TextFile | undefined)[] = [];
    for (const file of files) {
        if (file.size > MOST_BYTES) notice(`${file.name} is larger than 8 MB and was left out.`);
        else texts.push(readText(file.name, new Uint8Array(await file.arrayBuffer())));
    }
    return texts.filter((text) => text !== undefined);
}

const rank = ({ name }: TextFile): number =>
    name.endsWith(MAIN_SUFFIX) ? 0 : name.endsWith(ORCHESTRA_SUFFIX) ? 1 : 2;

const INCLUDE_SUFFIX = '.inc';

// A text of some other name, alone, is taken for a score, unless the piece has a file of its name.
const joins = ({ name }: TextFile, piece: Piece): boolean =>
    name.endsWith(ORCHESTRA_SUFFIX) ||
    name.endsWith(INCLUDE_SUFFIX) ||
    piece.files.some((file) => file.name === name);

// A Csound document holds an orchestra and perhaps a score of ours.
function unpacked(file: TextFile): TextFile[] {
    if (!file.name.endsWith('.csd')) return [file];
    const part = (tag: string): string =>
        new RegExp(`<${tag}[^>]*>\\n?([\\s\\S]*?)</${tag}>`).exec(file.text)?.[1] ?? '';
    const stem = file.name.replace(/\.csd$/, '');
    return [
        { ...file, name: stem + MAIN_SUFFIX, text: part('CsScore') },
        { ...file, name: stem + ORCHESTRA_SUFFIX, text: part('CsInstruments') },
    ];
}

export async function takeFiles(store: AppStore, autosave: Autosave, files: readonly File[]): Promise<void> {
    const texts = (await readTexts(files)).flatMap(unpacked).sort((a, b) => rank(a) - rank(b));
    const [first] = texts;
    if (!first) return;
    if (rank(first) === 0 || !texts.some((text) => joins(text, store.state.piece))) {
        autosave.replace(
            { title: first.name.replace(/\.[^.]+$/, ''), files: texts },
            'before a file was opened',
        );
        return;
    }
    store.act('add files', ({ piece }) => ({ piece: texts.reduce(withFile, piece), activeFile: first.name }));
}

export function chooseFiles(store: AppStore, autosave: Autosave): void {
    const input = make('input', {
        type: 'file',
        multiple: true,
        accept: '.vorn,.orc,.inc,.csd,.txt,text/plain',
    });
    input.addEventListener('change', () => void takeFiles(store, autosave, [...(input.files ?? [])]));
    input.click();
}

export function listenToDrops(store: AppStore, autosave: Autosave): void {
    const hasFiles = (event: DragEvent): boolean => event.dataTransfer?.types.includes('Files') ?? false;
    const mark = (isOver: boolean): void => void document.body.classList.toggle('dropping', isOver);
    addEventListener('dragover', (event) => {
        if (!hasFiles(event)) return;
        event.preventDefault();
        mark(true);
    });
    addEventListener('dragleave', (event) => event.relatedTarget === null && mark(false));
    addEventListener(
        'drop',
        (event) => {
            mark(false);
            if (!hasFiles(event)) return;
            event.preventDefault();
            event.stopPropagation();
            void takeFiles(store, autosave, [...(event.dataTransfer?.files ?? [])]);
        },
        { capture: true },
    );
}
