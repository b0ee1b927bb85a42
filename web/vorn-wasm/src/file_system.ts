import {
    ConsoleStdout,
    Directory,
    File,
    Inode,
    OpenFile,
    PreopenDirectory,
    wasi,
} from '@bjorn3/browser_wasi_shim';
import type { Files } from './types.js';

// The files of one run, in memory. Those of the shim are copied whole by every write
// beyond their end; these have room to spare.

class GrowingOpenFile extends OpenFile {
    override fd_write(data: Uint8Array): { ret: number; nwritten: number } {
        const end = Number(this.file_pos) + data.byteLength;
        if (end > this.file.data.byteLength) this.file.data = enlarged(this.file.data, end);
        return super.fd_write(data);
    }
}

/** The same bytes in an array of `size`, in a buffer that is at least half full. */
function enlarged(data: Uint8Array, size: number): Uint8Array {
    if (data.byteOffset === 0 && data.buffer.byteLength >= size) return new Uint8Array(data.buffer, 0, size);
    const room = new Uint8Array(2 * size);
    room.set(data);
    return room.subarray(0, size);
}

class GrowingFile extends File {
    override path_open(oflags: number, rights: bigint, flags: number): ReturnType<File['path_open']> {
        const opened = super.path_open(oflags, rights, flags);
        if (opened.fd_obj === null) return opened;
        return { ret: opened.ret, fd_obj: new GrowingOpenFile(this) };
    }
}

class GrowingDirectory extends Directory {
    override create_entry_for_path(
        path: string,
        isDirectory: boolean,
    ): ReturnType<Directory['create_entry_for_path']> {
        const made = super.create_entry_for_path(path, isDirectory);
        if (!(made.entry instanceof File)) return made;
        const file = new GrowingFile(new Uint8Array());
        return put(this, path, file) ? { ret: made.ret, entry: file } : made;
    }
}

/** Takes everything and keeps nothing. */
class NullDevice extends Inode {
    private readonly descriptor = new ConsoleStdout(() => undefined);

    override path_open(): ReturnType<Inode['path_open']> {
        return { ret: wasi.ERRNO_SUCCESS, fd_obj: this.descriptor };
    }

    override stat(): wasi.Filestat {
        return new wasi.Filestat(this.ino, wasi.FILETYPE_CHARACTER_DEVICE, 0n);
    }
}

/** Puts a file where its path says; false where a folder of the path is none. */
function put(root: Directory, path: string, file: File): boolean {
    const names = path.split('/').filter((name) => name !== '' && name !== '.');
    const last = names.pop();
    if (last === undefined) return false;
    let folder = root;
    for (const name of names) {
        const inner = folder.contents.get(name) ?? new Directory(new Map());
        if (!(inner instanceof Directory)) return false;
        folder.contents.set(name, inner);
        folder = inner;
    }
    folder.contents.set(last, file);
    return true;
}

/** Folders of the engine, not of its callers. */
const OWN_FOLDERS = ['tmp', 'dev'];
const encoder = new TextEncoder();

export function bytesOf(text: string | Uint8Array): Uint8Array {
    return typeof text === 'string' ? encoder.encode(text) : text;
}

/** The root of the module's file system; its files change from run to run. */
export class FileSystem {
    readonly root = new PreopenDirectory('/', new Map());

    constructor() {
        this.clear();
    }

    clear(): void {
        this.root.dir = new GrowingDirectory(
            new Map([
                ['tmp', new Directory(new Map())],
                ['dev', new Directory(new Map([['null', new NullDevice()]]))],
            ]),
        );
    }

    /** Throws a TypeError for a name that no file can have. */
    fill(files: Files): void {
        this.clear();
        for (const [name, text] of Object.entries(files)) {
            const isNamed = /^[^\0]+$/.test(name) && !name.split('/').includes('..') && !name.endsWith('/');
            if (!isNamed || !put(this.root.dir, name, new GrowingFile(bytesOf(text).slice()))) {
                throw new TypeError(`no file can be called "${name}"`);
            }
        }
    }

    read(name: string): Uint8Array | undefined {
        return this.all()[name];
    }

    /** Every file by its path, those for the run's own use left out. */
    all(): Record<string, Uint8Array> {
        const files: Record<string, Uint8Array> = {};
        collect(this.root.dir, '', files);
        return files;
    }
}

function collect(folder: Directory, prefix: string, files: Record<string, Uint8Array>): void {
    for (const [name, entry] of folder.contents) {
        if (entry instanceof File) files[prefix + name] = entry.data;
        else if (entry instanceof Directory && !OWN_FOLDERS.includes(prefix + name)) {
            collect(entry, `${prefix}${name}/`, files);
        }
    }
}
