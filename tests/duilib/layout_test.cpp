#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/list.h"
#include "platform/duilib/controls/list_container_element.h"
#include "platform/duilib/layout/tab_layout.h"
#include "tests/duilib/ui_test.h"

namespace DuiLib {
namespace {

class LayoutTest : public UiTest {
 protected:
  // How many controls the next layout places anew.
  template <typename Change>
  std::size_t PlacedBy(const Change& change) {
    window.Manager().LayOut();
    const std::size_t before = window.Manager().GetLayoutCount();
    change();
    window.Manager().LayOut();
    return window.Manager().GetLayoutCount() - before;
  }
};

TEST_F(LayoutTest, FixedThenWishedThenSharesTakeTheRoom) {
  Open(
      L"<VerticalLayout inset='10,20,10,20' child-padding='5'>"
      L"<Control name='fixed' height='50' width='grow' padding='1,2,3,4'/>"
      L"<Label name='wished' text='abcd'/>"
      L"<Control name='one' height='grow' width='grow'/>"
      L"<Control name='three' height='grow:3' width='40'/></VerticalLayout>");
  EXPECT_EQ(window.Position(L"fixed"), (Rect{11, 22, 387, 72}));
  EXPECT_EQ(window.Position(L"wished"), (Rect{10, 81, 38, 99}));
  // 300 - 40 - 15 - 56 - 18 = 171 points are left for four shares.
  EXPECT_EQ(window.Position(L"one"), (Rect{10, 104, 390, 146}));
  EXPECT_EQ(window.Position(L"three"), (Rect{10, 151, 50, 280}));
}

TEST_F(LayoutTest, AShareIsNeverBelowTheLeastLengthAndAFixedLengthNeverGivesWay) {
  Open(
      L"<HorizontalLayout><Control name='a' width='grow' least-width='250' height='grow'/>"
      L"<Control name='b' width='grow' height='grow'/>"
      L"<Label name='c' text='0123456789012345678901234567890123456789' height='grow'/>"
      L"<Control name='d' width='100' height='grow'/></HorizontalLayout>");
  EXPECT_EQ(window.Position(L"a").Width(), 250);
  EXPECT_EQ(window.Position(L"b").Width(), 0);
  EXPECT_EQ(window.Position(L"c").Width(), 50);
  EXPECT_EQ(window.Position(L"d"), (Rect{300, 0, 400, 300}));
}

TEST_F(LayoutTest, SmallerOnesStandWhereTheirContainerAlignsThem) {
  Open(
      L"<HorizontalLayout child-align='end,middle'>"
      L"<Control name='a' width='100' height='50' padding='0,0,10,0'/>"
      L"<Container name='b' width='60' height='40' child-align='middle,end'>"
      L"<Control name='c' width='20' height='10'/></Container></HorizontalLayout>");
  EXPECT_EQ(window.Position(L"a"), (Rect{230, 125, 330, 175}));
  EXPECT_EQ(window.Position(L"b"), (Rect{340, 130, 400, 170}));
  EXPECT_EQ(window.Position(L"c"), (Rect{360, 160, 380, 170}));
}

TEST_F(LayoutTest, TilesShareTheWidthAndEachRowIsAsHighAsItsHighest) {
  Open(
      L"<VerticalLayout><TileLayout name='tiles' columns='3' child-padding='5' height='shrink'"
      L" inset='10,20,10,30'>"
      L"<Control name='a' width='grow' height='40'/><Control name='b' width='50' height='60'/>"
      L"<Control name='hidden' visible='false' height='200'/>"
      L"<Control name='c' width='grow' height='grow' padding='1,2,3,4'/>"
      L"<Control name='d' width='grow' height='20'/></TileLayout></VerticalLayout>");
  // 400 - 20 - 2 x 5 = 370 points are 123 for each of three columns.
  EXPECT_EQ(window.Position(L"a"), (Rect{10, 20, 133, 60}));
  EXPECT_EQ(window.Position(L"b"), (Rect{138, 20, 188, 80}));
  EXPECT_EQ(window.Position(L"c"), (Rect{267, 22, 386, 76}));
  EXPECT_EQ(window.Position(L"d"), (Rect{10, 85, 133, 105}));
  EXPECT_EQ(window.Position(L"tiles"), (Rect{0, 0, 400, 135}));
}

TEST_F(LayoutTest, WhatIsHiddenOrOfNoHeightTakesNoRoomAndComesBack) {
  Open(
      L"<VerticalLayout child-padding='8'><Control name='a' height='140' width='grow'/>"
      L"<Control name='b' height='140' width='grow'/></VerticalLayout>");
  EXPECT_EQ(window.Position(L"b").top, 148);
  Get<CControlUI>(L"a").SetVisible(false);
  EXPECT_EQ(window.Position(L"b").top, 0);
  Get<CControlUI>(L"a").SetVisible(true);
  Get<CControlUI>(L"a").SetFixedHeight(0);
  EXPECT_EQ(window.Position(L"b").top, 8);
}

TEST_F(LayoutTest, TheHeightOfWrappedTextFollowsItsWidth) {
  Open(
      L"<VerticalLayout><Label name='text' multi-line='true' width='70' "
      L"text='one two three four'/><Control name='below' height='1'/></VerticalLayout>");
  // Ten letters a line: "one two", "three four".
  EXPECT_EQ(window.Position(L"below").top, 36);
  Get<CControlUI>(L"text").SetFixedWidth(35);
  // "one", "two", "three", "four"
  EXPECT_EQ(window.Position(L"below").top, 72);
}

TEST_F(LayoutTest, OnlyWhatChangedIsLaidOut) {
  Open(
      L"<HorizontalLayout><VerticalLayout name='left'><Label name='a' text='aa'/><Label text='b'/>"
      L"</VerticalLayout><VerticalLayout><Label text='c'/><Label text='d'/></VerticalLayout>"
      L"</HorizontalLayout>");
  EXPECT_EQ(PlacedBy([] {}), 0u);
  // The root, the left half and the label itself.
  EXPECT_EQ(PlacedBy([&] { Get<CControlUI>(L"a").SetText(L"ab"); }), 3u);
  EXPECT_EQ(PlacedBy([&] { Get<CControlUI>(L"a").SetText(L"ab"); }), 0u);
  // A wider left half moves the right one and what is in it as it stands.
  EXPECT_EQ(PlacedBy([&] {
              Get<CControlUI>(L"left").SetPadding({0, 0, 0, 30});
              Get<CControlUI>(L"left").SetPadding({0, 0, 0, 0});
            }),
            2u);
}

TEST_F(LayoutTest, AMovedControlTakesItsContentAlong) {
  Open(
      L"<VerticalLayout><Control name='head' height='20'/><Container height='100'>"
      L"<Control name='inner' height='10' width='10'/></Container></VerticalLayout>");
  EXPECT_EQ(window.Position(L"inner"), (Rect{0, 20, 10, 30}));
  Get<CControlUI>(L"head").SetFixedHeight(70);
  EXPECT_EQ(window.Position(L"inner"), (Rect{0, 70, 10, 80}));
}

TEST_F(LayoutTest, ATabShowsOneAndTellsOfEachEntry) {
  Open(L"<TabLayout name='tab'><Control name='a'/><Control name='b'/></TabLayout>");
  auto& tab = Get<CTabLayoutUI>(L"tab");
  EXPECT_TRUE(Get<CControlUI>(L"a").IsShown());
  EXPECT_TRUE(tab.SelectItem(1));
  EXPECT_TRUE(tab.SelectItem(1));
  EXPECT_FALSE(tab.SelectItem(2));
  EXPECT_EQ(pump.Take(), (Heard{"tabselectin b 1", "tabselectin b 1"}));
  EXPECT_FALSE(Get<CControlUI>(L"a").IsShown());
  tab.Remove(&Get<CControlUI>(L"b"));
  EXPECT_TRUE(Get<CControlUI>(L"a").IsShown());
}

class LongListTest : public LayoutTest {
 protected:
  static constexpr int kRows = 3600;

