#include "sysdiagnose/ui/items/folding_item.h"

#include <algorithm>

#include "platform/duilib/controls/label.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CContainerUI;
using DuiLib::CControlUI;

constexpr const wchar_t* kFoldedIcon = L"file='drawable\\hardware\\ic_expansion_light.png'";
constexpr const wchar_t* kOpenIcon = L"file='drawable\\hardware\\ic_collapse_light.png'";
constexpr std::uint32_t kDescriptionColour = 0xFF7F7F7F;
constexpr int kDescriptionFont = 16;

}  // namespace

FoldingItem::FoldingItem(CContainerUI& ofTree, DuiLib::CPaintManagerUI* ofManager,
                         const DetectCategory* category)
    : tree(ofTree),
      manager(ofManager),
      title(Find<CControlUI>(L"lytTitle")),
      content(Find<CControlUI>(L"lytContent")),
      rows(Find<CContainerUI>(L"lytItems")) {
  if (category != nullptr) FillTitle(*category);
  if (rows != nullptr) rows->SetFixedHeight(kLeastRowsHeight);
  if (auto* const line = Find<CControlUI>(L"lytLine")) line->SetVisible(false);
  if (auto* const sign = Find<CControlUI>(L"btnFolder")) {
    sign->SetNotifyHook([this, life = std::weak_ptr(alive)](DuiLib::TNotifyUI& notification) {
      if (life.expired() || notification.type != DuiLib::kNotifyClick) return false;
      Toggle();
      return true;
    });
  }
  SetFold(Fold::kFolded);
}

FoldingItem::~FoldingItem() = default;

void FoldingItem::FillTitle(const DetectCategory& category) {
  if (auto* const icon = Find<CControlUI>(L"ctlSmallIcon")) icon->SetImage(category.smallIcon);
  if (auto* const icon = Find<CControlUI>(L"ctlBigIcon")) icon->SetImage(category.icon);
  if (auto* const name = Find<CControlUI>(L"txtName")) name->SetText(category.caption);
  if (auto* const description = Find<DuiLib::CLabelUI>(L"txtDescription")) {
    description->SetText(category.deviceSummary.Get());
    description->SetTextColour(DuiLib::Colour(kDescriptionColour));
    description->SetFont(kDescriptionFont);
  }
}

void FoldingItem::AddRow(std::unique_ptr<CControlUI> row) {
  if (rows == nullptr || row == nullptr) return;
  rows->Add(row.release());
  const int count = static_cast<int>(rows->GetCount());
  rows->SetFixedHeight(std::max(kRowHeight * count, kLeastRowsHeight));
  if (fold != Fold::kClosed) SetFold(Fold::kUnfolding);
}

bool FoldingItem::Unfold() {
  if (fold != Fold::kUnfolding) return true;
  height = std::min(height + kUnfoldingStep, OpenHeight());
  if (height == OpenHeight()) fold = Fold::kOpen;
  tree.SetFixedHeight(height);
  return fold == Fold::kOpen;
}

void FoldingItem::ShowLine() {
  if (auto* const line = Find<CControlUI>(L"lytLine")) line->SetVisible(true);
}

void FoldingItem::Toggle() {
  const bool wasUnfolding = fold == Fold::kUnfolding;
  SetFold(fold == Fold::kOpen ? Fold::kClosed : Fold::kOpen);
  if (wasUnfolding && unfolded) unfolded();
}

// An item that unfolds goes on from the height it has.
void FoldingItem::SetFold(Fold value) {
  fold = value;
  if (fold == Fold::kOpen) height = OpenHeight();
  if (IsFolded()) height = FoldedHeight();
  tree.SetFixedHeight(height);
  if (content != nullptr) content->SetVisible(!IsFolded());
  if (auto* const sign = Find<CControlUI>(L"ctlFolder"))
    sign->SetImage(IsFolded() ? kFoldedIcon : kOpenIcon);
}

int FoldingItem::FoldedHeight() const {
  return (title == nullptr ? 0 : title->GetHeight().value) + kFoldedPadding;
}

int FoldingItem::OpenHeight() const {
  const int titleHeight = title == nullptr ? 0 : title->GetHeight().value;
  if (content == nullptr) return titleHeight;
  return titleHeight + content->GetWishedHeight(content->GetPos().Width()) +
         content->GetPadding().Down();
}

}  // namespace orv::sysdiagnose
