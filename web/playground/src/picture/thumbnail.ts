// A small picture of a result, for galleries and shelves: the roll and the strokes alone.
import type { Result } from 'vorn-wasm';
import { drawEvents } from './events';
import { layOut } from './layout';
import { Raster } from './raster';
import { makeScene } from './scene';
import { tonesNow } from './theme';

export function drawThumbnail(canvas: HTMLCanvasElement, result: Result): void {
    const { width, height } = canvas;
    const context = canvas.getContext('2d');
    if (!context) return;
    const all = makeScene(result);
    const scene = { ...all, fields: [], tempo: { ...all.tempo, moves: false } };
    // It begins below the brackets and has no names at its left.
    const { bracketBand } = layOut(scene, new Set(), width, height);
    const top = bracketBand.top + bracketBand.height;
    const layout = { ...layOut(scene, new Set(), width, height + top), gutter: 0 };
    const raster = new Raster(width, height);
    const span = { from: 0, to: Math.max(result.seconds, 0.1) };
    drawEvents(raster, { scene, layout, span, tones: tonesNow(), hidden: new Set(), scale: 1, scroll: top });
    raster.put(context, 0, 0);
}

export function thumbnailAddress(result: Result, width = 240, height = 96): string {
    const canvas = document.createElement('canvas');
    canvas.width = width;
    canvas.height = height;
    drawThumbnail(canvas, result);
    return canvas.toDataURL('image/png');
}
