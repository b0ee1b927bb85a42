// What the engine takes and gives. Everything is plain data that passes between a
// page and its Worker; times are seconds unless something else is said.
//
//     const result = await vorn.compile({ 'piece.vorn': text });
//     result.status === 0 ? draw(result.blocks) : show(result.diagnostics);

/** Named texts: the score and what it includes. A string is written as UTF-8. */
export type Files = Record<string, string | Uint8Array>;

/** What is made beside messages, blocks and diagnostics, which always are. */
export type Output =
    | 'score' // the Csound score, as `vorn` writes it
    | 'midi' // the MIDI file of the first block, as `vorn -m` writes it
    | 'fullMidi' // the MIDI file of all blocks, a track for each instrument
    | 'picture' // an SVG document
    | 'json' // every event as JSON
    | 'csv' // every event as CSV
    | 'builtIn' // an orchestra for a score that has none, with the score that it plays
    | 'expansion'; // every line after macros and constants, as `vorn -x` writes it

export interface CompileOptions {
    /** The file that is the score; by default the first one. */
    readonly main?: string;
    /** Takes the place of the first seed, 0 to 65535. */
    readonly seed?: number;
    /** By default the score alone. */
    readonly outputs?: readonly Output[];
    /** Includes are looked up beside the including file. By default by their name alone. */
    readonly relative?: boolean;
    /** `-s`: warnings, and notes on generators, are left out of the messages. */
    readonly quiet?: boolean;
    /** `-t`: the tempo map at work is told on `trace`. */
    readonly trace?: boolean;
    /** Codes of notes that are left out, such as "L1". */
    readonly ignore?: readonly string[];
    /** The P-fields with pitch and level; by default they are found. */
    readonly roles?: { readonly pitch?: number; readonly level?: number };
    readonly picture?: PictureOptions;
    /** Rests in `json` and `csv`, too. */
    readonly rests?: boolean;
    /** False: no event tables, for who wants the mistakes only. */
    readonly events?: boolean;
}

export interface PictureOptions {
    readonly title?: string;
    readonly width?: number; // pixels
    readonly theme?: 'automatic' | 'light' | 'dark';
    readonly from?: number;
    readonly to?: number;
}

export interface Result {
    /** 0: well; 1: the score was refused. */
    readonly status: 0 | 1;
    /** Standard error of `vorn`, its banner included. */
    readonly messages: string;
    /** Standard output of `vorn`: what `-t` and traces of generators tell. */
    readonly trace: string;
    /** Errors, warnings and notes, each where it stands. */
    readonly diagnostics: readonly Diagnostic[];
    readonly blocks: readonly Block[];
    /** The latest end of any event. */
    readonly seconds: number;
    readonly eventCount: number;
    readonly tempo: TempoCurve;
    readonly constants: readonly Constant[];
    readonly macros: readonly Macro[];
    /** Where the first seed stands or would be written; null where it cannot be replaced. */
    readonly seed: Seed | null;
    /** The files that were read, by the names under which they were found. */
    readonly sources: readonly string[];
    /** Names under which an included file was looked for and not found. */
    readonly missing: readonly string[];
    /** Milliseconds that the engine has worked. */
    readonly milliseconds: number;

    // What was asked for; a refused score has `json`, `expansion` and the beginning of `score`.
    readonly score?: Uint8Array;
    readonly midi?: Uint8Array;
    /** Error of `midi`, which reads the score once more: a second run may refuse what the first took. */
    readonly midiMessages?: string;
    readonly fullMidi?: Uint8Array;
    /** What a MIDI file cannot hold as it is, a sentence each. */
    readonly fullMidiRemarks?: readonly string[];
    readonly picture?: string;
    readonly json?: Uint8Array;
    readonly csv?: Uint8Array;
    readonly builtIn?: BuiltIn;
    readonly expansion?: Uint8Array;
}

/**
 * Characters [from, to) of a file, counted as strings count them (UTF-16). Lines and
 * columns count from 1, columns in characters; the end is the first place behind.
 */
export interface Place {
    readonly file: string;
    readonly line: number;
    readonly column: number;
    readonly endLine: number;
    readonly endColumn: number;
    readonly from: number;
    readonly to: number;
}

export type Severity = 'error' | 'warning' | 'lint';

