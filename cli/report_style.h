#pragma once

#include <string_view>

namespace cli {

/// The look of a report page, on a screen and on paper.
inline constexpr std::string_view kReportStyle = R"css(
:root { color-scheme: light; }
* { box-sizing: border-box; }
body {
  max-width: 62rem; margin: 0 auto; padding: 2rem 1.5rem 3rem; color: #1f2933; background: #fff;
  font: 15px/1.5 system-ui, "Segoe UI", "Noto Sans", "Noto Sans CJK SC", "Microsoft YaHei",
    sans-serif;
}
header { border-bottom: 2px solid #1f2933; padding-bottom: 1rem; margin-bottom: 1.5rem; }
h1 { font-size: 1.9rem; line-height: 1.2; margin: 0; overflow-wrap: anywhere; }
h2 { font-size: 1.15rem; margin: 2rem 0 .6rem; }
h3 { font-size: .85rem; margin: .9rem 0 .3rem; color: #52606d; font-weight: 600; }
p { margin: .3rem 0; }
.kind, .facts, .note { color: #52606d; }
.kind { margin: 0 0 .2rem; }
.notice { border-left: 4px solid #2f7d4f; background: #f0f7f2; padding: .7rem 1rem; }
.notice.bad { border-color: #b42318; background: #fdf3f2; }
.notice ul { margin: .4rem 0 0; padding-left: 1.2rem; }
.badge { font-size: .8rem; font-weight: 600; color: #52606d; white-space: nowrap; }
.badge.normal { color: #2f7d4f; }
.badge.abnormal { color: #b42318; }
table { border-collapse: collapse; width: 100%; table-layout: fixed; }
th, td {
  text-align: left; vertical-align: top; padding: .28rem .9rem .28rem 0;
  border-bottom: 1px solid #e4e7eb; overflow-wrap: anywhere;
}
thead th { color: #52606d; font-size: .85rem; font-weight: 600; }
tbody th { font-weight: 400; color: #52606d; width: 14rem; }
.tests th:first-child { width: 17rem; }
.tests th:nth-child(2) { width: 10rem; }
tbody + tbody::before { content: ""; display: block; height: .8rem; }
tr.heading td { font-weight: 600; padding-top: .6rem; }
td.code, th.code { width: 6rem; text-align: right; padding-right: 0;
  font-variant-numeric: tabular-nums; }
.results { columns: 3 14rem; list-style: none; margin: 0; padding: 0; column-gap: 2rem; }
.results li {
  display: flex; justify-content: space-between; gap: 1rem; break-inside: avoid;
  border-bottom: 1px solid #e4e7eb; padding: .28rem 0;
}
.category { border-top: 1px solid #cbd2d9; margin-top: 1.6rem; }
.category h2 { margin-top: 1rem; }
.category h2 .badge { margin-left: .6rem; }
.chart { display: block; width: 100%; height: auto; }
.chart text { font-size: 11px; fill: #52606d; }
.chart .middle { text-anchor: middle; }
.chart .end { text-anchor: end; }
.chart .level { stroke: #cbd2d9; fill: none; }
.chart .normal, .key.normal { fill: #8fc3a3; background: #8fc3a3; }
.chart .abnormal, .key.abnormal { fill: #b42318; background: #b42318; }
.key { display: inline-block; width: .7rem; height: .7rem; margin: 0 .35rem 0 1rem; }
.key:first-child { margin-left: 0; }
footer { margin-top: 2.5rem; color: #52606d; font-size: .85rem; }
@media print {
  body { max-width: none; padding: 0; font-size: 10.5pt; }
  h2, h3 { break-after: avoid; }
  tr, .notice, .chart { break-inside: avoid; }
  .notice, .key { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
)css";

}  // namespace cli
