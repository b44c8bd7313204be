#include "cli/run_summary.h"

#include <cstdio>
#include <utility>

#include "cli/commands.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "cli/verdict_line.h"
#include "sysdiagnose/engine/advice.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

constexpr std::size_t kCategoryIndent = 2;
constexpr std::size_t kLineIndent = 4;
constexpr std::size_t kDetailIndent = 6;

void Print(const AttentionLine& line, bool repairOffered) {
  const std::wstring heading = line.Heading();
  const std::wstring toDo =
      JoinedSentences(line.WhatToDo(), repairOffered ? Text(L"REPAIR_OFFERED") : std::wstring());
  const std::wstring between = heading.empty() || toDo.empty() ? std::wstring() : Text(L"COLON");
  std::puts(Indented(heading + between + toDo, kLineIndent).c_str());
  for (const std::wstring& detail : line.details)
    std::puts(Indented(detail, kDetailIndent).c_str());
}

void PrintAttention(const std::vector<Attention>& attention) {
  if (attention.empty()) return;
  std::printf("\n%s\n", Coloured(Colour::Bold, Line(L"ATTENTION")).c_str());
  for (const Attention& each : attention) {
    std::printf("  %s\n", Coloured(Colour::Red, Printable(CaptionOf(each.category))).c_str());
    for (const AttentionLine& line : each.lines) Print(line, each.repairOffered);
  }
}

void PrintUntested(const RunVerdicts& verdicts) {
  bool isFirst = true;
  for (const CategoryVerdict& each : verdicts.All()) {
    if (each.verdict != Verdict::NotTested || !each.isReached) continue;
    if (std::exchange(isFirst, false))
      std::printf("\n%s\n", Coloured(Colour::Bold, Line(L"UNTESTED")).c_str());
    const std::wstring reason = each.reason.empty() ? L"" : Text(L"COLON") + each.reason;
    std::puts(Indented(CaptionOf(each.category) + reason, kCategoryIndent).c_str());
  }
}

}  // namespace

void PrintRunSummary(const RunVerdicts& verdicts, const AttentionList& attention) {
  PrintAttention(attention.Of(verdicts));
  PrintUntested(verdicts);
  if (verdicts.All().empty()) return;
  if (verdicts.CountOfReached() < verdicts.All().size()) {
    std::printf("\n%s\n", TestedLine(verdicts).c_str());
    return;
  }
  const Verdict worst = verdicts.Worst();
  if (worst == Verdict::Abnormal) return;
  const bool isAll = worst != Verdict::NotTested;
  std::printf("\n%s\n", Coloured(isAll ? Colour::Green : Colour::Yellow,
                                 Indented(Text(isAll ? L"ALL_NORMAL" : L"SOME_UNTESTED"), 0))
                            .c_str());
}

}  // namespace cli
