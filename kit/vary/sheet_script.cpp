#include "kit/vary/sheet_parts.h"

// Without the script the page still shows all variants and their numbers. One tile is
// in the order of the Tab key, the one where the arrows are; marks outlast a reload.

namespace vorn::kit {

const char* const SHEET_SCRIPT = R"js("use strict";
(() => {
  const find = (id) => document.getElementById(id);
  const list = find("tiles"), sound = find("sound"), command = find("command");
  const all = [...list.querySelectorAll(".mark")];
  const numbers = new Map(all.filter((mark) => mark.dataset.number).map((mark) => [mark.dataset.number, mark]));
  const memory = "vornkit vary " + command.dataset.command + location.pathname;
  let showsMarked = false;

  const shown = () => all.filter((mark) => !mark.parentElement.hidden);
  const isMarked = (mark) => mark.getAttribute("aria-pressed") === "true";
  const marked = () => [...numbers.keys()].filter((number) => isMarked(numbers.get(number)));

  const remember = (chosen) => {
    try { localStorage.setItem(memory, chosen.join(",")); } catch { /* a page without storage forgets */ }
  };
  const recall = () => {
    try { return (localStorage.getItem(memory) || "").split(","); } catch { return []; }
  };

  const refresh = () => {
    const chosen = marked();
    if (chosen.length === 0) showsMarked = false;
    find("choice").hidden = chosen.length === 0;
    document.body.classList.toggle("has-choice", chosen.length > 0);
    find("count").textContent = chosen.length + " marked";
    command.textContent = command.dataset.command + chosen.join(",");
    find("only").setAttribute("aria-pressed", String(showsMarked));
    for (const mark of all) mark.parentElement.hidden = showsMarked && !isMarked(mark);
    remember(chosen);
  };
  const setMark = (mark, on) => mark.setAttribute("aria-pressed", String(on));
  const toggle = (mark) => {
    if (!mark.dataset.number) return;
    setMark(mark, !isMarked(mark));
    refresh();
    if (mark.parentElement.hidden && shown().length) focusOn(shown()[0]);
  };

  const focusOn = (mark) => {
    for (const other of all) other.tabIndex = other === mark ? 0 : -1;
    mark.focus({ preventScroll: true });
  };
  const columns = (marks) => {
    const top = marks[0].parentElement.offsetTop;
    const next = marks.findIndex((mark) => mark.parentElement.offsetTop !== top);
    return next < 0 ? marks.length : next;
  };
  const steps = {
    ArrowLeft: () => -1, ArrowRight: () => 1,
    ArrowUp: (marks) => -columns(marks), ArrowDown: (marks) => columns(marks),
    Home: () => -Infinity, End: () => Infinity,
  };
  const move = (mark, key) => {
    const marks = shown(), at = marks.indexOf(mark), to = at + steps[key](marks);
    const isOutside = to < 0 || to >= marks.length;
    if (isOutside && key.startsWith("Arrow")) return;
    const next = marks[Math.max(0, Math.min(marks.length - 1, to))];
    focusOn(next);
    next.scrollIntoView({ block: "nearest" });
  };

  const stop = () => {
    sound.pause();
    const tile = list.querySelector(".playing");
    if (!tile) return;
    tile.classList.remove("playing");
    const button = tile.querySelector(".play");
    button.setAttribute("aria-label", button.getAttribute("aria-label").replace("Stop", "Play"));
  };
  const play = (tile) => {
    const button = tile.querySelector(".play"), isPlaying = tile.classList.contains("playing");
    stop();
    if (!button || isPlaying) return;
    sound.src = button.dataset.sound;
    tile.classList.add("playing");
    button.setAttribute("aria-label", button.getAttribute("aria-label").replace("Play", "Stop"));
    sound.play().catch((reason) => { if (reason.name !== "AbortError") stop(); });
    requestAnimationFrame(() => follow(tile));
  };
  const follow = (tile) => {
    if (!tile.classList.contains("playing")) return;
    const width = parseFloat(tile.querySelector("img").style.width);
    const part = sound.duration > 0 ? sound.currentTime / sound.duration : 0;
    tile.querySelector(".head").style.left = part * width + "%";
    requestAnimationFrame(() => follow(tile));
  };

  list.addEventListener("keydown", (event) => {
    const mark = event.target.closest(".mark");
    if (!mark || event.ctrlKey || event.altKey || event.metaKey) return;
    if (event.key in steps) move(mark, event.key);
    else if (event.key === " ") play(mark.parentElement);
    else return;
    event.preventDefault();
  });
  list.addEventListener("keyup", (event) => { if (event.key === " ") event.preventDefault(); });
  list.addEventListener("click", (event) => {
    const button = event.target.closest("button");
    if (!button) return;
    if (button.classList.contains("play")) play(button.parentElement);
    else { focusOn(button); toggle(button); }
  });
  sound.addEventListener("ended", stop);
  sound.addEventListener("error", stop);

  const copied = async () => {
    try { await navigator.clipboard.writeText(command.textContent); return true; } catch { /* the older way */ }
    getSelection().selectAllChildren(command);
    return document.execCommand("copy");
  };
  find("copy").addEventListener("click", async (event) => {
    const button = event.currentTarget;
    button.textContent = await copied() ? "Copied" : "Press Ctrl+C";
    setTimeout(() => { button.textContent = "Copy"; }, 2000);
  });
  find("only").addEventListener("click", () => { showsMarked = !showsMarked; refresh(); });
  find("clear").addEventListener("click", () => {
    for (const mark of numbers.values()) setMark(mark, false);
    refresh();
    if (all.length) focusOn(all[0]);
  });

  for (const mark of all) mark.tabIndex = -1;
  if (all.length) all[0].tabIndex = 0;
  for (const number of recall()) if (numbers.has(number)) setMark(numbers.get(number), true);
  refresh();
})();
)js";

}  // namespace vorn::kit
