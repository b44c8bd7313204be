#pragma once

#include <string_view>

namespace cli {

/// The look of a report page: on a wide or narrow screen, light or dark as its reader prefers, and
/// on paper.
inline constexpr std::string_view kReportStyle = R"css(
:root {
  color-scheme: light;
  --ink: #1f2933; --soft: #52606d; --line: #e4e7eb; --rule: #cbd2d9; --paper: #fff;
  --good: #2f7d4f; --good-paper: #f0f7f2; --good-bar: #8fc3a3;
  --bad: #b42318; --bad-paper: #fdf3f2; --lacking: #8a5a00; --lacking-paper: #fdf8ec; --lacking-bar: #e3c583;
}
@media screen and (prefers-color-scheme: dark) {
  :root {
    color-scheme: dark;
    --ink: #e4e7eb; --soft: #a3b0bd; --line: #323f4b; --rule: #52606d; --paper: #161b21;
    --good: #7fcf9c; --good-paper: #1b2a21; --good-bar: #4f8f67;
    --bad: #ff9b8f; --bad-paper: #33201e; --lacking: #f0c060; --lacking-paper: #2e2818; --lacking-bar: #8a7440;
  }
}
* { box-sizing: border-box; }
body {
  max-width: 62rem; margin: 0 auto; padding: 2rem 1.5rem 3rem; color: var(--ink);
  background: var(--paper); overflow-wrap: anywhere;
  font: 15px/1.5 system-ui, "Segoe UI", "Noto Sans", "Noto Sans CJK SC", "Microsoft YaHei",
    sans-serif;
}
header { border-bottom: 2px solid var(--ink); padding-bottom: 1rem; margin-bottom: 1.5rem; }
h1 { font-size: 1.9rem; line-height: 1.2; margin: 0; }
h2 { font-size: 1.15rem; margin: 2rem 0 .6rem; }
h3 { font-size: .85rem; margin: .9rem 0 .3rem; color: var(--soft); font-weight: 600; }
p { margin: .3rem 0; }
.kind, .facts, .note { color: var(--soft); }
.kind { margin: 0 0 .2rem; }
.notice { border-left: 4px solid var(--good); background: var(--good-paper); padding: .7rem 1rem; }
.notice.bad { border-color: var(--bad); background: var(--bad-paper); }
.notice.lacking { border-color: var(--lacking); background: var(--lacking-paper); }
.notice h2 { margin: .2rem 0; }
.notice ul { margin: .4rem 0 0; padding-left: 1.2rem; }
.notice li { margin: .3rem 0; }
.badge { font-size: .8rem; font-weight: 600; color: var(--lacking); white-space: nowrap; }
.badge.left { color: var(--soft); }
.badge.normal { color: var(--good); }
.badge.abnormal { color: var(--bad); }
table { border-collapse: collapse; width: 100%; table-layout: fixed; }
th, td {
  text-align: left; vertical-align: top; padding: .28rem .9rem .28rem 0;
  border-bottom: 1px solid var(--line);
}
thead th { color: var(--soft); font-size: .85rem; font-weight: 600; }
tbody th { font-weight: 400; width: 14rem; color: var(--soft); }
.tests tbody th { color: inherit; }
.tests th:first-child { width: 17rem; }
.tests th:nth-child(2) { width: 10rem; }
tbody + tbody::before { content: ""; display: block; height: .8rem; }
tr.heading th { font-weight: 600; padding-top: .6rem; }
td.code, th.code { width: 6rem; text-align: right; padding-right: 0;
  font-variant-numeric: tabular-nums; }
.results { columns: 3 14rem; list-style: none; margin: 0; padding: 0; column-gap: 2rem; }
.results li {
  display: flex; justify-content: space-between; gap: 1rem; break-inside: avoid;
  border-bottom: 1px solid var(--line); padding: .28rem 0;
}
.category { border-top: 1px solid var(--rule); margin-top: 1.6rem; }
.category h2 { margin-top: 1rem; }
.category h2 .badge { margin-left: .6rem; }
.past { overflow-x: auto; direction: rtl; }
.chart { display: block; width: 100%; height: auto; direction: ltr; }
.chart text { font-size: 11px; fill: var(--soft); }
.chart .middle { text-anchor: middle; }
.chart .end { text-anchor: end; }
.chart .level { stroke: var(--rule); fill: none; }
.chart .normal, .key.normal { fill: var(--good-bar); background: var(--good-bar); }
.chart .untested, .key.untested { fill: var(--lacking-bar); background: var(--lacking-bar); }
.chart .abnormal, .key.abnormal { fill: var(--bad); background: var(--bad); }
.key { display: inline-block; width: .7rem; height: .7rem; margin: 0 .35rem 0 1rem; }
.key:first-child { margin-left: 0; }
footer { margin-top: 2.5rem; color: var(--soft); font-size: .85rem; }
@media screen and (max-width: 40rem) {
  body { padding: 1rem 1rem 2rem; }
  h1 { font-size: 1.5rem; }
  .results { columns: auto; }
  .chart { width: 46rem; max-width: none; }
  table, tbody, tr, tbody th, td { display: block; }
  thead { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%); }
  tr { border-bottom: 1px solid var(--line); padding: .4rem 0; }
  tbody th, tbody td, .tests tbody th { width: auto; border: 0; padding: 0; text-align: left; }
  td:empty { display: none; }
  .tests tbody tr { display: grid; grid-template-columns: minmax(0, 1fr) auto; column-gap: 1rem; }
  .tests tbody td:nth-child(n + 3), tr.heading th { grid-column: 1 / -1; }
  td.code { width: auto; text-align: left; }
  tr:has(.badge.normal) td.code { display: none; }
  td.code::before { content: attr(data-name) " "; color: var(--soft); }
}
@media print {
  body { max-width: none; padding: 0; font-size: 10.5pt; }
  h2, h3, tr.heading { break-after: avoid; }
  tr, li, .notice p, .chart { break-inside: avoid; }
  thead { display: table-header-group; }
  .notice, .key, .chart rect { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
)css";

}  // namespace cli
