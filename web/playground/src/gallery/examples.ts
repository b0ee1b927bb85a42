// The examples of the repository, each with its orchestra and its includes, as pieces.
import { hasSuffix, MAIN_SUFFIX, ORCHESTRA_SUFFIX, type Piece, type TextFile } from '../state/piece';

const texts = import.meta.glob<string>('../../../../examples/*/*.{vorn,orc,inc}', {
    query: '?raw',
    import: 'default',
    eager: true,
});

export interface Example {
    readonly name: string;
    readonly about: string;
    readonly piece: Piece;
}

const RANKS = [MAIN_SUFFIX, ORCHESTRA_SUFFIX];
const rankOf = (name: string): number => {
    const rank = RANKS.findIndex((suffix) => hasSuffix(name, suffix));
    return rank < 0 ? RANKS.length : rank;
};

const spaced = (folder: string): string => {
    const words = folder.replaceAll('_', ' ').replace(/^midi /, 'MIDI ');
    return words.charAt(0).toUpperCase() + words.slice(1);
};

// The first sentence of the comment with which a score begins.
export function aboutOf(text: string): string {
    const lines = text.split('\n');
    const end = lines.findIndex((line) => !line.startsWith('; '));
    const comment = lines
        .slice(0, end < 0 ? undefined : end)
        .map((line) => line.slice(2).trim())
        .join(' ');
    const sentence = /^(.*?[.!?])(\s|$)/.exec(comment)?.[1] ?? comment;
    return sentence.replace(/^[^:]{1,24}: (\w)/, (_, first: string) => first.toUpperCase());
}

function collect(): Example[] {
    const folders = new Map<string, TextFile[]>();
    for (const [path, text] of Object.entries(texts)) {
        const [folder = '', name = ''] = path.split('/').slice(-2);
        folders.set(folder, [...(folders.get(folder) ?? []), { name, text }]);
    }
    return [...folders]
        .filter(([, files]) => files.some((file) => hasSuffix(file.name, MAIN_SUFFIX)))
        .map(([folder, files]) => {
            const sorted = files.sort(
                (a, b) => rankOf(a.name) - rankOf(b.name) || a.name.localeCompare(b.name),
            );
            const name = spaced(folder);
            return { name, about: aboutOf(sorted[0]?.text ?? ''), piece: { title: name, files: sorted } };
        });
}

export const examples: readonly Example[] = collect();
