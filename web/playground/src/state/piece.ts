// A piece: named texts, the score first, its orchestra and its includes behind it.
//
// Lines end with \n, for the editor knows no other end and every place is counted in it; what a file from
// elsewhere has instead is noted, and stands in what is downloaded.
type ForeignLineEnd = '\r\n' | '\r';

export interface TextFile {
    readonly name: string;
    readonly text: string;
    readonly lineEnd?: ForeignLineEnd;
}

export interface Piece {
    readonly title: string;
    readonly files: readonly TextFile[];
    readonly orchestra?: string; // the name of the one that was chosen (state/orchestras.ts)
}

export const MAIN_SUFFIX = '.vorn';
export const ORCHESTRA_SUFFIX = '.orc';

// Suffixes are the same in capitals. Names stay as they are, since includes name them.
export const hasSuffix = (name: string, suffix: string): boolean => name.toLowerCase().endsWith(suffix);

export const withoutSuffix = (name: string): string => name.replace(/(.)\.[^./]+$/, '$1');

export const isOrchestra = (name: string): boolean => hasSuffix(name, ORCHESTRA_SUFFIX);

export const emptyPiece = (title = 'untitled'): Piece => ({
    title,
    files: [{ name: title + MAIN_SUFFIX, text: '' }],
});

export const mainFile = (piece: Piece): TextFile => piece.files[0] ?? { name: 'untitled.vorn', text: '' };

const isForeign = (lineEnd: unknown): lineEnd is ForeignLineEnd => lineEnd === '\r\n' || lineEnd === '\r';

// Csound refuses an orchestra that begins with one; of a score's the engine tells.
export const BYTE_ORDER_MARK = '\uFEFF';

const withoutMark = (name: string, written: string): string =>
    isOrchestra(name) && written.startsWith(BYTE_ORDER_MARK) ? written.slice(1) : written;

// The way in for every text from elsewhere. Its first line tells how the others end.
export function textFile(name: string, written: string, noted?: unknown): TextFile {
    const lineEnd = isForeign(noted) ? noted : /\r\n?|\n/.exec(written)?.[0];
    const text = withoutMark(name, written).replace(/\r\n?/g, '\n');
    return isForeign(lineEnd) ? { name, text, lineEnd } : { name, text };
}

// The text as its file has it.
export const writtenText = ({ text, lineEnd }: TextFile): string =>
    lineEnd ? text.replaceAll('\n', lineEnd) : text;

export const fileOf = (piece: Piece, name: string): TextFile | undefined =>
    piece.files.find((file) => file.name === name);

function sourcesBy(read: (file: TextFile) => string, { files }: Piece): Record<string, string> {
    const sources = files.filter(({ name }) => !isOrchestra(name));
    return Object.fromEntries(sources.map((file) => [file.name, read(file)]));
}

// The texts that the engine may read.
export const sourcesOf = (piece: Piece): Record<string, string> => sourcesBy(({ text }) => text, piece);

// The same as their files have them, for what is to have the same bytes as it has anywhere else.
export const writtenSourcesOf = (piece: Piece): Record<string, string> => sourcesBy(writtenText, piece);

export function withText(piece: Piece, name: string, text: string): Piece {
    return { ...piece, files: piece.files.map((file) => (file.name === name ? { ...file, text } : file)) };
}

export function withFile(piece: Piece, file: TextFile): Piece {
    return fileOf(piece, file.name)
        ? { ...piece, files: piece.files.map((one) => (one.name === file.name ? file : one)) }
        : { ...piece, files: [...piece.files, file] };
}

// The file back in its place, where `before` had it.
export function withFileOf(before: Piece, piece: Piece, name: string): Piece {
    const at = before.files.findIndex((file) => file.name === name);
    const file = before.files[at];
    if (!file || fileOf(piece, name)) return piece;
    return { ...piece, files: [...piece.files.slice(0, at), file, ...piece.files.slice(at)] };
}

export const withoutFile = (piece: Piece, name: string): Piece => ({
    ...piece,
    files: piece.files.filter((file, index) => index === 0 || file.name !== name),
});

const hasSameFiles = (a: Piece, b: Piece): boolean =>
    a.files.length === b.files.length &&
    a.files.every((file, index) => file.name === b.files[index]?.name && file.text === b.files[index].text);

export const isSamePiece = (a: Piece, b: Piece): boolean =>
    a.title === b.title && a.orchestra === b.orchestra && hasSameFiles(a, b);

// Whatever came from outside (an address, a file, storage) is a piece only when it looks like one.
export function toPiece(value: unknown): Piece | undefined {
    if (typeof value !== 'object' || value === null) return undefined;
    const { title, files, orchestra } = value as { readonly [Part in keyof Piece]?: unknown };
    if (typeof title !== 'string' || !Array.isArray(files) || files.length === 0) return undefined;
    const texts = files.map(toFile);
    if (!texts.every((file) => file !== undefined)) return undefined;
    const names = new Set(texts.map((file) => file.name));
    if (names.size !== texts.length) return undefined;
    const isThere = typeof orchestra === 'string' && names.has(orchestra) && isOrchestra(orchestra);
    return { title, files: texts, ...(isThere && { orchestra }) };
}

function toFile(value: unknown): TextFile | undefined {
    if (typeof value !== 'object' || value === null) return undefined;
    const { name, text, lineEnd } = value as { name?: unknown; text?: unknown; lineEnd?: unknown };
    const isNamed = typeof name === 'string' && name !== '' && name.length <= 200;
    return isNamed && typeof text === 'string' ? textFile(name, text, lineEnd) : undefined;
}
