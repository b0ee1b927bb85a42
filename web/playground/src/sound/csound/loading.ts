// Brings Csound into the page when sound is first asked for, and only once.
let program: Promise<WebAssembly.Module> | undefined;

async function load(address: string): Promise<WebAssembly.Module> {
    const answer = await fetch(address);
    if (!answer.ok || !answer.body) throw new Error('Csound could not be loaded.');
    const inflated = answer.body.pipeThrough(new DecompressionStream('deflate'));
    return WebAssembly.compileStreaming(
        new Response(inflated, { headers: { 'content-type': 'application/wasm' } }),
    );
}

export function csoundProgram(address: string): Promise<WebAssembly.Module> {
    program ??= load(address).catch((error: unknown) => {
        program = undefined;
        throw error;
    });
    return program;
}
