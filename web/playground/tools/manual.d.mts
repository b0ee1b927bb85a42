// What the manual's pages are, for tests in TypeScript.
import type { ManualPage } from '../src/learn/manual';
import type { TextFile } from '../src/state/piece';

export function manualPages(
    docs: string,
    isSilent?: (text: string, files: readonly TextFile[]) => boolean,
): ManualPage[];
