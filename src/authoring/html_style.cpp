#include "authoring/html_style.h"

namespace zev {

const char* previewStyle() {
    return R"(
:root { color-scheme: light dark; --ink: #1b2230; --paper: #fff; --dim: #5a6577; --line: #c9d1dc; --screen: #f5f7fa;
  --link: #0b57b0; --error: #a8161e; --lost: #ffe08a; --beyond: #ffc9c4; --symbol: #d5e3ff }
@media (prefers-color-scheme: dark) { :root { --ink: #e4e8ef; --paper: #12161e; --dim: #9aa6b8; --line: #3a4454;
  --screen: #1a202b; --link: #8ab8ff; --error: #ff8f8a; --lost: #6b5200; --beyond: #7a2320; --symbol: #264a80 } }
* { box-sizing: border-box }
body { margin: 0 auto; padding: 1rem; max-width: 76rem; font: 16px/1.5 system-ui, sans-serif; color: var(--ink);
  background: var(--paper) }
h1, h2, h3, h4 { line-height: 1.25; margin: 1.6em 0 .5em }
h1 { margin-top: .5em; overflow-wrap: anywhere }
.losses { white-space: nowrap }
h4 { margin: 1em 0 .3em; font-size: 1em; color: var(--dim) }
a { color: var(--link) }
a:focus-visible, .screen:focus-visible { outline: 3px solid var(--link); outline-offset: 2px }
.skip { position: absolute; left: -999rem }
.skip:focus { left: 1rem; background: var(--paper); padding: .5rem }
.table, .screen { overflow-x: auto }
table { border-collapse: collapse; min-width: 100% }
caption { text-align: left; color: var(--dim); padding-bottom: .4rem }
th, td { text-align: left; vertical-align: top; padding: .3rem .8rem .3rem 0; border-bottom: 1px solid var(--line) }
.number { text-align: right; font-variant-numeric: tabular-nums }
th.number, td.number { padding-right: 2rem }
ul.findings { padding-left: 1.2rem }
.error { color: var(--error); font-weight: 600 }
nav a { margin-right: 1rem }
pre { margin: 0; padding: .6em 0; border: solid var(--line); border-width: 1px 2px 1px 1px; background: var(--screen);
  font: 13px/1.4 "DejaVu Sans Mono", "Noto Sans Mono", "Noto Sans Mono CJK JP", ui-monospace, Menlo, Consolas, monospace;
  direction: ltr; unicode-bidi: bidi-override; tab-size: 8; width: max-content }
.at40 pre { min-width: calc(40ch + 3px) } .at80 pre { min-width: calc(80ch + 3px) }
.at132 pre { min-width: calc(132ch + 3px) }
pre { position: relative }
pre::after { content: ""; position: absolute; top: 0; bottom: 0; border-left: 1px dashed var(--dim) }
.at40 pre::after { left: 40ch } .at80 pre::after { left: 80ch } .at132 pre::after { left: 132ch }
pre b { display: inline-block; width: calc(var(--n) * 2ch); letter-spacing: calc(2ch - 1em); font-weight: inherit;
  white-space: pre; vertical-align: top; line-height: 1.4; height: 1.4em }
mark, .lost { background: var(--lost); color: inherit }
pre u, .beyond { background: var(--beyond); text-decoration: none }
pre i, .symbol { background: var(--symbol); font-style: normal }
.legend span { padding: 0 .4em; margin-right: 1rem }
.sign { display: none }
@media print {
  :root { --ink: #000; --paper: #fff; --dim: #444; --line: #999; --screen: #fff; --link: #000; --error: #000;
    --lost: #ddd; --beyond: #bbb; --symbol: #ddd }
  @page { margin: 15mm }
  body { padding: 0; font-size: 10pt; max-width: none }
  nav, .skip, .at40, .at132 { display: none }
  a { text-decoration: none }
  section.language { break-before: page }
  h2, h3, h4 { break-after: avoid }
  h4 + .screen { break-inside: avoid }
  .table, .screen { overflow: visible }
  pre { font-size: 8.5pt }
  mark, pre u, pre i { border-bottom: 1.5pt solid #000; -webkit-print-color-adjust: exact; print-color-adjust: exact }
  .sign { display: flex; gap: 2rem; margin-top: 3rem; break-inside: avoid }
  .sign span { flex: 1; border-top: 1px solid #000; padding-top: .3rem }
}
)";
}

}  // namespace zev
