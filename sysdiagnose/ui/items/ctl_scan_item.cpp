#include "sysdiagnose/ui/items/ctl_scan_item.h"

#include "sysdiagnose/ui/page/control_tree.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CControlUI;

constexpr const wchar_t* kDetailLayout = L"layout\\sysdiagnose_scan_detail.xml";
constexpr std::uint32_t kSeparatorColour = 0xFFE5E5E5;
constexpr DuiLib::Insets kSeparatorPadding{0, 16, 0, 15};

}  // namespace

CtlScanItem::CtlScanItem(DuiLib::CContainerUI& ofTree, DuiLib::CPaintManagerUI* ofManager,
                         const DetectCategory* category)
    : FoldingItem(ofTree, ofManager, category), choice(Find<DuiLib::COptionUI>(L"optChoose")) {
  if (choice != nullptr) choice->SetVisible(false);
}

void CtlScanItem::AddDetail(const std::wstring& label, const std::wstring& value) {
  auto row = BuildContainer(GetManager(), kDetailLayout);
  if (auto* const text = FindBelow<CControlUI>(row.get(), L"txtTitle")) text->SetText(label);
  if (auto* const text = FindBelow<CControlUI>(row.get(), L"txtContent")) text->SetText(value);
  AddRow(std::move(row));
}

void CtlScanItem::AddSeparator() {
  auto line = std::make_unique<CControlUI>();
  line->SetFixedHeight(1);
  line->SetWidth(DuiLib::Length::Grow());
  line->SetPadding(kSeparatorPadding);
  line->SetBackground(DuiLib::Colour(kSeparatorColour));
  AddRow(std::move(line));
}

void CtlScanItem::OfferChoice() {
  if (choice == nullptr) return;
  choice->SetVisible(true);
  choice->Selected(true, false);
}

}  // namespace orv::sysdiagnose
