// All examples with their pictures, to begin from.
import type { VornClient } from 'vorn-wasm';
import type { Autosave } from '../keep/autosave';
import { drawThumbnail } from '../picture/thumbnail';
import { emptyPiece, mainFile, sourcesOf } from '../state/piece';
import { make } from '../ui/dom';
import { openDialog } from '../ui/dialog';
import type { Example } from './examples';

const WIDTH = 480;
const HEIGHT = 208;

async function draw(
    canvas: HTMLCanvasElement,
    { piece }: Example,
    engine: Promise<VornClient>,
): Promise<void> {
    try {
        const client = await engine;
        const options = { main: mainFile(piece).name, outputs: [] };
        drawThumbnail(canvas, await client.compile(sourcesOf(piece), options, { deadline: 5000 }));
    } catch {
        canvas.hidden = true;
    }
}

function card(example: Example, open: () => void): { item: HTMLElement; canvas: HTMLCanvasElement } {
    const canvas = make('canvas', { width: WIDTH, height: HEIGHT, 'aria-hidden': true });
    const text = make(
        'div',
        { class: 'card-text' },
        make('span', { class: 'card-name' }, example.name),
        make('p', {}, example.about),
    );
    return {
        canvas,
        item: make('li', {}, make('button', { type: 'button', class: 'card', onclick: open }, canvas, text)),
    };
}

export async function openGallery(autosave: Autosave, engine: Promise<VornClient>): Promise<void> {
    const { examples } = await import('./examples');
    const choose = (example: Example) => (): void => {
        dialog.close();
        autosave.replace(example.piece, 'before an example was opened');
    };
    const cards = examples.map((example) => ({ example, ...card(example, choose(example)) }));
    const begin = (): void => {
        dialog.close();
        autosave.replace(emptyPiece(), 'before a new piece');
    };
    const blank = make(
        'button',
        { type: 'button', class: 'word-button outlined', onclick: begin },
        'Begin with an empty score',
    );
    const list = make('ul', { class: 'cards' }, ...cards.map(({ item }) => item));
    const words = make('p', {}, 'Each opens with its orchestra. What you have now goes to the history.');
    const dialog = openDialog('Examples', false, words, list, blank);
    for (const { canvas, example } of cards) await draw(canvas, example, engine);
}
