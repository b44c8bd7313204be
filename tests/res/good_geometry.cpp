#include "tests/res/good_geometry.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/list.h"
#include "platform/duilib/layout/horizontal_layout.h"
#include "platform/duilib/layout/tile_layout.h"
#include "platform/duilib/layout/vertical_layout.h"
#include "platform/duilib/tree/walk.h"

using DuiLib::CContainerUI;
using DuiLib::CControlUI;

namespace {

// Whether its class places those it holds beside one another.
bool PlacesApart(const CControlUI& control) {
  return dynamic_cast<const DuiLib::CVerticalLayoutUI*>(&control) != nullptr ||
         dynamic_cast<const DuiLib::CHorizontalLayoutUI*>(&control) != nullptr ||
         dynamic_cast<const DuiLib::CTileLayoutUI*>(&control) != nullptr ||
         dynamic_cast<const DuiLib::CListUI*>(&control) != nullptr;
}

std::string NameOf(const CControlUI& control) {
  return common::WideToUtf8(control.GetClass() + (L" " + control.GetName()) + L" \"" +
                            control.GetPlainText() + L"\"");
}

void ExpectOrder(CContainerUI& container) {
  std::vector<CControlUI*> shown;
  for (std::size_t index = 0; index < container.GetCount(); ++index) {
    CControlUI* const control = container.GetItemAt(index);
    if (!control->IsShown()) continue;
    const bool scrolls = dynamic_cast<DuiLib::CListUI*>(&container) != nullptr;
    EXPECT_TRUE(scrolls || control->GetPos().Meeting(container.GetPos()) == control->GetPos())
        << NameOf(*control) << " sticks out of " << NameOf(container);
    shown.push_back(control);
  }
  if (!PlacesApart(container)) return;
  for (std::size_t index = 1; index < shown.size(); ++index) {
    const DuiLib::Rect meeting = shown[index - 1]->GetPos().Meeting(shown[index]->GetPos());
    EXPECT_TRUE(meeting.Width() <= 0 || meeting.Height() <= 0)
        << NameOf(*shown[index - 1]) << " overlaps " << NameOf(*shown[index]);
  }
}

void ExpectWholeOrEllipsis(DuiLib::CLabelUI& label) {
  const DuiLib::TextLayout& text = label.GetTextLayout();
  if (!text.isCut) return;
  const auto& pieces = text.lines.back().pieces;
  EXPECT_TRUE(!pieces.empty() && pieces.back().text.ends_with(L'…')) << NameOf(label);
}

// Of a folded item the content sticks out.
bool IsFolded(CControlUI& control) {
  return control.GetHeight().kind == DuiLib::Length::Kind::kNumber &&
         std::wstring_view(control.GetClass()) == L"ListContainerElement" &&
         DuiLib::CPaintManagerUI::FindControl(&control, L"lytContent") != nullptr;
}

bool LiesInFoldedItem(CControlUI& control) {
  for (CControlUI* above = &control; above != nullptr; above = above->GetParent()) {
    if (IsFolded(*above)) return true;
  }
  return false;
}

}  // namespace

void ExpectGoodGeometry(DuiLib::CPaintManagerUI& manager) {
  manager.LayOut(true);
  ForEachInTree(*manager.GetRoot(), [](CControlUI& control) {
    if (!control.IsShown()) return;
    auto* const label = dynamic_cast<DuiLib::CLabelUI*>(&control);
    if (label != nullptr) ExpectWholeOrEllipsis(*label);
    auto* const container = dynamic_cast<CContainerUI*>(&control);
    if (container != nullptr && !LiesInFoldedItem(control)) ExpectOrder(*container);
  });
}
