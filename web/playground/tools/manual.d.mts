// What the manual's pages are, for tests in TypeScript.
import type { ManualPage } from '../src/learn/manual';

export function manualPages(docs: string): ManualPage[];
