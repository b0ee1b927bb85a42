// Files come as what browsers and later Nodes have at hand, and Node 18 keeps in a module.

import { File } from 'node:buffer';

if (!('File' in globalThis)) Object.assign(globalThis, { File });
