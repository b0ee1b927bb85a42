// Csound in browsers comes without the opcode that keeps an instrument sounding from the beginning on;
// turnon in the orchestra's head does the same.
export const forBrowsers = (orchestra: string): string =>
    orchestra.replace(/^([ \t]*)alwayson([ \t]+("[^"\n]*"|\d+))[ \t]*(;.*)?$/gm, '$1turnon$2 $4');