export interface Diagnostic {
    readonly severity: Severity;
    /** "E27", "W10", "L1", "Einclude": what `explain` knows. */
    readonly code: string;
    /** That of the code; null where it has none. */
    readonly number: number | null;
    readonly text: string;
    readonly place: Place | null;
    /** The line, or of a long one what stands around the mark. */
    readonly source: Excerpt | null;
    /** Where the place came out of macros or constants. */
    readonly expansion: ExpansionOf | null;
    readonly notes: readonly { readonly text: string; readonly place: Place | null }[];
    /** What to write, one idea each. */
    readonly advice: readonly string[];
    /** A cure that is certain; null where there is none. */
    readonly fix: Fix | null;
    /** How many times in turn it was said. */
    readonly repeats: number;
}

/** Columns [column, endColumn) of the text are meant, counted from 1. */
export interface Excerpt {
    readonly text: string;
    readonly column: number;
    readonly endColumn: number;
}

/** The line that the mark stands in once calls have given way to their texts, and lines around it. */
export interface ExpansionOf {
    readonly before: readonly string[];
    readonly line: Excerpt;
    readonly after: readonly string[];
    /** The outermost first. */
    readonly calls: readonly Call[];
}

export interface Call {
    readonly kind: 'macro' | 'constant' | 'equation' | 'time';
    readonly name: string;
    readonly place: Place | null;
}

/** Edits that cure a mistake together; their places are those of the text before. */
export interface Fix {
    /** What it does, as a label of a button: "write `bf4`". */
    readonly title: string;
    readonly edits: readonly { readonly place: Place; readonly replacement: string }[];
}

export interface Block {
    /** As in the score's comment; 0: it has none there. */
    readonly number: number;
    readonly instrument: number;
    /** Its instrument is negative: it has no events. */
    readonly isSkipped: boolean;
    /** The "i" of the header. */
    readonly header: Place | null;
    /** Behind the "}". */
    readonly end: Place | null;
    // Of these four one that is not finite is NaN.
    readonly startBeat: number;
    /** Beats; below 0 minus the number of events. */
    readonly length: number;
    /** When it begins, and when its last event ends. */
    readonly startSeconds: number;
    readonly endSeconds: number;
    /** Of the whole result, counted through all blocks. */
    readonly firstEvent: number;
    readonly eventCount: number;
    /** P2 and above, by number. */
    readonly fields: readonly Field[];
    /** The P-fields with pitch and level; null: there is none. */
    readonly pitch: { readonly pfield: number; readonly unit: PitchUnit } | null;
    readonly level: { readonly pfield: number; readonly unit: LevelUnit } | null;
    readonly events: EventTable;
}

export type PitchUnit = 'semitones' | 'key' | 'hertz' | 'octavePitchClass';
export type LevelUnit = 'amplitude' | 'decibels' | 'fraction';

export interface Field {
    /** 5: P5. */
    readonly pfield: number;
    /** As a score names them: "no", "rh", "nu" ... */
    readonly inputType: string;
    readonly outputType: string;
    readonly role: 'start' | 'duration' | 'pitch' | 'level' | null;
    /** The "p" of the statement. */
    readonly statement: Place | null;
    /** Digits behind the point in the score. */
    readonly decimals: number;
}

/** Events by columns, each as long as `size`. A duration of 0 or less is a rest. */
export interface EventTable {
    readonly size: number;
    /** As the score has it, summed in single precision. */
    readonly start: Float32Array;
    /** The same intervals summed in double precision. */
    readonly exactStart: Float64Array;
    readonly duration: Float32Array;
    readonly beat: Float32Array;
    /** P4, P5 and so on. */
    readonly columns: readonly Float32Array[];
    /** MIDI keys with fractions, 60 is middle c; NaN: no pitch. Empty: the block has none. */
    readonly keys: Float32Array;
    /** Decibels, 0 for the largest amplitude; minus infinity is silence. Empty: the block has none. */
    readonly levels: Float32Array;
}

/** Points of a line over time, in rising order. Empty: there are no events. */
export interface TempoCurve {
    /** False: one tempo all along. */
    readonly moves: boolean;
    readonly seconds: Float64Array;
    readonly beats: Float64Array;
    /** Beats per minute. */
    readonly tempos: Float64Array;
}

export interface Constant {
    readonly name: string;
    readonly value: number;
    /** Of the value as it was written. */
    readonly place: Place | null;
    /** How often it was called by name, outside of equations. */
    readonly calls: number;
}

export interface Macro {
    readonly name: string;
    readonly argumentCount: number;
    readonly body: string;
    /** Where the body begins. */
    readonly place: Place | null;
}

