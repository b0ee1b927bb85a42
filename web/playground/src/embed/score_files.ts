// The texts of an embedded score: what stands in the element or at its address, and what it includes, which is
// fetched from beside it and from nowhere else.
import type { Result } from 'vorn-wasm';

export type Texts = Record<string, string>;

const MOST_INCLUDES = 200;

// Nothing for a name that leads out of the folder of `base`.
export function addressBeside(name: string, base: string): string | undefined {
    try {
        const folder = new URL('.', base);
        const path = name.split('/').map(encodeURIComponent).join('/');
        const { href } = new URL(path, folder);
        return href.startsWith(folder.href) ? href : undefined;
    } catch {
        return undefined; // such as "data:", which has no folder
    }
}

export async function fetchedText(address: string): Promise<string> {
    const answer = await fetch(address);
    if (!answer.ok) throw new Error(`${address} cannot be read.`);
    return answer.text();
}

async function foundBeside(names: readonly string[], base: string): Promise<Texts> {
    const found = await Promise.all(
        names.map(async (name) => {
            const address = addressBeside(name, base);
            const text =
                address === undefined ? undefined : await fetchedText(address).catch(() => undefined);
            return [name, text] as const;
        }),
    );
    return Object.fromEntries(found.filter((one): one is [string, string] => one[1] !== undefined));
}

// Compiles, and again with what was missing, until nothing more is found.
export async function compiledWithIncludes(
    compile: (texts: Texts) => Result,
    given: Texts,
    base: string,
): Promise<{ result: Result; texts: Texts }> {
    const asked = new Set<string>();
    let texts = given;
    for (;;) {
        const result = compile(texts);
        const names = result.missing.filter((name) => !asked.has(name));
        const found = asked.size < MOST_INCLUDES ? await foundBeside(names, base) : {};
        for (const name of names) asked.add(name);
        if (Object.keys(found).length === 0) return { result, texts };
        texts = { ...texts, ...found };
    }
}

// Without the end of the line on which the tag stands, as in <pre>, so that lines count from the first of the text.
const withoutTagLine = (text: string): string => text.replace(/^\r?\n/, '');

// Texts with a name that stand in the element: <script type="text/plain" data-name="theme.inc">.
export function namedTexts(element: HTMLElement): Texts {
    const named = [...element.querySelectorAll<HTMLScriptElement>('script[data-name]')];
    return Object.fromEntries(
        named.map(({ dataset, text }) => [dataset['name'] ?? '', withoutTagLine(text)]),
    );
}

export function ownText(element: HTMLElement): string {
    const copy = element.cloneNode(true) as HTMLElement;
    for (const named of copy.querySelectorAll('script')) named.remove();
    return withoutTagLine(copy.textContent ?? '');
}
