// The page begins: the engine loads while the desk is laid out, then the piece is opened.
import { makeInterface } from './api/script_interface';
import { showActions } from './app/actions';
import { begin } from './app/beginning';
import { arrangeDesk } from './app/desk';
import { showPanels } from './app/panels';
import { showPicture } from './app/picture_view';
import { soundPanel } from './app/sound_panel';
import { valuesPanel } from './app/values_panel';
import { createEditor } from './editor/editor';
import { showMistakes } from './editor/mistakes';
import { startComputing } from './engine/computing';
import { connectEngine } from './engine/connecting';
import { listenToDrops } from './files/open';
import { startAutosave } from './keep/autosave';
import { showManual } from './learn/manual';
import { holdOffline } from './offline/offline';
import { seedsPanel } from './seeds/seeds';
import { slidersPanel } from './seeds/sliders';
import { Sounding } from './sound/sounding';
import { createAppStore } from './state/app_state';
import { find } from './ui/dom';
import { showExpansion } from './ui/expansion';
import { closeThoseOfPiece } from './ui/notices';
import { showProblems } from './ui/problems';
import { showStatus } from './ui/status';
import { showTabs } from './ui/tabs';
import { showTransport } from './ui/transport';
import { followWatchedFile } from './watch/watching';

const engine = connectEngine();
const store = createAppStore();
const autosave = startAutosave(store);
arrangeDesk(store);
const computing = startComputing(store, engine);
const editor = createEditor(store, find('#editor', HTMLElement), []);
const sounding = new Sounding(store, engine);
showTabs(store);
showMistakes(store, editor);
showProblems(store, editor, computing);
showExpansion(store, engine);
const view = showPicture(store, editor, sounding);
showPanels(store, {
    values: valuesPanel(store),
    seeds: seedsPanel(store, editor),
    sliders: slidersPanel(store, editor),
    sound: soundPanel(store),
});
showTransport(store, sounding);
showActions({ store, editor, sounding, autosave, engine });
showStatus(store);
showManual(store, autosave);
listenToDrops(store, autosave);
store.watch((state) => state.pieceNumber, closeThoseOfPiece);

const parts = { store, computing, view, sounding, autosave, engine, held: holdOffline() };
void begin(store, autosave).then(() => {
    window.vornPlayground = makeInterface(parts);
    void followWatchedFile(store, autosave);
});
