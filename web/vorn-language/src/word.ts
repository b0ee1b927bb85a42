/** A word of the language, as `vornkit words --format json` describes it. */
export interface Word {
    readonly word: string;
    /** What it is; one spelling may be several words. */
    readonly kind: string;
    readonly signature: string;
    readonly text: string;
    readonly example: string;
    readonly any_case: boolean;
    /** That may directly follow the word: "0-7". */
    readonly digits?: string;
}
