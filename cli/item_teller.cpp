#include "cli/item_teller.h"

#include <utility>

namespace cli {

using namespace orv::sysdiagnose;

ItemTeller::ItemTeller(RunPrinter& told) : printer(told) {
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
  printer.ItemResult(category, detail, words);
}

void ItemTeller::End() {
  TakeForHeading();
  EndHeading();
}

void ItemTeller::Hear(const HardwareDetect::AnswerWords& answer) {
  const ItemWords words{answer.text, answer.notTested};
  if (words.IsEmpty() || std::this_thread::get_id() != runThread) return;
  if (open)
    open->words = words;
  else
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
  if (!ended.hasItems)
    printer.ItemUntested(ended.category, ended.caption, ended.words);
  else if (!ended.words.IsEmpty() && !ended.wordsShown)
    printer.HeadingWords(ended.category, ended.caption, ended.words);
}

}  // namespace cli
