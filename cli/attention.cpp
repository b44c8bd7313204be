#include "cli/attention.h"

#include <algorithm>
#include <utility>

#include "cli/texts.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/engine/advice.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

std::wstring DeviceOf(enmHardwareID category) {
  const DetectCategory* shown = DetectCatalogue::Instance().Find(category);
  return shown == nullptr ? std::wstring() : shown->deviceSummary.Get();
}

void AddOnce(std::vector<std::wstring>& texts, const std::wstring& text) {
  if (!text.empty() && std::ranges::count(texts, text) == 0) texts.push_back(text);
}

bool AsksForTheSame(const AttentionLine& one, const AttentionLine& other) {
  return one.device == other.device && one.hint == other.hint && one.advice == other.advice;
}

}  // namespace

std::wstring AttentionLine::Heading() const {
  std::wstring heading = device;
  for (const std::wstring& item : items) heading += (heading.empty() ? L"" : Text(L"COMMA")) + item;
  return heading;
}

std::wstring AttentionLine::WhatToDo() const {
  return JoinedSentences(hint, advice);
}

void AttentionList::AddItem(enmHardwareID category, const std::wstring& device,
                            const tagDetectItemDetail& detail, const ItemWords& words) {
  AttentionLine line{device.empty() ? DeviceOf(category) : device,
                     {},
                     HintForOwner(category, detail.hint),
                     AdviceText(category, detail.caption, detail.code),
                     {}};
  std::vector<AttentionLine>& lines = Of(category).shown.lines;
  auto known = std::ranges::find_if(
      lines, [&line](const AttentionLine& each) { return AsksForTheSame(each, line); });
  if (known == lines.end()) known = lines.insert(lines.end(), std::move(line));
  AddOnce(known->items, detail.caption);
  AddOnce(known->details, words.detail);
}

void AttentionList::AddUnknown(enmHardwareID category, const std::wstring& text) {
  std::vector<AttentionLine>& lines = Of(category).shown.lines;
  if (lines.empty()) lines.push_back({DeviceOf(category), {}, {}, {}, {}});
  AttentionLine& line = lines.back();
  const bool isKnownWhatToDo = !line.advice.empty();
  line.hint = isKnownWhatToDo ? std::exchange(line.advice, Text(L"REST_LEFT_OUT")) : text;
}

void AttentionList::AddWords(enmHardwareID category, const ItemWords& words) {
  AddOnce(Of(category).said, words.detail);
}

void AttentionList::AddRepairOffer(enmHardwareID category) {
  Of(category).shown.repairOffered = true;
}

std::vector<Attention> AttentionList::Of(const RunVerdicts& verdicts) const {
  std::vector<Attention> shown;
  for (const CategoryVerdict& verdict : verdicts.All()) {
    if (verdict.verdict != Verdict::Abnormal) continue;
    const auto noted = std::ranges::find_if(categories, [&verdict](const Noted& each) {
      return each.shown.category == verdict.category;
    });
    Attention& attention = shown.emplace_back();
    attention.category = verdict.category;
    if (noted != categories.end()) attention = noted->shown;
    if (attention.lines.empty())
      attention.lines.push_back(
          {DeviceOf(verdict.category), {}, {}, AdviceText(verdict.category, {}, 0), {}});
    if (noted != categories.end())
      for (const std::wstring& said : noted->said) AddOnce(attention.lines.back().details, said);
  }
  return shown;
}

AttentionList::Noted& AttentionList::Of(enmHardwareID category) {
  const auto known = std::ranges::find_if(
      categories, [category](const Noted& each) { return each.shown.category == category; });
  if (known != categories.end()) return *known;
  Noted& added = categories.emplace_back();
  added.shown.category = category;
  return added;
}

}  // namespace cli
