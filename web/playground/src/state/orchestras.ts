// Which orchestra of a piece plays. A piece may have several: to choose from, or because one includes another.
// The one that was chosen plays; where none was, the first that is not part of another one. What is blank
// plays nothing.
import { fileOf, isOrchestra, mainFile, withoutSuffix, type Piece, type TextFile } from './piece';

// The name in a line such as: #include "reverb.inc"
export const includedBy = (line: string): string | undefined => /^\s*#include\s*(\S)(.+?)\1/.exec(line)?.[2];

const includedIn = ({ text }: TextFile): string[] =>
    text
        .split('\n')
        .map(includedBy)
        .filter((name) => name !== undefined);

// The file and those of the piece that it includes, and that these include; each once.
export function partsOf(piece: Piece, file: TextFile, found: TextFile[] = []): readonly TextFile[] {
    if (found.includes(file)) return found;
    found.push(file);
    for (const name of includedIn(file)) {
        const part = fileOf(piece, name);
        if (part) partsOf(piece, part, found);
    }
    return found;
}

export const orchestrasOf = ({ files }: Piece): readonly TextFile[] =>
    files.filter(({ name, text }) => isOrchestra(name) && text.trim() !== '');

// Those that are no part of another one.
export function wholeOrchestrasOf(piece: Piece): readonly TextFile[] {
    const all = orchestrasOf(piece);
    const isPart = (file: TextFile): boolean =>
        all.some((other) => other !== file && partsOf(piece, other).includes(file));
    return all.filter((file) => !isPart(file));
}

export function orchestraOf(piece: Piece): TextFile | undefined {
    const all = orchestrasOf(piece);
    const chosen = all.find(({ name }) => name === piece.orchestra);
    return chosen ?? wholeOrchestrasOf(piece)[0] ?? all[0];
}

// What the orchestra that plays includes and the piece has not.
export function missingPartsOf(piece: Piece): readonly string[] {
    const orchestra = orchestraOf(piece);
    const names = orchestra ? partsOf(piece, orchestra).flatMap(includedIn) : [];
    return [...new Set(names.filter((name) => !fileOf(piece, name)))];
}

// Among orchestras that have just come with others, the one of the score's name is chosen, else the last.
export function withNewOrchestra(piece: Piece, added: readonly TextFile[]): Piece {
    const fresh = wholeOrchestrasOf(piece).filter((file) => added.some(({ name }) => name === file.name));
    const stem = withoutSuffix(mainFile(piece).name);
    const own = fresh.find(({ name }) => withoutSuffix(name) === stem);
    const orchestra = (own ?? fresh.at(-1))?.name;
    return orchestra === undefined ? piece : { ...piece, orchestra };
}
