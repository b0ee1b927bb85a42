// What the documents become, for the build in TypeScript.
export function documentFiles(docs: string): { fileName: string; source: string }[];
