// Colours of the language come from the page's own tokens, so that light and dark follow the page.
import { HighlightStyle, syntaxHighlighting } from '@codemirror/language';
import { tags } from '@lezer/highlight';

const token = (name: string): string => `var(--code-${name})`;

export const syntaxColors = syntaxHighlighting(
    HighlightStyle.define([
        { tag: tags.comment, color: token('comment'), fontStyle: 'italic' },
        {
            tag: [tags.keyword, tags.controlKeyword, tags.definitionKeyword, tags.processingInstruction],
            color: token('keyword'),
        },
        {
            tag: [tags.function(tags.name), tags.standard(tags.name)],
            color: token('keyword'),
            fontWeight: '600',
        },
        { tag: [tags.heading, tags.labelName], color: token('header'), fontWeight: '600' },
        { tag: [tags.propertyName, tags.attributeName], color: token('field'), fontWeight: '600' },
        { tag: [tags.typeName, tags.modifier], color: token('type') },
        { tag: [tags.string, tags.atom, tags.special(tags.string)], color: token('note') },
        { tag: [tags.macroName, tags.variableName, tags.constant(tags.name)], color: token('macro') },
        { tag: [tags.operator, tags.punctuation, tags.bracket], color: token('mark') },
        { tag: [tags.meta], color: token('macro') },
        { tag: tags.invalid, color: 'var(--error)' },
    ]),
);
