#include "sysdiagnose/ui/history/date_entries.h"

#include "common/text.h"
#include "platform/duilib/controls/option.h"
#include "sysdiagnose/ui/history/date_label.h"
#include "sysdiagnose/ui/history/item_parts.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CControlUI;
using DuiLib::CLabelUI;
using DuiLib::Colour;
using DuiLib::COptionUI;

constexpr const wchar_t* kText = L"txt_hardware_his";

struct Gradient {
  std::uint32_t from;
  std::uint32_t to;
};

constexpr Gradient kChosen{0xB47B6EF9, 0xB42D78FC};
constexpr Gradient kUnseen{0x7B6EF9, 0x2D78FC};  // without alpha

// Fonts and colours of the theme for the text of an entry.
constexpr int kFont = 0;
constexpr int kChosenFont = 5;
constexpr const wchar_t* kColour = L"ink";
constexpr const wchar_t* kChosenColour = L"on-accent";

void SetSelectedGradient(CControlUI& control, const Gradient& gradient) {
  DuiLib::Look look = control.GetStyle().selectedLooks[0];
  look.background = Colour(gradient.from);
  look.gradientEnd = Colour(gradient.to);
  control.SetLook(DuiLib::ControlState::kRest, true, look);
}

// An entry with the number of its run, or behind the last run one without.
class Entry {
 public:
  Entry(std::size_t run, DuiLib::CContainerUI& column, DuiLib::CPaintManagerUI* manager)
      : parts(L"layout\\sysdiagnose_archievement_date.xml", column, manager),
        option(parts.Find<COptionUI>(L"opt_hardware_his")),
        button(parts.Find<DuiLib::CButtonUI>(L"btn_hardware_his")) {
    if (option != nullptr) option->SetName(DateOptionName(run));
    if (option != nullptr) option->SetUserData(std::to_wstring(run));
    if (button != nullptr) button->SetName(std::wstring(kDateButton) + std::to_wstring(run));
    if (button != nullptr) button->SetUserData(DateOptionName(run));
    if (auto* const text = parts.Find<CControlUI>(kText)) text->SetUserData(std::to_wstring(run));
  }

  void Show(const HistoryRecord& run, std::int32_t midnight) const {
    parts.SetText(kText, DateLabel(run.secondTime, midnight));
    if (option != nullptr) SetSelectedGradient(*option, kChosen);
    if (button != nullptr) button->SetToolTip(common::Utf8ToWide(run.date));
  }

  void KeepPlace() const {
    parts.SetText(kText, L"");
    if (button != nullptr) button->SetEnabled(false);
    if (option == nullptr) return;
    option->SetGradient(Colour(kUnseen.from), Colour(kUnseen.to));
    SetSelectedGradient(*option, kUnseen);
    option->SetEnabled(false);
  }

 private:
  ItemParts parts;
  COptionUI* const option;
  DuiLib::CButtonUI* const button;
};

}  // namespace

std::wstring DateOptionName(std::size_t run) {
  return std::wstring(kDateOption) + std::to_wstring(run);
}

void FillDateEntries(DuiLib::CContainerUI& column, const std::vector<HistoryRecord>& runs,
                     DuiLib::CPaintManagerUI* manager) {
  const std::int32_t midnight = LastMidnight();
  column.RemoveAll();
  for (std::size_t run = runs.size(); run-- > 0;)
    Entry(run, column, manager).Show(runs[run], midnight);
  for (std::size_t run = runs.size(); run < kDateEntries; ++run)
    Entry(run, column, manager).KeepPlace();
}

void MarkChosenEntry(DuiLib::CContainerUI& column) {
  for (std::size_t index = 0; index < column.GetCount(); ++index) {
    CControlUI* const entry = column.GetItemAt(index);
    auto* const text = FindBelow<CLabelUI>(entry, kText);
    if (text == nullptr) continue;
    const std::wstring optionName = std::wstring(kDateOption) + text->GetUserData();
    const auto* const option = FindBelow<COptionUI>(entry, optionName.c_str());
    const bool chosen = option != nullptr && option->IsSelected();
    text->SetFont(chosen ? kChosenFont : kFont);
    text->SetTextColour(Colour::Named(chosen ? kChosenColour : kColour));
  }
  column.NeedLayout();
}

}  // namespace orv::sysdiagnose
