export const MARKUP: string;
export const TEXTS: Readonly<Record<string, Record<string, string>>>;
