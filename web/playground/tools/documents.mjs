// The documents as pages of their own, for the built folder: documents/tutorial/01-one-note.html and so on.
// Where a document has the picture of a score, the score itself stands there as <vorn-score>, to be heard; the
// picture is what a browser without scripts shows.
import { existsSync, readFileSync } from 'node:fs';
import { dirname, join, relative } from 'node:path';
import { manualPages } from './manual.mjs';

const POLICY = [
    "default-src 'none'",
    "script-src 'self' 'wasm-unsafe-eval'",
    "style-src 'self' 'unsafe-inline'",
    "img-src 'self' data:",
    "connect-src 'self' data:", // the script holds its engine as one
    "worker-src 'self' blob: data:",
    "base-uri 'none'",
    "form-action 'none'",
].join('; ');

const STYLE = readFileSync(new URL('documents.css', import.meta.url), 'utf8');
const addressOf = (id) => id.replace(/\.md$/, '.html');
const from = (id, path) => relative(dirname(id), path) || '.';

// The score of a picture, when it stands beside it; its orchestra, and what it includes.
function scoreOf(docs, picture, files) {
    const name = picture.replace(/\.svg$/, '.vorn');
    if (name === picture || !existsSync(join(docs, name))) return undefined;
    const text = readFileSync(join(docs, name), 'utf8');
    const orchestra = name.replace(/\.vorn$/, '.orc');
    const includes = files.filter((file) => text.includes(`|${file.name}|`));
    return {
        name,
        orchestra: existsSync(join(docs, orchestra)) ? orchestra : undefined,
        includes: includes.map((file) => join(dirname(name), file.name)),
    };
}

function livePicture(docs, { id, files }, picture, alt, take) {
    const score = scoreOf(docs, picture, files);
    take(picture);
    const still = `<img src="${from(id, picture)}" alt="${alt}" loading="lazy">`;
    if (!score) return `<p>${still}</p>`;
    take(score.name);
    if (score.orchestra) take(score.orchestra);
    score.includes.forEach(take);
    const orchestra = score.orchestra ? ` orchestra="${from(id, score.orchestra)}"` : '';
    return `<vorn-score src="${from(id, score.name)}"${orchestra}>${still}</vorn-score>`;
}

function bodyOf(docs, page, take) {
    return page.html
        .replace(/<a href="#" data-page="([^"]*)" data-anchor="([^"]*)">/g, (_, path, anchor) => {
            const hash = anchor === '' ? '' : `#${anchor}`;
            return `<a href="${from(page.id, addressOf(path))}${hash}">`;
        })
        .replace(
            /(?:<p>)?<img data-picture="([^"]*)" alt="([^"]*)" loading="lazy">(?:<\/p>)?/g,
            (_, picture, alt) => livePicture(docs, page, picture, alt, take),
        )
        .replace(/<(pre|table)>/g, '<$1 tabindex="0">');
}

function pageOf(docs, pages, page, take) {
    const { id, title } = page;
    const script = from(id, '../vorn-score.js');
    const links = pages.map((other) =>
        other === page
            ? `<li aria-current="page">${title}</li>`
            : `<li><a href="${from(id, addressOf(other.id))}">${other.title}</a></li>`,
    );
    return `<!doctype html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="${POLICY}">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>${title} · Vorn</title>
<link rel="icon" href="${from(id, '../icon.svg')}" type="image/svg+xml">
<link rel="stylesheet" href="${from(id, 'documents.css')}">
<script type="module" src="${script}"></script>
</head>
<body>
<nav aria-label="Documents"><p><a href="${from(id, '../index.html')}">Playground</a></p><ul>${links.join('')}</ul></nav>
<main>${bodyOf(docs, page, take)}</main>
</body>
</html>
`;
}

// [{ fileName, source }], below the folder of the page.
export function documentFiles(docs) {
    const pages = manualPages(docs);
    const taken = new Set();
    const made = pages.map((page) => ({
        fileName: `documents/${addressOf(page.id)}`,
        source: pageOf(docs, pages, page, (path) => taken.add(path)),
    }));
    const beside = [...taken].map((path) => ({
        fileName: `documents/${path}`,
        source: readFileSync(join(docs, path), 'utf8'),
    }));
    return [...made, ...beside, { fileName: 'documents/documents.css', source: STYLE }];
}
