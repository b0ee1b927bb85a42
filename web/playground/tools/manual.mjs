// The documents as pages of the manual beside the editor: [{ id, title, html, files }], ids being paths below docs/.
// Links to other pages keep their path in data-page; pictures keep theirs in data-picture, for the page to
// put addresses in their place. A page with a folder of its name brings the texts in it, which its scores name.
import { readdirSync, readFileSync, existsSync } from 'node:fs';
import { dirname, join, normalize } from 'node:path';
import MarkdownIt from 'markdown-it';

const FIRST = [
    'tutorial',
    'manual.md',
    'preprocessor.md',
    'recipes.md',
    'messages.md',
    'csound.md',
    'windows.md',
    'glossary.md',
];

function pagesOf(docs, name) {
    if (name.endsWith('.md')) return existsSync(join(docs, name)) ? [name] : [];
    if (!existsSync(join(docs, name))) return [];
    return readdirSync(join(docs, name))
        .filter((file) => /^\d.*\.md$/.test(file))
        .sort()
        .map((file) => `${name}/${file}`);
}

const slug = (text) =>
    text
        .toLowerCase()
        .replace(/[^\p{L}\p{N}\s_-]/gu, '')
        .trim()
        .replaceAll(' ', '-');

function addAnchors(markdown) {
    markdown.core.ruler.push('anchors', ({ tokens }) => {
        tokens.forEach((token, index) => {
            if (token.type === 'heading_open')
                token.attrSet('id', `manual-${slug(tokens[index + 1].content)}`);
        });
    });
}

function convertLinks(markdown, ids) {
    markdown.core.ruler.push('links', ({ tokens, env }) => {
        for (const token of tokens.flatMap((one) => one.children ?? [])) {
            if (token.type === 'image') {
                const path = normalize(join(dirname(env.id), token.attrGet('src')));
                token.attrs = [
                    ['data-picture', path],
                    ['alt', token.attrGet('alt') ?? ''],
                    ['loading', 'lazy'],
                ];
            }
            if (token.type === 'link_open') convertLink(token, env.id, ids);
        }
    });
}

function convertLink(token, id, ids) {
    const href = token.attrGet('href');
    if (/^https?:/.test(href)) {
        token.attrSet('rel', 'noreferrer');
        token.attrSet('target', '_blank');
        return;
    }
    const [path, anchor = ''] = href.split('#');
    const page = path === '' ? id : normalize(join(dirname(id), path));
    token.attrs = ids.has(page)
        ? [
              ['href', '#'],
              ['data-page', page],
              ['data-anchor', anchor === '' ? '' : `manual-${anchor}`],
          ]
        : [['class', 'elsewhere']];
}

// A score without events has nothing to try; one that is refused shows its mistake.
function markSilent(markdown, isSilent) {
    const { fence } = markdown.renderer.rules;
    markdown.renderer.rules.fence = (tokens, index, options, env, renderer) => {
        const { info, content } = tokens[index];
        if (info === 'vorn' && isSilent(content, env.files)) tokens[index].attrSet('data-silent', '');
        return fence(tokens, index, options, env, renderer);
    };
}

const TEXT = /\.(vorn|orc|inc|txt)$/;

function textsBeside(folder) {
    if (!existsSync(folder)) return [];
    const names = readdirSync(folder).filter((name) => TEXT.test(name));
    return names.sort().map((name) => ({ name, text: readFileSync(join(folder, name), 'utf8') }));
}

export function manualPages(docs, isSilent = () => false) {
    const names = FIRST.flatMap((name) => pagesOf(docs, name));
    const ids = new Set(names);
    const markdown = new MarkdownIt({ html: false });
    addAnchors(markdown);
    convertLinks(markdown, ids);
    markSilent(markdown, isSilent);
    return names.map((id) => {
        const text = readFileSync(join(docs, id), 'utf8');
        const title = /^# (.*)$/m.exec(text)?.[1] ?? id;
        const files = textsBeside(join(docs, id.replace(/\.md$/, '')));
        return { id, title, html: markdown.render(text, { id, files }), files };
    });
}