/** With `before + value + after` in the place of [from, to) of the file the score has another seed. */
export interface Seed {
    readonly value: number | null; // null: none is written
    readonly place: Place | null;
    readonly before: string;
    readonly after: string;
}

export interface BuiltIn {
    readonly orchestra: string;
    readonly score: string;
}

/** What Csound printed during a performance, with the blocks that it is about. */
export interface PerformanceReport {
    readonly diagnostics: readonly Diagnostic[];
    /** Complaints about no block: the orchestra, files. */
    readonly otherLines: readonly string[];
    readonly hasStarted: boolean;
    readonly hasEnded: boolean;
    /** 1: full scale, may be above. */
    readonly peak: number;
    /** Samples above full scale. */
    readonly clipped: number;
}

/** What is told of a code to who wants to know more. */
export interface Explanation {
    readonly code: string;
    readonly title: string;
    readonly cause: string;
    readonly cure?: string;
    /** A score in which it occurs, and the same without the mistake. */
    readonly score?: string;
    readonly cured?: string;
    readonly unprovoked?: string;
}

/** A word of the language. One spelling may be several words: what it is says where it may stand. */
export interface Word {
    readonly word: string;
    /** "generator", "input-type", "curve" ... */
    readonly kind: string;
    /** The form in which it is written, with what belongs to it. */
    readonly signature: string;
    readonly text: string;
    readonly example: string;
    /** Upper-case letters mean the same. */
    readonly any_case: boolean;
    /** That may directly follow the word: "0-7". */
    readonly digits?: string;
}

/** A run of the command `vorn`, file by file. */
export interface CommandResult {
    readonly status: number;
    /** Standard output and standard error. */
    readonly out: Uint8Array;
    readonly err: Uint8Array;
    /** The files that the run has left, the given ones among them. */
    readonly files: Record<string, Uint8Array>;
}

/** The engine in the same thread (`loadVorn`). */
export interface Vorn {
    compile(files: Files, options?: CompileOptions): Result;
    /** A line of the last compilation, after macros and constants, once for each time that it was
     * read. Lines count from 1. */
    expandedLines(file: string, line: number): string[];
    /** What Csound (-m4) printed while it performed the last compilation. */
    performance(output: string): PerformanceReport;
    /** Null: there is no such code. "e27", "27" and "[E27]" are "E27". */
    explain(code: string): Explanation | null;
    /** All codes, in the order of a table. */
    explanations(): Explanation[];
    /** The words of the language, as `vornkit words --format json` prints them. */
    words(): Word[];
    /** The command itself: `vorn.run(files, ['-m', 'in.vorn', 'out.mid'])`. */
    run(files: Files, args: readonly string[]): CommandResult;
    /** Bytes of memory that the engine holds. */
    readonly memoryBytes: number;
}

/** What can be asked of an engine. */
export type VornMethods = Omit<Vorn, 'memoryBytes'>;

type Promised<Call> = Call extends (...args: infer Arguments) => infer Value
    ? (...args: Arguments) => Promise<Value>
    : never;

/** Who waits for an answer no longer than so long, or not any more. */
export interface Patience {
    /** Milliseconds from when the engine is loaded; then it is ended and begun anew. */
    readonly deadline?: number;
    readonly signal?: AbortSignal;
}

/**
 * The same in a Worker (`connectVorn`). Requests are answered in turn. One that outlasts its
 * deadline, is aborted while it runs or fells the engine is rejected with a `VornError`; the Worker is
 * then replaced by a new one, and requests behind it go on there.
 */
export interface VornClient {
    compile(files: Files, options?: CompileOptions, patience?: Patience): Promise<Result>;
    readonly expandedLines: Promised<Vorn['expandedLines']>;
    readonly performance: Promised<Vorn['performance']>;
    readonly explain: Promised<Vorn['explain']>;
    readonly explanations: Promised<Vorn['explanations']>;
    readonly words: Promised<Vorn['words']>;
    readonly run: Promised<Vorn['run']>;
    /** Ends the Worker; what still waits is rejected. */
    close(): void;
}

export type VornErrorReason =
    | 'deadline' // it took too long
    | 'aborted' // nobody waits for it any more
    | 'memory' // the score needs more memory than there is
    | 'engine' // the engine itself has failed
    | 'closed';

export interface VornErrorLike extends Error {
    readonly reason: VornErrorReason;
}
