#include "sysdiagnose/ui/items/ctl_detect_item.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/duilib/culture/culture.h"
#include "sysdiagnose/engine/advice.h"
#include "sysdiagnose/ui/items/status_sign.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CControlUI;

std::wstring Resolve(const wchar_t* id) {
  return DuiLib::UICulture::GetInstance()->GetString(id);
}

// Tests of these categories may fail without a hint.
const wchar_t* FailureText(enmHardwareID category) {
  if (category == enmHardwareID::Memory) return L"IDS_HARDWARE_DIAGNOSE_MEM_FAILED";
  if (category == enmHardwareID::Disk) return L"IDS_HARDWARE_DIAGNOSE_DISK_FAILED";
  return L"IDS_HARDWARE_DIAGNOSE_TEST_FAILED";
}

// The hint with what completes it, so that the owner knows what to do.
std::wstring ToDo(enmHardwareID category, const tagDetectItemDetail& detail) {
  const std::wstring hint =
      detail.hint.empty() ? Resolve(FailureText(category)) : HintForOwner(category, detail.hint);
  return JoinedSentences(hint, AdviceText(category, detail.caption, detail.code));
}

}  // namespace

CtlDetectItem::CtlDetectItem(DuiLib::CContainerUI& ofTree, DuiLib::CPaintManagerUI* ofManager,
                             enmHardwareID id, std::function<void()> ticked)
    : FoldingItem(ofTree, ofManager, DetectCatalogue::Instance().Find(id)),
      category(id),
      tickedHook(std::move(ticked)),
      sign(FindBelow<DuiLib::CFrameAnimationUI>(Find<CControlUI>(L"lytTitle"), L"ctlStatus")),
      abnormalType(Find<CControlUI>(L"txtAbnormalType")) {
  ShowSign(sign, StatusSign::AtWork);
  ShowAbnormalType(L"");
}

// A disk is announced as the heading of its tests. One that cannot be read has none: two more
// announcements, or the category's end, come without a result.
void CtlDetectItem::AddTest(const tagHardwareDetectInfo& announcement) {
  auto row = BuildContainer(GetManager(), DetectRow::kLayout);
  if (row == nullptr) return;
  if (waiting.size() == 2) ShowUntested(1);
  waiting.push_back(&tests.emplace_back(*row, announcement, tickedHook));
  AddRow(std::move(row));
}

// A result without a caption says that there was nothing to test.
void CtlDetectItem::ShowResult(const tagDetectItemDetail& detail) {
  if (waiting.empty()) return;
  if (detail.caption.empty() && detail.normal)
    waiting.back()->ShowUntested(Resolve(L"IDS_HARDWARE_DIAGNOSE_DISK_NONE"));
  else
    waiting.back()->ShowResult(detail, Resolve(FailureText(category)), ToDo(category, detail));
  waiting.pop_back();
  if (waiting.empty()) return;
  waiting.back()->ShowHeading();
  waiting.pop_back();
  ShowUntested(waiting.size());
}

// The first so many of those that wait.
void CtlDetectItem::ShowUntested(std::size_t count) {
  const auto end = waiting.begin() + static_cast<std::ptrdiff_t>(count);
  for (auto row = waiting.begin(); row != end; ++row)
    (*row)->ShowUntested(Resolve(L"IDS_HARDWARE_DIAGNOSE_DISK_UNREADABLE"));
  waiting.erase(waiting.begin(), end);
}

void CtlDetectItem::ShowUnknown(const std::wstring& text) {
  ShowAbnormalType(text);
}

void CtlDetectItem::OfferRepairs() {
  for (DetectRow& row : tests) row.OfferRepair();
}

void CtlDetectItem::ShowVerdict(bool normal) {
  ShowUntested(waiting.size());
  if (normal) ShowAbnormalType(L"");
  ShowSign(sign, normal ? StatusSign::ItemPassed : StatusSign::ItemAbnormal);
}

bool CtlDetectItem::HasOffers() const {
  return std::any_of(tests.begin(), tests.end(),
                     [](const DetectRow& row) { return row.IsOffered(); });
}

std::vector<tagRepairItemInfo> CtlDetectItem::ChosenRepairs() const {
  std::vector<tagRepairItemInfo> repairs;
  for (const DetectRow& row : tests)
    if (row.IsChosen()) repairs.push_back(row.GetRepair());
  return repairs;
}

void CtlDetectItem::EnableChoices(bool enabled) {
  for (DetectRow& row : tests) row.EnableChoice(enabled);
}

void CtlDetectItem::BeginRepairs() {
  repairing.clear();
  advice = tests.empty() ? L"" : tests.front().GetRepairFailureText();
  for (DetectRow& row : tests)
    if (row.IsChosen()) repairing.push_back(&row);
  ShowSign(sign, StatusSign::AtWork);
}

CControlUI* CtlDetectItem::ShowNextRepair() {
  if (repairing.empty()) return nullptr;
  repairing.front()->ShowRepairing();
  return &repairing.front()->GetTree();
}

void CtlDetectItem::ShowRepairResult(bool repaired) {
  if (repairing.empty()) return;
  repairing.front()->ShowRepaired(repaired);
  if (!repaired && advice.empty()) advice = repairing.front()->GetHint();
  repairing.pop_front();
}

void CtlDetectItem::ShowRepairVerdict(bool repaired) {
  ShowVerdict(repaired);
  if (repaired) {
    for (DetectRow& row : tests) row.WithdrawRepair();
  } else {
    ShowAbnormalType(advice);
  }
}

void CtlDetectItem::StopSigns() {
  if (sign != nullptr) sign->Stop();
  for (DetectRow& row : tests) row.StopSign();
}

void CtlDetectItem::ShowAbnormalType(const std::wstring& text) {
  if (abnormalType == nullptr) return;
  abnormalType->SetText(text);
  abnormalType->SetToolTip(text);
  abnormalType->SetVisible(!text.empty());
}

}  // namespace orv::sysdiagnose
