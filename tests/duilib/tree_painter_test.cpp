#include "platform/duilib/painter/tree_painter.h"

#include "platform/duilib/controls/frame_animation.h"
#include "platform/duilib/controls/list.h"
#include "platform/os/module.h"
#include "tests/duilib/recording_surface.h"
#include "tests/duilib/ui_test.h"

namespace DuiLib {
namespace {

using Painted = std::vector<std::string>;

class TreePainterTest : public UiTest {
 protected:
  TreePainterTest() {
    Theme& theme = window.Manager().GetTheme();
    theme.SetColour(L"window", 0xFFAAAAAA, 0);
    theme.SetColour(L"ink", 0xFF000001, 0);
    theme.SetColour(L"link", 0xFF000002, 0);
    theme.SetColour(L"scroll-bar", 0xFF000003, 0);
    theme.SetColour(L"focus-ring", 0xFF000004, 0);
  }

  // Without the clip to the window that holds all the time.
  Painted Paint(const Rect& clip = {0, 0, 400, 300}) {
    RecordingSurface surface;
    PaintTree(window.Manager(), surface, clip);
    Painted lines = surface.Take();
    if (lines.size() < 2) return lines;
    EXPECT_EQ(lines.back(), "unclip");
    return {lines.begin() + 1, lines.end() - 1};
  }
};

TEST_F(TreePainterTest, EachControlIsPaintedFromItsShadowUpToItsTextAndThenItsContent) {
  Open(
      L"<VerticalLayout inset='10,10,0,0'><Container width='100' height='60' radius='8' "
      L"shadow='12' "
      L"background='#111111' border='2' border-colour='#222222' image=\"file='a.png'\" "
      L"tint='#333333'><Label text='{c #444444}a{/c}b{a}c{/a}' align='end,start' width='grow' "
      L"height='grow'/></Container><Control width='20' height='20' gradient='#555555,#666666' "
      L"border-colour='#222222'/></VerticalLayout>");
  EXPECT_EQ(Paint(),
            (Painted{"shadow 10,13,110,73 r8 12", "fill 10,10,110,70 r8 FF111111",
                     "border 10,10,110,70 r8 FF222222 2", "picture a.png 10,10,110,70 FF333333",
                     "text a 89,24 FF444444", "text b 96,24 FF000001", "text c 103,24 FF000002",
                     "fill 10,70,30,90 FF555555> FF666666"}));
}

TEST_F(TreePainterTest, WhatIsHiddenOrOutsideOfTheClipIsNotVisited) {
  Open(
      L"<VerticalLayout><Control width='grow' height='100' background='#111111'/>"
      L"<Control width='grow' height='100' background='#222222' visible='false'/>"
      L"<TabLayout height='100'><Control width='grow' height='grow' background='#333333'/>"
      L"<Control width='grow' height='grow' background='#444444'/></TabLayout>"
      L"<Control width='grow' height='50' background='#555555'/></VerticalLayout>");
  EXPECT_EQ(Paint(), (Painted{"fill 0,0,400,100 FF111111", "fill 0,100,400,200 FF333333",
                              "fill 0,200,400,250 FF555555"}));
  EXPECT_EQ(Paint({0, 150, 10, 160}), Painted{"fill 0,100,400,200 FF333333"});
  EXPECT_EQ(Paint({0, 260, 10, 270}), Painted{});

  // A shadow reaches beyond its control, so more is looked at.
  window.Manager().GetRoot()->SetShadow(8);
  EXPECT_EQ(Paint({0, 195, 10, 196}).size(), 3u);

  RecordingSurface surface;
  PaintWindow(window.Manager(), surface, {300, 290, 500, 400});
  EXPECT_EQ(surface.Take().front(), "fill 300,290,400,300 FFAAAAAA");
}

TEST_F(TreePainterTest, AListPaintsTheRowsInSightWithinItselfAndWhereItIsScrolledTo) {
  Open(
      L"<VerticalLayout inset='10,10,0,0'><List name='list' width='200' height='100'/>"
      L"</VerticalLayout>");
  auto& list = Get<CListUI>(L"list");
  const auto add = [&] {
    list.Add(CDialogBuilder().Create(L"<ListContainerElement height='40' background='#111111'/>"));
  };
  add();
  add();
  EXPECT_EQ(Paint(), (Painted{"fill 10,10,210,50 FF111111", "fill 10,50,210,90 FF111111"}));
  for (int row = 2; row < 10; ++row) add();
  list.SetScrollPos(50);
  EXPECT_EQ(Paint(), (Painted{"clip 10,10,210,110", "fill 10,0,210,40 FF111111",
                              "fill 10,40,210,80 FF111111", "fill 10,80,210,120 FF111111", "unclip",
                              "fill 202,24,208,48 r3 FF000003"}));
  // The bar ends where the list does.
  list.SetScrollPos(list.GetScrollRange());
  EXPECT_EQ(list.GetScrollThumb().bottom, 108);
  EXPECT_EQ(Paint({300, 0, 400, 300}), Painted{});
}

TEST_F(TreePainterTest, TheFocusShowsAfterAKeyUntilThePointerIsUsed) {
  Open(
      L"<VerticalLayout inset='10,10,0,0'><Button name='a' width='50' height='20' radius='4'/>"
      L"<Button name='b' width='50' height='20'/></VerticalLayout>");
  EXPECT_EQ(Paint(), Painted{});
  window.Press(Key::kTab);
  EXPECT_EQ(Paint(), Painted{"border 8,8,62,32 r6 FF000004 2"});
  window.Manager().TakeDamage();
  window.Click(L"b");
  EXPECT_EQ(Paint(), Painted{});
  // The ring that goes is painted over as a whole.
  EXPECT_TRUE(window.Manager().TakeDamage().front().Holds({8, 8, 62, 32}));
}

TEST_F(TreePainterTest, DamageReachesAsFarAsShadows) {
  Open(
      L"<VerticalLayout inset='50,50,0,0'><Control name='a' width='50' height='20' shadow='16'/>"
      L"</VerticalLayout>");
  window.Manager().TakeDamage();
  Get<CControlUI>(L"a").SetVisible(false);
  EXPECT_EQ(window.Manager().TakeDamage(), (std::vector{Rect{30, 30, 120, 90}}));
}

TEST_F(TreePainterTest, AnAnimationShowsItsFrameInPlaceOfItsPicture) {
  Open(L"<FrameAnimation name='a' frames=\"file='f_.png'\" image=\"file='rest.png'\"/>");
  EXPECT_EQ(Paint(), Painted{"picture rest.png 0,0,400,300"});
  Get<CFrameAnimationUI>(L"a").Play(1, 3, true, 20);
  window.Tick(std::chrono::milliseconds(20));
  EXPECT_EQ(Paint(), Painted{"picture f_2.png 0,0,400,300"});
}

TEST_F(TreePainterTest, TextThatSticksOutIsCutAtItsLabel) {
  Open(L"<VerticalLayout><Label text='abcdefgh' width='20' height='18'/></VerticalLayout>");
  EXPECT_EQ(Paint(), (Painted{"clip 0,0,20,18", "text abcdefgh 0,14 FF000001", "unclip"}));
}

// Whoever shows nothing on a screen is free of the window library.
TEST_F(TreePainterTest, NeedsNoWindowLibrary) {
  Open(L"<Label text='a'/>");
  Paint();
  for (const char* library : {"DuiWindow.dll", "libwx_baseu-3.2.so.0", "libgtk-3.so.0"}) {
    EXPECT_EQ(os::FindLoadedModule(library), nullptr) << library;
  }
}

}  // namespace
}  // namespace DuiLib
