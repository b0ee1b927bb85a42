// Files from disk: chosen or dropped. One with a score opens as a piece; orchestras and includes alone
// join the piece that is there.
import type { Autosave } from '../keep/autosave';
import { ORCHESTRA, type AppStore } from '../state/app_state';
import { withNewOrchestra } from '../state/orchestras';
import {
    fileOf,
    hasSuffix,
    isOrchestra,
    MAIN_SUFFIX,
    ORCHESTRA_SUFFIX,
    textFile,
    withFile,
    withoutSuffix,
    type Piece,
    type TextFile,
} from '../state/piece';
import { make } from '../ui/dom';
import { notice } from '../ui/notices';
import { tellOrchestra, tellSeveralOrchestras } from '../ui/orchestra_notice';
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

const rank = ({ name }: TextFile): number => (hasSuffix(name, MAIN_SUFFIX) ? 0 : isOrchestra(name) ? 1 : 2);

const INCLUDE_SUFFIX = '.inc';

// A text of some other name, alone, is taken for a score, unless the piece has a file of its name.
const joins = ({ name }: TextFile, piece: Piece): boolean =>
    isOrchestra(name) || hasSuffix(name, INCLUDE_SUFFIX) || fileOf(piece, name) !== undefined;

// A Csound document holds an orchestra and perhaps a score of ours.
function unpacked(file: TextFile): TextFile[] {
    if (!hasSuffix(file.name, '.csd')) return [file];
    const part = (tag: string): string =>
        new RegExp(`<${tag}[^>]*>\\n?([\\s\\S]*?)</${tag}>`).exec(file.text)?.[1] ?? '';
    const stem = withoutSuffix(file.name);
    return [
        textFile(stem + MAIN_SUFFIX, part('CsScore'), file.lineEnd),
        textFile(stem + ORCHESTRA_SUFFIX, part('CsInstruments'), file.lineEnd),
    ];
}

// What a file of the same name held before goes to the history.
function join(store: AppStore, autosave: Autosave, texts: readonly TextFile[]): void {
    const before = store.state;
    const replaces = ({ name, text }: TextFile): boolean =>
        (fileOf(before.piece, name)?.text ?? text) !== text;
    if (texts.some(replaces)) autosave.remember('before a file was opened');
    const piece = withNewOrchestra(texts.reduce(withFile, before.piece), texts);
    const activeFile = texts[0]?.name ?? before.activeFile;
    const output = texts.some(({ name }) => name === piece.orchestra) ? ORCHESTRA : before.output;
    store.act('add files', () => ({ piece, activeFile, output }));
    tellOrchestra(store, before);
}

export async function takeFiles(store: AppStore, autosave: Autosave, files: readonly File[]): Promise<void> {
    const texts = (await readTexts(files)).flatMap(unpacked).sort((a, b) => rank(a) - rank(b));
    const [first] = texts;
    if (!first) return;
    if (rank(first) !== 0 && texts.some((text) => joins(text, store.state.piece)))
        return join(store, autosave, texts);
    const piece = { title: withoutSuffix(first.name), files: texts };
    autosave.replace(withNewOrchestra(piece, texts), 'before a file was opened');
    tellSeveralOrchestras(store);
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
