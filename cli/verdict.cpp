#include "cli/verdict.h"

#include <algorithm>

#include "platform/duilib/culture/culture.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

struct VerdictRow {
  Verdict verdict;
  const char* name;
  const wchar_t* words;  // string id
};

constexpr auto kVerdicts =
    std::to_array<VerdictRow>({{Verdict::NotThere, "notThere", L"IDS_HARDWARE_REPORT_NOT_THERE"},
                               {Verdict::Normal, "normal", L"IDS_HARDWARE_REPORT_NORMAL"},
                               {Verdict::NotTested, "notTested", L"IDS_HARDWARE_REPORT_NO_RESULT"},
                               {Verdict::Abnormal, "abnormal", L"IDS_HARDWARE_REPORT_ABNORMAL"}});

constexpr bool InOrder() {
  for (std::size_t i = 0; i < kVerdicts.size(); ++i)
    if (kVerdicts[i].verdict != static_cast<Verdict>(i)) return false;
  return kVerdicts.size() == static_cast<std::size_t>(Verdict::Count);
}
static_assert(InOrder());

const VerdictRow& RowOf(Verdict verdict) {
  return kVerdicts.at(static_cast<std::size_t>(verdict));
}

}  // namespace

const char* NameOf(Verdict verdict) {
  return RowOf(verdict).name;
}

std::wstring WordsOf(Verdict verdict) {
  return DuiLib::UICulture::GetInstance()->GetString(RowOf(verdict).words);
}

Verdict VerdictOf(const tagDetectItemDetail& detail, const ItemWords& words) {
  if (!detail.normal) return Verdict::Abnormal;
  return detail.caption.empty() || !words.notTested.empty() ? Verdict::NotTested : Verdict::Normal;
}

RunVerdicts::RunVerdicts(const std::vector<enmHardwareID>& selection) {
  for (const enmHardwareID category : selection)
    if (Find(category) == nullptr) categories.emplace_back().category = category;
}

void RunVerdicts::Reach(const CategoryVerdict& reached) {
  const auto known = std::ranges::find(categories, reached.category, &CategoryVerdict::category);
  if (known == categories.end()) return;
  const bool isWorse = !known->isReached || reached.verdict > known->verdict;
  const Verdict ifRepaired = std::max(known->ifRepaired, reached.ifRepaired);
  if (isWorse) *known = reached;
  known->ifRepaired = ifRepaired;
  known->isReached = true;
}

void RunVerdicts::Took(enmHardwareID category, std::chrono::milliseconds time) {
  const auto known = std::ranges::find(categories, category, &CategoryVerdict::category);
  if (known != categories.end()) known->took = time;
}

void RunVerdicts::Repair(enmHardwareID category) {
  const auto known = std::ranges::find(categories, category, &CategoryVerdict::category);
  if (known == categories.end() || known->verdict != Verdict::Abnormal) return;
  known->verdict = known->ifRepaired;
  known->reason.clear();
}

const CategoryVerdict* RunVerdicts::Find(enmHardwareID category) const {
  const auto known = std::ranges::find(categories, category, &CategoryVerdict::category);
  return known == categories.end() ? nullptr : &*known;
}

Verdict RunVerdicts::Worst() const {
  const auto worst = std::ranges::max_element(categories, {}, &CategoryVerdict::verdict);
  return worst == categories.end() ? Verdict::NotTested : worst->verdict;
}

std::size_t RunVerdicts::CountOf(Verdict verdict) const {
  return static_cast<std::size_t>(
      std::ranges::count(categories, verdict, &CategoryVerdict::verdict));
}

std::size_t RunVerdicts::CountOfTested() const {
  return CountOf(Verdict::Normal) + CountOf(Verdict::Abnormal);
}

std::size_t RunVerdicts::CountOfReached() const {
  return static_cast<std::size_t>(
      std::ranges::count(categories, true, &CategoryVerdict::isReached));
}

}  // namespace cli
