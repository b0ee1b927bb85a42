// The one place where the page's state lives. It is changed by named actions and watched by slices: who
// watches a slice is called when it has become another value, once for each change.
export interface Store<State> {
    readonly state: Readonly<State>;
    // `change` gets a copy of nothing: it returns the fields that are new.
    act(name: string, change: (state: Readonly<State>) => Partial<State>): void;
    watch<Slice>(slice: (state: Readonly<State>) => Slice, onChange: (now: Slice) => void): () => void;
}

interface Watcher<State> {
    check(state: Readonly<State>): void;
}

export function createStore<State extends object>(initial: State): Store<State> {
    let state: Readonly<State> = initial;
    const watchers = new Set<Watcher<State>>();

    return {
        get state() {
            return state;
        },
        act(_name, change) {
            state = { ...state, ...change(state) };
            for (const watcher of [...watchers]) watcher.check(state);
        },
        watch(slice, onChange) {
            let before = slice(state);
            const watcher: Watcher<State> = {
                check(now) {
                    const after = slice(now);
                    if (Object.is(after, before)) return;
                    before = after;
                    onChange(after);
                },
            };
            watchers.add(watcher);
            return () => watchers.delete(watcher);
        },
    };
}
