#include "sysdiagnose/ui/items/detect_row.h"

#include "platform/duilib/culture/culture.h"
#include "sysdiagnose/ui/items/status_sign.h"

namespace orv::sysdiagnose {
namespace {

constexpr std::uint32_t kPassedColour = 0xFF1ECF53;
constexpr std::uint32_t kAbnormalColour = 0xFFFF3320;

std::wstring Resolve(const wchar_t* id) {
  return DuiLib::UICulture::GetInstance()->GetString(id);
}

}  // namespace

DetectRow::DetectRow(DuiLib::CContainerUI& ofTree, const tagHardwareDetectInfo& announcement,
                     const std::function<void()>& ticked)
    : tree(ofTree),
      title(FindBelow<DuiLib::CLabelUI>(&tree, L"txtTitle")),
      result(FindBelow<DuiLib::CLabelUI>(&tree, L"txtResult")),
      choice(FindBelow<DuiLib::COptionUI>(&tree, L"optChoose")),
      sign(FindBelow<DuiLib::CFrameAnimationUI>(&tree, L"ctlStatus")),
      command(announcement.repairCommand),
      repairFailureText(announcement.repairFailureText) {
  if (title != nullptr) title->SetText(announcement.caption);
  if (result != nullptr) plainColour = result->GetStyle().looks[0].text.value_or(plainColour);
  ShowText(L"", plainColour);
  ShowSign(sign, StatusSign::AtWork);
  if (choice == nullptr) return;
  choice->SetVisible(false);
  choice->SetNotifyHook([ticked](DuiLib::TNotifyUI& notification) {
    if (notification.type == DuiLib::kNotifySelectChanged && ticked) ticked();
    return false;
  });
}

void DetectRow::ShowResult(const tagDetectItemDetail& detail, const std::wstring& withoutHint,
                           const std::wstring& toDo) {
  if (title != nullptr) title->SetText(detail.caption);
  code = detail.code;
  isAbnormal = !detail.normal;
  hint = detail.hint.empty() ? withoutHint : detail.hint;
  if (detail.normal)
    ShowText(L"", kPassedColour);
  else
    ShowText(hint, toDo, kAbnormalColour);
  ShowSign(sign, detail.normal ? StatusSign::RowPassed : StatusSign::RowAbnormal);
}

void DetectRow::ShowHeading() {
  ShowSign(sign, StatusSign::None);
}

void DetectRow::ShowUntested(const std::wstring& reason) {
  ShowText(reason, plainColour);
  ShowSign(sign, StatusSign::None);
}

void DetectRow::OfferRepair() {
  if (choice == nullptr || !isAbnormal || command.empty()) return;
  isOffered = true;
  choice->SetVisible(true);
  choice->Selected(true, false);
}

void DetectRow::WithdrawRepair() {
  isOffered = false;
  if (choice != nullptr) choice->SetVisible(false);
}

void DetectRow::EnableChoice(bool enabled) {
  if (choice != nullptr) choice->SetEnabled(enabled);
}

tagRepairItemInfo DetectRow::GetRepair() const {
  return {Resolve(L"IDS_HARDWARE_DETECT_ITEM_REPAIR_COMMAND"), true, command,
          std::to_wstring(code)};
}

void DetectRow::ShowRepairing() {
  ShowText(Resolve(L"IDS_HARDWARE_DETECT_ITEM_OPERATING"), plainColour);
  ShowSign(sign, StatusSign::AtWork);
}

void DetectRow::ShowRepaired(bool repaired) {
  if (repaired) {
    isAbnormal = false;
    WithdrawRepair();
    ShowText(Resolve(L"IDS_HARDWARE_DETECT_ITEM_OPERAT_SUCCESS"), kPassedColour);
  } else {
    ShowText(Resolve(L"IDS_HARDWARE_DETECT_ITEM_OPERAT_FAIL"), hint, kAbnormalColour);
  }
  ShowSign(sign, repaired ? StatusSign::RowPassed : StatusSign::RowAbnormal);
}

void DetectRow::StopSign() {
  if (sign != nullptr) sign->Stop();
}

void DetectRow::ShowText(const std::wstring& text, const std::wstring& toolTip,
                         const DuiLib::Colour& colour) {
  if (result == nullptr) return;
  result->SetText(text);
  result->SetToolTip(toolTip);
  result->SetTextColour(colour);
}

}  // namespace orv::sysdiagnose
