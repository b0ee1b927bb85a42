import { resultOf } from './answer.js';
import { diagnosticOf, type Places } from './diagnostics.js';
import type { CompilationAnswer, PerformanceAnswer } from './engine_answer.js';
import { EngineModule, type Address } from './module.js';
import { makeRequest } from './request.js';
import type {
    CommandResult,
    CompileOptions,
    Explanation,
    Files,
    PerformanceReport,
    Result,
    Vorn,
    Word,
} from './types.js';

// The engine in this thread. One instance serves call after call; one that has failed is
// dropped, and the next call begins with a new one.

class VornEngine implements Vorn {
    private engine: EngineModule | null = null;
    private places: Places | null = null; // of the last compilation

    constructor(private readonly module: WebAssembly.Module) {}

    get memoryBytes(): number {
        return this.engine?.memoryBytes ?? 0;
    }

    compile(files: Files, options: CompileOptions = {}): Result {
        const begin = performance.now();
        const request = makeRequest(files, options);
        return this.withEngine((engine) => {
            this.places = null;
            engine.files.fill(files);
            const answer = engine.call('vorn_compile', request.text) as CompilationAnswer;
            const { result, places } = resultOf(engine, answer, request);
            this.places = places;
            engine.files.clear();
            return { ...result, milliseconds: performance.now() - begin };
        });
    }

    expandedLines(file: string, line: number): string[] {
        if (this.places === null) return [];
        return this.withEngine((engine) => engine.call('vorn_expanded_lines', file, line) as string[]);
    }

    performance(output: string): PerformanceReport {
        return this.withEngine((engine) => {
            const answer = engine.call('vorn_performance', output) as PerformanceAnswer;
            const places = this.places;
            const diagnostics = places ? answer.diagnostics.map((one) => diagnosticOf(one, places)) : [];
            return { ...answer, diagnostics };
        });
    }

    explain(code: string): Explanation | null {
        return this.withEngine((engine) => {
            const answer = engine.call('vorn_explain', code) as { explanations: Explanation[] };
            return answer.explanations[0] ?? null;
        });
    }

    explanations(): Explanation[] {
        return this.withEngine(
            (engine) => (engine.ask('vorn_explanations') as { explanations: Explanation[] }).explanations,
        );
    }

    words(): Word[] {
        return this.withEngine((engine) => (engine.ask('vorn_words') as { words: Word[] }).words);
    }

    run(files: Files, args: readonly string[]): CommandResult {
        return this.withEngine((engine) => {
            engine.files.fill(files);
            const answer = engine.call('vorn_run', args.map((argument) => `${argument}\0`).join('')) as {
                status: number;
                out: Address;
                err: Address;
            };
            const result = {
                status: answer.status,
                out: engine.bytes(answer.out),
                err: engine.bytes(answer.err),
                files: Object.fromEntries(
                    Object.entries(engine.files.all()).map(([name, bytes]) => [name, bytes.slice()]),
                ),
            };
            engine.files.clear();
            return result;
        });
    }

    private withEngine<Value>(work: (engine: EngineModule) => Value): Value {
        this.engine ??= new EngineModule(this.module);
        try {
            return work(this.engine);
        } catch (error) {
            this.engine = null;
            this.places = null;
            throw error;
        }
    }
}

/** The engine from a compiled module, wherever that came from. */
export function createVorn(module: WebAssembly.Module): Vorn {
    return new VornEngine(module);
}
