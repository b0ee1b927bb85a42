// Elements in one call: make('button', { class: 'quiet', title: 'Stop' }, icon, 'Stop'). Texts become text
// nodes, never markup, so nothing that a score holds can become part of the page.
export type Child = Node | string | false | undefined;
type Listener = (event: Event) => void;
export type Properties = Record<string, string | number | boolean | Listener | undefined>;

export function make<Tag extends keyof HTMLElementTagNameMap>(
    tag: Tag,
    properties: Properties = {},
    ...children: Child[]
): HTMLElementTagNameMap[Tag] {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(properties)) setProperty(element, name, value);
    element.append(...children.filter((child) => child !== false && child !== undefined));
    return element;
}

function setProperty(element: HTMLElement, name: string, value: Properties[string]): void {
    if (value === undefined || value === false) return;
    if (typeof value === 'function') element.addEventListener(name.replace(/^on/, ''), value);
    else element.setAttribute(name, value === true ? '' : String(value));
}

// An element of the page that is known to be there.
export function find<Kind extends Element>(
    selector: string,
    kind: new () => Kind,
    root: ParentNode = document,
): Kind {
    const found = root.querySelector(selector);
    if (!(found instanceof kind)) throw new Error(`The page has no ${selector}.`);
    return found;
}

// Puts other children into a place. A button of it that had the focus leaves it to the one that stands there now,
// or to `otherwise`, so that who works by keys goes on from there.
export function redraw(place: HTMLElement, children: readonly Node[], otherwise?: HTMLElement): void {
    const buttons = (): HTMLElement[] => [...place.querySelectorAll('button')];
    const at = buttons().findIndex((button) => button === document.activeElement);
    place.replaceChildren(...children);
    if (at < 0) return;
    const left = buttons();
    (left[Math.min(at, left.length - 1)] ?? otherwise)?.focus();
}

// "1 event", "1,000 events".
export const counted = (number: number, word: string): string =>
    `${number.toLocaleString('en')} ${word}${number === 1 ? '' : 's'}`;

// A text in which `code` stands between backticks.
export const prose = (text: string): Child[] =>
    text.split('`').map((part, index) => (index % 2 === 1 ? make('code', {}, part) : part));
