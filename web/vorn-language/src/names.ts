import type { Text } from '@codemirror/state';

/** A macro or a constant of the score. */
export interface Name {
    readonly name: string;
    readonly kind: 'macro' | 'constant';
    /** Its body or its value. */
    readonly value: string;
}

const DEFINITION = /#(define|const)\s+([A-Za-z_]\w*)([^\n]*)/g;

/** What a text defines, each name once, as it is defined last. */
export function namesIn(doc: Text): Name[] {
    const names = new Map<string, Name>();
    for (const [, directive = '', name = '', rest = ''] of doc.toString().matchAll(DEFINITION)) {
        const kind = directive === 'const' ? 'constant' : 'macro';
        names.set(`${kind} ${name}`, { name, kind, value: rest.replace(/;.*/, '').trim() });
    }
    return [...names.values()];
}
