#include "platform/duilib/controls/frame_animation.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/list_container_element.h"
#include "platform/duilib/controls/option.h"
#include "tests/duilib/ui_test.h"

namespace DuiLib {
namespace {

using std::chrono::milliseconds;

class ControlsTest : public UiTest {};

constexpr const wchar_t* kThreeButtons =
    L"<VerticalLayout><Button name='a' text='A' height='20' width='50'/>"
    L"<Container name='box' height='40'><Button name='b' height='20' width='50'/></Container>"
    L"<Button name='c' height='20' width='50'/>"
    L"<Button name='passed over' tab-stop='false'/></VerticalLayout>";

TEST_F(ControlsTest, AClickCountsOnlyWhereItBeganAndEndedAndIsAllowed) {
  Open(kThreeButtons);
  window.Click(L"a");
  window.Manager().OnMouseDown({5, 5});
  window.Manager().OnMouseUp({5, 65});
  EXPECT_EQ(pump.Take(), Heard{"click a 0"});

  Get<CControlUI>(L"box").SetEnabled(false);
  EXPECT_THROW(window.Click(L"b"), CannotUse);
  window.Manager().OnMouseDown({5, 25});
  window.Manager().OnMouseUp({5, 25});
  Get<CControlUI>(L"box").SetVisible(false);
  EXPECT_THROW(window.Click(L"b"), CannotUse);
  EXPECT_THROW(window.Click(L"none"), CannotUse);
  EXPECT_EQ(pump.Take(), Heard{});
}

TEST_F(ControlsTest, TabGoesRoundThroughWhatCanBeUsedAndEnterAndSpacePressIt) {
  Open(kThreeButtons);
  window.Press(Key::kTab);
  window.Press(Key::kEnter);
  window.Press(Key::kTab);
  window.Press(Key::kSpace);
  Get<CControlUI>(L"a").SetEnabled(false);
  window.Press(Key::kTab);
  window.Press(Key::kTab);
  window.Press(Key::kEnter);
  window.Press(Key::kBackTab);
  window.Press(Key::kEnter);
  EXPECT_EQ(pump.Take(), (Heard{"click a 0", "click b 0", "click b 0", "click c 0"}));
  EXPECT_FALSE(window.Press(Key::kEscape));
  // What has the focus and is then disabled takes no key.
  Get<CControlUI>(L"c").SetEnabled(false);
  EXPECT_FALSE(window.Press(Key::kEnter));
}

TEST_F(ControlsTest, AHandlerMayRemoveTheSenderAndAllAroundIt) {
  Open(kThreeButtons);
  bool gone = false;
  Get<CControlUI>(L"b").SetGoneHook([&] { gone = true; });
  pump.whenHeard = [&](TNotifyUI& notification) {
    static_cast<CContainerUI*>(window.Manager().GetRoot())->RemoveAll();
    EXPECT_FALSE(gone);
    EXPECT_EQ(notification.sender->GetName(), L"b");
  };
  window.Click(L"b");
  EXPECT_TRUE(gone);
  EXPECT_EQ(window.Manager().GetFocus(), nullptr);
  EXPECT_EQ(window.Manager().FindControl(L"b"), nullptr);
}

TEST_F(ControlsTest, WhatTellsTwiceLivesThroughTheFirstTelling) {
  const auto clear = [&](TNotifyUI&) { Get<CContainerUI>(L"box").RemoveAll(); };
  Open(L"<List name='box'><ListContainerElement name='row'/></List>");
  pump.whenHeard = clear;
  window.Activate(L"row");
  EXPECT_EQ(pump.Take(), Heard{"itemselect row 0"});

  pump.whenHeard = {};
  Open(
      L"<VerticalLayout name='box'><Option name='a' group='g' selected='true'/>"
      L"<Option name='b' group='g'/></VerticalLayout>");
  pump.whenHeard = clear;
  Get<COptionUI>(L"b").Selected(true);
  EXPECT_EQ(pump.Take(), Heard{"selectchanged a 0"});
}

TEST_F(ControlsTest, AGroupHasOneChosenAndACheckBoxIsOnItsOwn) {
  Open(
      L"<VerticalLayout><Option name='a' group='g' selected='true' height='20'/>"
      L"<Option name='b' group='g' height='20'/><Option name='check' height='20'/>"
      L"</VerticalLayout>");
  window.Select(L"b", true);
  EXPECT_EQ(pump.Take(), (Heard{"selectchanged a 0", "selectchanged b 0"}));
  EXPECT_FALSE(Get<COptionUI>(L"a").IsSelected());
  window.Activate(L"b");
  EXPECT_THROW(window.Select(L"b", false), CannotUse);
  window.Select(L"check", true);
  window.Select(L"check", false);
  EXPECT_EQ(pump.Take(), (Heard{"selectchanged check 0", "selectchanged check 0"}));
  Get<COptionUI>(L"a").Selected(true, false);
  EXPECT_FALSE(Get<COptionUI>(L"b").IsSelected());
  EXPECT_EQ(pump.Take(), Heard{});
}

TEST_F(ControlsTest, ALinkIsHitWhereItStandsAndByKeyAndByName) {
  Open(
      L"<VerticalLayout><Label name='t' width='300' height='30' text='ab {a}cd{/a} {a}ef{/a}'/>"
      L"</VerticalLayout>");
  EXPECT_EQ(window.Text(L"t"), L"ab cd ef");
  const auto clickAt = [&](int x) {
    window.Manager().OnMouseDown({x, 15});
    window.Manager().OnMouseUp({x, 15});
  };
  clickAt(10);   // "ab "
  clickAt(25);   // "cd"
  clickAt(45);   // "ef"
  clickAt(200);  // behind the text
  window.Press(Key::kTab);
  window.Press(Key::kEnter);
  window.Link(L"t");
  EXPECT_EQ(pump.Take(), (Heard{"link t 0", "link t 1", "link t 0", "link t 0"}));
  Get<CControlUI>(L"t").SetText(L"ab");
  EXPECT_THROW(window.Link(L"t"), CannotUse);
}

TEST_F(ControlsTest, ClicksInARowReachTheRowUnlessAControlTakesThem) {
  Open(
      L"<List name='list'><ListContainerElement name='row' height='40'>"
      L"<HorizontalLayout><Label name='txt' text='abc' width='100' height='40'/>"
      L"<Option name='opt' width='40' height='40'/></HorizontalLayout>"
      L"</ListContainerElement></List>");
  window.Click(L"txt");
  window.Click(L"opt");
  window.Click(L"list/txt[0]");
  EXPECT_EQ(pump.Take(), (Heard{"itemselect row 0", "itemactivate row 0", "selectchanged opt 0",
                                "itemactivate row 0"}));
  EXPECT_THROW(window.Click(L"txt[1]"), CannotUse);
}

TEST_F(ControlsTest, TimersRunByControlAndIdAlsoWhereNobodySeesThem) {
  Open(L"<TabLayout><Control name='a'/><Control name='b'/></TabLayout>");
  CPaintManagerUI& manager = window.Manager();
  CControlUI& hidden = Get<CControlUI>(L"b");
  manager.SetTimer(&hidden, 4001, 20);
  manager.SetTimer(&hidden, 4002, 50);
  manager.SetTimer(&Get<CControlUI>(L"a"), 4001, 30);
  window.Tick(milliseconds(50));
  EXPECT_EQ(pump.Take(), (Heard{"timer b 4001", "timer a 4001", "timer b 4001", "timer b 4002"}));
  manager.KillTimer(&hidden, 4001);
  manager.SetTimer(&hidden, 4002, 50);  // anew from now
  window.Tick(milliseconds(49));
  EXPECT_EQ(pump.Take(), (Heard{"timer a 4001", "timer a 4001"}));
  window.Tick(milliseconds(1));
  EXPECT_EQ(pump.Take(), Heard{"timer b 4002"});
}

TEST_F(ControlsTest, ATimerStopsWithItsControlAndMayBeStoppedByAnotherThatIsDueToo) {
  Open(L"<VerticalLayout name='root'><Control name='a'/><Control name='b'/></VerticalLayout>");
  CPaintManagerUI& manager = window.Manager();
  manager.SetTimer(&Get<CControlUI>(L"a"), 1, 20);
  manager.SetTimer(&Get<CControlUI>(L"b"), 2, 20);
  pump.whenHeard = [&](TNotifyUI& notification) {
    manager.KillTimer(notification.sender);
    Get<CContainerUI>(L"root").RemoveAll();
  };
  window.Tick(milliseconds(100));
  EXPECT_EQ(pump.Take(), Heard{"timer a 1"});
  EXPECT_EQ(manager.NextDue(true), std::nullopt);
}

TEST_F(ControlsTest, ALateClockRunsATimerOnceNotOnceForEachPeriod) {
  Open(L"<Control name='a'/>");
  window.Manager().SetTimer(&Get<CControlUI>(L"a"), 1, 20);
  clock.Sleep(milliseconds(1000));
  EXPECT_EQ(window.Manager().RunDueTimers(), 1u);
  EXPECT_EQ(window.Manager().RunDueTimers(), 0u);
}

TEST_F(ControlsTest, AnAnimationPlaysItsFramesOnceOrOnAndOnAndNobodyWaitsForTheLoop) {
  Open(L"<FrameAnimation name='a' frames=\"file='Done\\done_.png'\"/>");
  auto& animation = Get<CFrameAnimationUI>(L"a");
  EXPECT_EQ(animation.GetFrame().file, L"");
  animation.Play(1, 3, false);
  EXPECT_EQ(animation.GetFrame().file, L"Done/done_1.png");
  EXPECT_NE(window.Manager().NextDue(false), std::nullopt);
  window.Tick(milliseconds(200));
  EXPECT_EQ(animation.GetFrame().file, L"Done/done_3.png");
  EXPECT_FALSE(animation.IsPlaying());
  animation.Play(1, 3, true);
  window.Tick(milliseconds(60));
  EXPECT_EQ(animation.GetFrame().file, L"Done/done_1.png");
  EXPECT_EQ(window.Manager().NextDue(false), std::nullopt);
}

TEST_F(ControlsTest, TheLookFollowsTheStateAndWhatTheStateDoesNotSayStays) {
  Open(
      L"<VerticalLayout><Option name='a' width='20' height='20' background='#111111' "
      L"text-colour='#222222' "
      L"hovered-background='#333333' selected-gradient='#B47B6EF9,#B42D78FC' "
      L"disabled-text-colour='#444444'/></VerticalLayout>");
  auto& option = Get<COptionUI>(L"a");
  EXPECT_EQ(option.GetLook().background, Colour(0xFF111111));
  window.Manager().OnMouseMove({5, 5});
  EXPECT_EQ(option.GetLook().background, Colour(0xFF333333));
  EXPECT_EQ(option.GetLook().text, Colour(0xFF222222));
  window.Manager().OnMouseLeave();
  option.Selected(true, false);
  EXPECT_EQ(option.GetLook().background, Colour(0xB47B6EF9));
  EXPECT_EQ(option.GetLook().gradientEnd, Colour(0xB42D78FC));
  option.SetEnabled(false);
  EXPECT_EQ(option.GetLook().text, Colour(0xFF444444));
}

TEST_F(ControlsTest, DamageIsWhatCanBeSeenOfWhatChanged) {
  Open(
      L"<VerticalLayout><Container height='50'><Control name='a' width='10' height='80'/>"
      L"</Container><Control name='b' width='20' height='20'/></VerticalLayout>");
  window.Manager().TakeDamage();
  Get<CControlUI>(L"a").SetBackground(0xFF000000);
  EXPECT_EQ(window.Manager().TakeDamage(), (std::vector{Rect{0, 0, 10, 50}}));
  Get<CControlUI>(L"b").SetBackground(0xFF000000);
  Get<CControlUI>(L"b").SetFixedWidth(30);
  window.Manager().LayOut();
  EXPECT_EQ(window.Manager().TakeDamage(), (std::vector{Rect{0, 50, 30, 70}}));
  Get<CControlUI>(L"a").SetBackground(0xFFFFFFFF);
  Get<CControlUI>(L"b").SetBackground(0xFFFFFFFF);
  EXPECT_EQ(window.Manager().TakeDamage(), (std::vector{Rect{0, 0, 10, 50}, Rect{0, 50, 30, 70}}));
  EXPECT_TRUE(window.Manager().TakeDamage().empty());
}

TEST(NotifyPump, AVirtualWindowGetsWhatComesFromBelowItAndNobodyElse) {
  HeadlessWindow window({100, 100});
  RecordingPump host;
  RecordingPump page;
  window.Manager().SetNotifyPump(&host);
  window.Open(CDialogBuilder().Create(
      L"<VerticalLayout><Button name='out' height='10' width='10'/>"
      L"<Container name='page' height='20'><Button name='in' height='10' width='10'/></Container>"
      L"</VerticalLayout>"));
  host.Take();
  window.Manager().FindControl(L"page")->SetVirtualWnd(L"Page");
  window.Click(L"in");
  EXPECT_EQ(host.Take(), Heard{"click in 0"});  // nobody has registered yet
  host.AddVirtualWnd(L"Page", &page);
  window.Click(L"in");
  window.Click(L"out");
  EXPECT_EQ(page.Take(), Heard{"click in 0"});
  EXPECT_EQ(host.Take(), Heard{"click out 0"});

  // A handler that throws is logged, the next notification comes.
  page.whenHeard = [](TNotifyUI&) { throw std::runtime_error("no page"); };
  TestLog::Instance().Take();
  window.Click(L"in");
  EXPECT_NE(TestLog::Instance().Take().find("the notification click failed: no page"),
            std::string::npos);
  host.RemoveVirtualWnd(L"Page");
  window.Click(L"in");
  EXPECT_EQ(host.Take(), Heard{"click in 0"});
}

TEST(NotifyPump, TheHookOfAControlHearsFirstAndMayKeepWhatItHeard) {
  HeadlessWindow window({100, 100});
  RecordingPump host;
  window.Manager().SetNotifyPump(&host);
  window.Open(CDialogBuilder().Create(L"<Button name='a'/>"));
  EXPECT_EQ(host.Take(), Heard{"windowinit a 0"});
  bool keeps = true;
  window.Manager().FindControl(L"a")->SetNotifyHook([&](TNotifyUI&) { return keeps; });
  window.Activate(L"a");
  keeps = false;
  window.Activate(L"a");
  EXPECT_EQ(host.Take(), Heard{"click a 0"});
}

}  // namespace
}  // namespace DuiLib
