#include "kit/vary/sheet_parts.h"

// Quiet surroundings for the pictures: paper, hairlines, one colour for what is
// marked and one ring for where the keys are. Tiles keep a width that a thumb meets.

namespace vorn::kit {

const char* const SHEET_STYLE = R"css(:root {
  color-scheme: light dark;
  --paper: #f6f5f1; --card: #ffffff; --ink: #1c1e22; --muted: #5f646d; --line: #dedcd4;
  --accent: #005a9c; --on-accent: #ffffff; --bad: #a4262c; --shadow: 0 1px 2px rgb(0 0 0 / .06);
}
@media (prefers-color-scheme: dark) {
  :root {
    --paper: #131519; --card: #1c1f25; --ink: #eceae4; --muted: #a2a7b0; --line: #2e323a;
    --accent: #7cc4f5; --on-accent: #0b1520; --bad: #ff9a91; --shadow: none;
  }
}
* { box-sizing: border-box; }
html { scroll-padding: 1rem 0 9rem; }
body {
  margin: 0; background: var(--paper); color: var(--ink);
  font: 16px/1.45 system-ui, "Segoe UI", "Noto Sans", "DejaVu Sans", sans-serif;
  font-variant-numeric: tabular-nums;
}
body.has-choice { padding-bottom: 9rem; }
header {
  display: flex; flex-wrap: wrap; align-items: baseline; gap: .25rem 1.25rem;
  max-width: 110rem; margin: 0 auto; padding: 1.75rem clamp(1rem, 3vw, 2.5rem) 1.25rem;
}
h1 { margin: 0; font-size: 1.6rem; line-height: 1.2; font-weight: 650; letter-spacing: -.01em; overflow-wrap: anywhere; }
header p { margin: 0; color: var(--muted); }
header .keys { margin-left: auto; font-size: .875rem; }
kbd {
  display: inline-block; min-width: 1.7em; padding: 0 .4em; border: 1px solid var(--line); border-radius: 4px;
  background: var(--card); color: var(--ink); font: inherit; font-size: .8125rem; text-align: center;
}
main { max-width: 110rem; margin: 0 auto; padding: 0 clamp(1rem, 3vw, 2.5rem) 2rem; }
#tiles {
  display: grid; grid-template-columns: repeat(auto-fill, minmax(min(100%, 14rem), 1fr)); gap: .875rem;
  margin: 0; padding: 0; list-style: none;
}
.tile { position: relative; content-visibility: auto; contain-intrinsic-size: auto 9.5rem; }
.tile[hidden] { display: none; }
.mark {
  display: block; width: 100%; padding: .625rem .75rem .5rem; border: 1px solid var(--line); border-radius: 8px;
  background: var(--card); box-shadow: var(--shadow); color: inherit; font: inherit; text-align: left; cursor: pointer;
}
.mark:hover { border-color: var(--muted); }
.mark:focus-visible { outline: 3px solid var(--accent); outline-offset: -3px; }
.play:focus-visible, footer :focus-visible { outline: 3px solid var(--accent); outline-offset: 1px; }
.mark[aria-pressed="true"] { border-color: var(--accent); box-shadow: inset 0 0 0 1px var(--accent); }
.mark[aria-pressed="true"] b::after {
  content: "✓"; display: inline-block; width: 1.3rem; height: 1.3rem; margin-left: .5rem; border-radius: 50%;
  background: var(--accent); color: var(--on-accent); font-size: .8125rem; line-height: 1.3rem; text-align: center;
}
.roll { position: relative; display: block; height: 6rem; overflow: hidden; }
.roll img { position: absolute; left: 0; max-width: none; }
.head { position: absolute; top: 0; bottom: 0; left: 0; width: 2px; margin-left: -1px; background: var(--ink); opacity: 0; }
.playing .head { opacity: .8; }
.name {
  display: flex; align-items: baseline; gap: .5rem; min-height: 2.25rem; margin-top: .5rem; padding-top: .4rem;
  border-top: 1px solid var(--line);
}
.name b { font-size: 1.0625rem; font-weight: 650; }
.name small, .facts, .remark { color: var(--muted); font-size: .8125rem; }
.facts { margin-left: auto; white-space: nowrap; }
.tile:has(.play) .facts { margin-right: 2.25rem; }
.remark {
  position: absolute; top: .55rem; left: .7rem; padding: 0 .4rem; border-radius: 4px; background: var(--card);
  border: 1px solid var(--line);
}
.play {
  position: absolute; right: .5rem; bottom: .45rem; width: 2.25rem; height: 2.25rem; padding: 0;
  border: 0; border-radius: 50%; background: none; color: var(--accent); cursor: pointer;
}
.play:hover { background: color-mix(in srgb, var(--accent) 14%, transparent); }
.play::before {
  content: ""; display: block; width: .8rem; height: .9rem; margin: 0 auto; transform: translateX(.1rem);
  background: currentColor; clip-path: polygon(0 0, 100% 50%, 0 100%);
}
.playing .play::before { transform: none; width: .75rem; clip-path: polygon(0 0, 35% 0, 35% 100%, 65% 100%, 65% 0, 100% 0, 100% 100%, 0 100%); }
.refused .mark { background: none; border-style: dashed; cursor: default; }
.why { display: block; color: var(--bad); font-size: .8125rem; overflow-wrap: anywhere; }
footer {
  position: fixed; inset: auto 0 0; display: flex; flex-wrap: wrap; align-items: center; gap: .5rem 1rem;
  padding: .75rem clamp(1rem, 3vw, 2.5rem) max(.75rem, env(safe-area-inset-bottom));
  background: var(--card); border-top: 1px solid var(--line); box-shadow: 0 -4px 16px rgb(0 0 0 / .08);
}
footer[hidden] { display: none; }
footer p { margin: 0; font-weight: 650; white-space: nowrap; }
#command {
  flex: 1 1 16rem; min-width: 0; max-height: 3.4em; overflow: auto; padding: .4rem .6rem; border: 1px solid var(--line);
  border-radius: 6px; background: var(--paper); font: .875rem/1.4 ui-monospace, "DejaVu Sans Mono", monospace;
  white-space: pre-wrap; overflow-wrap: anywhere; user-select: all;
}
.buttons { display: flex; flex-wrap: wrap; gap: .5rem; }
.buttons button {
  padding: .4rem .8rem; border: 1px solid var(--line); border-radius: 6px; background: none; color: inherit;
  font: inherit; font-size: .875rem; cursor: pointer;
}
.buttons button:hover { border-color: var(--muted); }
#copy { border-color: var(--accent); background: var(--accent); color: var(--on-accent); }
#only[aria-pressed="true"] { border-color: var(--accent); color: var(--accent); }
@media (max-width: 40rem) {
  header .keys { margin-left: 0; }
  #tiles { grid-template-columns: repeat(auto-fill, minmax(min(100%, 9.25rem), 1fr)); gap: .625rem; }
  .roll { height: 4.5rem; }
  .facts { display: none; }
}
@media (hover: none) { header .keys { display: none; } }
@media print {
  footer, .keys, .play { display: none !important; }
  .tile { break-inside: avoid; content-visibility: visible; }
}
)css";

}  // namespace vorn::kit
