// A score of the manual as a piece: with the texts that it names and, where it is a file that has one, its
// orchestra.
import { ORCHESTRA_SUFFIX, type Piece, type TextFile } from '../state/piece';

const TITLE = 'From the manual';

// Those that the text names, those that they name, and so on; each once.
function named(text: string, files: readonly TextFile[], found: TextFile[]): TextFile[] {
    for (const file of files) {
        if (!text.includes(file.name) || found.includes(file)) continue;
        found.push(file);
        named(file.text, files, found);
    }
    return found;
}

export function triedPiece(text: string, files: readonly TextFile[]): Piece {
    const own = files.find((file) => file.text.trim() === text.trim());
    const score: TextFile = { name: own?.name ?? 'manual.vorn', text };
    const others = named(text, files, own ? [own] : []).filter((file) => file !== own);
    const orchestra = files.find(({ name }) => name === own?.name.replace(/\.[^.]*$/, ORCHESTRA_SUFFIX));
    const all = [score, ...others, ...(orchestra && !others.includes(orchestra) ? [orchestra] : [])];
    return { title: TITLE, files: all };
}
