// A piece: named texts, the score first, its orchestra and its includes behind it.
export interface TextFile {
    readonly name: string;
    readonly text: string;
}

export interface Piece {
    readonly title: string;
    readonly files: readonly TextFile[];
}

export const MAIN_SUFFIX = '.vorn';
export const ORCHESTRA_SUFFIX = '.orc';

export const emptyPiece = (title = 'untitled'): Piece => ({
    title,
    files: [{ name: title + MAIN_SUFFIX, text: '' }],
});

export const mainFile = (piece: Piece): TextFile => piece.files[0] ?? { name: 'untitled.vorn', text: '' };

export const isOrchestra = (name: string): boolean => name.endsWith(ORCHESTRA_SUFFIX);

export const orchestraOf = (piece: Piece): TextFile | undefined =>
    piece.files.find((file) => isOrchestra(file.name) && file.text.trim() !== '');

export const fileOf = (piece: Piece, name: string): TextFile | undefined =>
    piece.files.find((file) => file.name === name);

// The texts that the engine may read.
export const sourcesOf = (piece: Piece): Record<string, string> =>
    Object.fromEntries(
        piece.files.filter((file) => !isOrchestra(file.name)).map(({ name, text }) => [name, text]),
    );

export function withText(piece: Piece, name: string, text: string): Piece {
    return { ...piece, files: piece.files.map((file) => (file.name === name ? { name, text } : file)) };
}

export function withFile(piece: Piece, file: TextFile): Piece {
    return fileOf(piece, file.name)
        ? withText(piece, file.name, file.text)
        : { ...piece, files: [...piece.files, file] };
}

export const withoutFile = (piece: Piece, name: string): Piece => ({
    ...piece,
    files: piece.files.filter((file, index) => index === 0 || file.name !== name),
});

const hasSameFiles = (a: Piece, b: Piece): boolean =>
    a.files.length === b.files.length &&
    a.files.every((file, index) => file.name === b.files[index]?.name && file.text === b.files[index].text);

export const isSamePiece = (a: Piece, b: Piece): boolean => a.title === b.title && hasSameFiles(a, b);

// Whatever came from outside (an address, a file, storage) is a piece only when it looks like one.
export function toPiece(value: unknown): Piece | undefined {
    if (typeof value !== 'object' || value === null) return undefined;
    const { title, files } = value as { title?: unknown; files?: unknown };
    if (typeof title !== 'string' || !Array.isArray(files) || files.length === 0) return undefined;
    const texts = files.map(toFile);
    if (!texts.every((file) => file !== undefined)) return undefined;
    const names = new Set(texts.map((file) => file.name));
    return names.size === texts.length ? { title, files: texts } : undefined;
}

function toFile(value: unknown): TextFile | undefined {
    if (typeof value !== 'object' || value === null) return undefined;
    const { name, text } = value as { name?: unknown; text?: unknown };
    const isNamed = typeof name === 'string' && name !== '' && name.length <= 200;
    return isNamed && typeof text === 'string' ? { name, text } : undefined;
}
