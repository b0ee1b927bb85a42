// Colours of the language come from the page's own tokens, so that light and dark follow the page.
import { HighlightStyle, syntaxHighlighting } from '@codemirror/language';
import { tags } from '@lezer/highlight';

const token = (name: string): string => `var(--code-${name})`;

export const syntaxColors = syntaxHighlighting(
    HighlightStyle.define([
        { tag: tags.comment, color: token('comment'), fontStyle: 'italic' },
        { tag: [tags.keyword, tags.processingInstruction], color: token('keyword') },
        { tag: tags.function(tags.variableName), color: token('keyword'), fontWeight: '600' },
        { tag: tags.heading, color: token('header'), fontWeight: '600' },
        { tag: tags.propertyName, color: token('field'), fontWeight: '600' },
        { tag: [tags.typeName, tags.modifier], color: token('type') },
        { tag: [tags.atom, tags.string], color: token('note') },
        {
            tag: [tags.macroName, tags.special(tags.variableName), tags.constant(tags.variableName)],
            color: token('macro'),
        },
        { tag: [tags.standard(tags.variableName), tags.meta], color: token('macro') },
        { tag: [tags.operator, tags.controlOperator, tags.punctuation], color: token('mark') },
        { tag: tags.brace, color: token('header') },
    ]),
);