  void SetUp() override {
    Open(L"<List name='list'/>");
    list = &Get<CListUI>(L"list");
    for (int row = 0; row < kRows; ++row) {
      list->Add(CDialogBuilder().Create(
          L"<ListContainerElement height='32'><Label name='txt' text='row " + std::to_wstring(row) +
          L"'/></ListContainerElement>"));
    }
  }

  CListUI* list = nullptr;
};

TEST_F(LongListTest, LaysOutOnlyTheRowsInSight) {
  // The list, 10 rows and their labels; 300 points show the tenth in part.
  EXPECT_EQ(PlacedBy([] {}), 0u);
  const std::size_t first = window.Manager().GetLayoutCount();
  EXPECT_LE(first, 1u + 1u + 2 * 10u);
  EXPECT_EQ(list->GetScrollRange(), 32 * kRows - 300);
  EXPECT_LE(PlacedBy([&] { list->SetScrollPos(32 * 1000); }), 1u + 2 * 10u);
  EXPECT_EQ(window.Position(L"txt[1000]").top, 0);
  EXPECT_EQ(window.Position(L"txt[1001]").top, 32);
  // Two rows come in from below, the others move as they stand.
  EXPECT_LE(PlacedBy([&] { list->LineDown(); }), 1u + 2 * 2u);
}

TEST_F(LongListTest, WhatIsOutOfSightIsNeitherHitNorPaintedButCanBeLaidOutWhenAsked) {
  window.Manager().LayOut();
  list->SetScrollPos(32 * 1000);
  window.Manager().LayOut();
  EXPECT_EQ(window.Manager().FindControl(Point{5, 5})->GetPlainText(), L"row 1000");
  window.Manager().TakeDamage();
  list->GetItemAt(0)->SetBackground(0xFF000000);
  EXPECT_TRUE(window.Manager().TakeDamage().empty());
  window.Manager().LayOut(true);
  EXPECT_EQ(Person(window.Manager()).Find(L"txt[3599]").GetPos().top, 32 * 2599);
}

TEST_F(LongListTest, ScrollsSmoothlyAndStopsAtItsEnds) {
  list->ScrollSmoothlyTo(1000);
  std::vector<int> positions;
  for (int step = 0; step < 60; ++step) {
    window.Tick(std::chrono::milliseconds(16));
    positions.push_back(list->GetScrollPos());
  }
  EXPECT_TRUE(std::is_sorted(positions.begin(), positions.end()));
  EXPECT_GT(positions[0], 0);
  EXPECT_LT(positions[0], 1000);
  EXPECT_EQ(positions.back(), 1000);
  EXPECT_EQ(window.Manager().NextDue(true), std::nullopt);
  window.Manager().OnWheel({5, 5}, 100);
  window.Tick(std::chrono::seconds(2));
  EXPECT_EQ(list->GetScrollPos(), 0);
}

TEST_F(LongListTest, KeysMoveTheSelectionAndBringItIntoSight) {
  window.Press(Key::kTab);
  EXPECT_TRUE(window.Press(Key::kDown));
  EXPECT_TRUE(window.Press(Key::kDown));
  EXPECT_TRUE(window.Press(Key::kUp));
  EXPECT_TRUE(window.Press(Key::kEnd));
  EXPECT_FALSE(window.Press(Key::kDown));
  EXPECT_TRUE(window.Press(Key::kEnter));
  EXPECT_EQ(pump.Take(), (Heard{"itemselect  0", "itemselect  1", "itemselect  0",
                                "itemselect  3599", "itemactivate  3599"}));
  EXPECT_EQ(window.Position(L"txt[3599]").top, 300 - 32);
}

TEST_F(LongListTest, RowsThatGoKeepSelectionAndScrollPositionRight) {
  list->SelectItem(kRows - 1);
  CControlUI* const selected = list->GetSelectedItem();
  list->Remove(list->GetItemAt(0));
  EXPECT_EQ(list->GetSelectedItem(), selected);
  EXPECT_EQ(list->GetScrollPos(), list->GetScrollRange());
  list->Remove(selected);
  EXPECT_EQ(list->GetSelectedItem(), nullptr);
  list->RemoveAll();
  EXPECT_EQ(list->GetScrollPos(), 0);
}

}  // namespace
}  // namespace DuiLib
