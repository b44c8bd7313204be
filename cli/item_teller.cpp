#include "cli/item_teller.h"

#include <algorithm>
#include <utility>

#include "cli/texts.h"
#include "sysdiagnose/engine/advice.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

std::wstring ReasonOf(enmHardwareID category, const tagDetectItemDetail& detail) {
  const std::wstring hint = HintForOwner(category, detail.hint);
  if (!hint.empty()) return hint;
  const std::wstring advice = AdviceText(category, detail.caption, detail.code);
  return advice.empty() ? detail.caption : advice;
}

}  // namespace

ItemTeller::ItemTeller(RunPrinter& told, RunVerdicts& noted) : printer(told), verdicts(noted) {
  HardwareDetect::SetAnswerObserver(
      [this](const HardwareDetect::AnswerWords& answer) { Hear(answer); });
}

ItemTeller::~ItemTeller() {
  HardwareDetect::SetAnswerObserver({});
}

void ItemTeller::ItemStart(enmHardwareID category, const tagHardwareDetectInfo& info) {
  TakeForHeading();
  if (heading && heading->category != category) EndHeading();
  runThread = std::this_thread::get_id();
  current = category;
  open = Announcement{category, info.caption, {}};
  printer.ItemStart(category, info);
}

void ItemTeller::ItemResult(enmHardwareID category, const tagDetectItemDetail& detail) {
  ItemWords words = open ? std::move(open->words) : ItemWords();
  open.reset();
  if (heading) {
    if (!std::exchange(heading->hasItems, true)) printer.Heading(category, heading->caption);
    if (!detail.normal && words.IsEmpty()) {
      words = heading->words;
      heading->wordsShown = true;
    }
  }
  if (!detail.normal)
    Note(Verdict::Abnormal, ReasonOf(category, detail));
  else if (!detail.caption.empty())
    Note(VerdictOf(detail, words), words.notTested);
  printer.ItemResult(category, detail, words);
}

void ItemTeller::EndCategory(enmHardwareID category, bool isNormal, const std::wstring& why) {
  End();
  if (!why.empty()) Note(Verdict::NotTested, why);
  CategoryVerdict ended = std::exchange(rows, std::nullopt).value_or(CategoryVerdict());
  if (!ended.isReached) ended.reason = Text(L"NOTHING_TO_TEST");
  if (!isNormal && ended.verdict != Verdict::Abnormal) {
    ended.verdict = Verdict::Abnormal;
    ended.reason = AdviceText(category, {}, 0);
  }
  ended.category = category;
  ended.isReached = true;
  verdicts.Reach(ended);
  printer.CategoryEnd(ended);
}

// The worst row gives the reason; of several the first that has one.
void ItemTeller::Note(Verdict verdict, const std::wstring& reason) {
  if (!rows) rows.emplace(CategoryVerdict{{}, Verdict::NotThere, {}, Verdict::Normal, true});
  if (verdict > rows->verdict) {
    rows->verdict = verdict;
    rows->reason = reason;
  } else if (verdict == rows->verdict && rows->reason.empty()) {
    rows->reason = reason;
  }
  if (verdict != Verdict::Abnormal) rows->ifRepaired = std::max(rows->ifRepaired, verdict);
}

void ItemTeller::End() {
  TakeForHeading();
  EndHeading();
}

void ItemTeller::Hear(const HardwareDetect::AnswerWords& answer) {
  const ItemWords words{answer.text, answer.notTested};
  if (words.IsEmpty() || std::this_thread::get_id() != runThread) return;
  if (open) {
    open->words = words;
    return;
  }
  if (!words.notTested.empty()) Note(Verdict::NotTested, words.notTested);
  printer.CategoryWords(current, words);
}

// An announcement that another one follows, instead of a result, may be a heading.
void ItemTeller::TakeForHeading() {
  if (!open) return;
  EndHeading();
  heading = std::exchange(open, std::nullopt);
}

void ItemTeller::EndHeading() {
  if (!heading) return;
  const Announcement ended = *std::exchange(heading, std::nullopt);
  if (!ended.hasItems) {
    Note(Verdict::NotTested, ended.words.notTested);
    printer.ItemUntested(ended.category, ended.caption, ended.words);
  } else if (!ended.words.IsEmpty() && !ended.wordsShown) {
    if (!ended.words.notTested.empty()) Note(Verdict::NotTested, ended.words.notTested);
    printer.HeadingWords(ended.category, ended.caption, ended.words);
  }
}

}  // namespace cli
