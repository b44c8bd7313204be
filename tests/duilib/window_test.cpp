#include "platform/duilib/controls/list.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/duilib/window/headless_desktop.h"
#include "platform/duilib/window/told_control.h"
#include "platform/duilib/window/window_impl_base.h"
#include "tests/duilib/ui_test.h"
#include "tests/support/temporary_folder.h"

namespace DuiLib {
namespace {

using WindowUseTest = UiTest;

constexpr const wchar_t* kRow =
    L"<ListContainerElement height='32'><Label text='row'/></ListContainerElement>";

// A question with two buttons, over the window of the test.
class QuestionWnd final : public WindowImplBase {
 public:
  explicit QuestionWnd(std::filesystem::path folder) : skinFolder(std::move(folder)) {}
  CDuiString GetWindowClassName() const override { return L"QuestionWnd"; }
  void OnCancel() override {
    ++cancels;
    Close(0);
  }
  int OnNcHitTest(Point screen) override {
    const CControlUI* const hit = GetManager().FindControl(ScreenToClient(screen));
    return hit != nullptr && hit->IsDragHandle() ? kHitCaption : kHitClient;
  }

  int cancels = 0;
  int inits = 0;

 protected:
  CDuiString GetSkinFile() const override { return L"question.xml"; }
  CDuiString GetSkinFolder() const override { return skinFolder.wstring(); }
  void InitWindow() override { ++inits; }
  const NotifyMap* GetMessageMap() const override {
    static const NotifyMapRow rows[] = {
        OnNotify(kNotifyClick, L"btnYes", &QuestionWnd::OnYes),
        OnNotify(kNotifyClick, L"", &QuestionWnd::OnOther),
        {},
    };
    static const NotifyMap map{nullptr, rows};
    return &map;
  }

 private:
  void OnYes(TNotifyUI&) { Close(1); }
  void OnOther(TNotifyUI&) { OnCancel(); }

  std::filesystem::path skinFolder;
};

class WindowTest : public UiTest {
 protected:
  WindowTest() {
    WriteText(folder.path / "question.xml",
              "<VerticalLayout width='200' height='100'><Control name='bar' height='30' "
              "width='grow' drag-handle='true'/><Button name='btnYes' width='50' height='20'/>"
              "<Button name='btnNo' width='50' height='20'/></VerticalLayout>");
    Open(L"<Button name='behind'/>");
    EXPECT_TRUE(question.Create(&window.Manager(), L"", 0, 0x100));
    question.CenterWindow();
  }
  ~WindowTest() override { HeadlessDesktop::Instance().SetRest({}); }

  // Runs the window with a person who does this.
  int RunWith(const std::function<void(Person&)>& what) {
    HeadlessDesktop::Instance().SetRest([&] {
      Person person(HeadlessDesktop::Instance().GetModals().back()->GetManager());
      what(person);
      return true;
    });
    return question.ShowModal();
  }

  TemporaryFolder folder;
  QuestionWnd question{folder.path};
};

TEST_F(WindowTest, EachWayToCloseItGivesItsResultAndItCanBeShownAgain) {
  EXPECT_EQ(RunWith([](Person& person) { person.Click(L"btnYes"); }), 1);
  EXPECT_EQ(question.cancels, 0);
  EXPECT_EQ(RunWith([](Person& person) { person.Click(L"btnNo"); }), 0);
  EXPECT_EQ(RunWith([](Person& person) { person.Press(Key::kEscape); }), 0);
  HeadlessDesktop::Instance().SetRest({});
  EXPECT_EQ(question.ShowModal(), 0);  // nobody is there: as by the window manager
  EXPECT_EQ(question.cancels, 3);
  EXPECT_EQ(question.inits, 1);
  EXPECT_TRUE(HeadlessDesktop::Instance().GetModals().empty());
}

TEST_F(WindowTest, QueuedClosuresAndTimersOfTheWindowBehindRunWhileItIsOpen) {
  window.Manager().SetTimer(window.Manager().GetRoot(), 4001, 20);
  bool dispatched = false;
  UIMainQueue::dispatch([&] { dispatched = true; });
  RunWith([&](Person& person) {
    EXPECT_TRUE(dispatched);
    window.Tick(std::chrono::milliseconds(20));
    person.Click(L"btnYes");
  });
  EXPECT_EQ(pump.Take(), Heard{"timer behind 4001"});
}

TEST_F(WindowTest, AClosureThatClosesItEndsItsLoop) {
  UIMainQueue::dispatch([&] { question.Close(7); });
  EXPECT_EQ(question.ShowModal(), 7);
  EXPECT_EQ(question.cancels, 0);
}

TEST_F(WindowTest, StandsInTheMiddleOfItsParentAndIsDraggedByItsHandle) {
  // 200 by 100 in 400 by 300 begins at 100, 100.
  EXPECT_EQ(question.OnNcHitTest({101, 101}), kHitCaption);
  EXPECT_EQ(question.OnNcHitTest({101, 135}), kHitClient);
  EXPECT_EQ(question.OnNcHitTest({99, 101}), kHitClient);
}

TEST_F(WindowTest, WithoutItsLayoutItIsNotShown) {
  QuestionWnd none(folder.path / "none");
  EXPECT_FALSE(none.Create(nullptr, L"", 0, 0));
  EXPECT_EQ(none.ShowModal(), 0);
  EXPECT_EQ(none.inits, 0);
}

TEST_F(WindowUseTest, ABarIsHeldUntilItIsLetGoAndNothingElseHearsThePointer) {
  Open(
      L"<VerticalLayout><List name='list' height='200'/><Button name='below' height='40'/>"
      L"</VerticalLayout>");
  auto& list = Get<CListUI>(L"list");
  for (int row = 0; row < 50; ++row) list.Add(CDialogBuilder().Create(kRow));
  CPaintManagerUI& manager = window.Manager();
  const int range = list.GetScrollRange();
  const Point grip = list.GetScrollThumb().Middle();

  manager.OnMouseDown(grip);
  EXPECT_EQ(list.GetScrollPos(), 0);  // held where it was taken
  manager.OnMouseMove({grip.x - 300, 220});
  EXPECT_EQ(list.GetScrollPos(), range);
  EXPECT_EQ(manager.GetHovered(), &list);
  manager.OnMouseUp(Get<CControlUI>(L"below").GetPos().Middle());
  manager.OnMouseMove({grip.x, 20});
  EXPECT_EQ(list.GetScrollPos(), range);
  EXPECT_EQ(pump.Take(), Heard{});

  // Beside its thumb it comes there; a press that something else takes away ends.
  manager.OnMouseDown({grip.x, 100});
  EXPECT_NEAR(list.GetScrollPos(), range / 2, 40);
  manager.OnPressLost();
  manager.OnMouseMove({grip.x, 0});
  EXPECT_NEAR(list.GetScrollPos(), range / 2, 40);

  // Rows stand where a layout from scratch puts them.
  std::vector<Rect> moved;
  for (std::size_t row = 0; row < list.GetCount(); ++row)
    moved.push_back(list.GetItemAt(row)->GetPos());
  list.NeedLayout();
  manager.LayOut();
  for (std::size_t row = 0; row < list.GetCount(); ++row)
    EXPECT_EQ(list.GetItemAt(row)->GetPos(), moved[row]) << row;
}

TEST_F(WindowUseTest, WhatIsCutIsToldBesideThePointer) {
  Open(
      L"<VerticalLayout><Label name='cut' width='60' end-ellipsis='true' text='a long text that "
      L"is cut'/><Label name='own' width='60' end-ellipsis='true' tooltip='tip' text='a long text "
      L"that is cut'/><Container tooltip='around'><Label name='whole' text='whole'/></Container>"
      L"</VerticalLayout>");
  const auto hint = [&](const wchar_t* name) {
    return window.Manager().GetHint(window.Position(name).Middle());
  };
  EXPECT_EQ(hint(L"cut"), L"a long text that is cut");
  EXPECT_EQ(hint(L"own"), L"tip");
  EXPECT_EQ(hint(L"whole"), L"around");
}

TEST_F(WindowUseTest, ControlsAreToldWithTheirRolesAndNames) {
  Open(
      L"<VerticalLayout><Label text='Title'/><Label text='see {a}the page{/a}'/>"
      L"<HorizontalLayout><Option width='18' height='18'/><Label text='Memory'/></HorizontalLayout>"
      L"<Option group='g' text='Today'/><Button tooltip='Close'/><Button text='gone' "
      L"visible='false'/><List><ListContainerElement><Label text='row'/></ListContainerElement>"
      L"</List><Control width='9'/></VerticalLayout>");
  std::vector<std::pair<ToldRole, CDuiString>> told;
  for (const ToldControl& one : ToldControls(window.Manager()))
    told.emplace_back(one.role, one.name);
  EXPECT_EQ(told, (std::vector<std::pair<ToldRole, CDuiString>>{{ToldRole::kText, L"Title"},
                                                                {ToldRole::kLink, L"see the page"},
                                                                {ToldRole::kCheckBox, L"Memory"},
                                                                {ToldRole::kText, L"Memory"},
                                                                {ToldRole::kChoice, L"Today"},
                                                                {ToldRole::kButton, L"Close"},
                                                                {ToldRole::kList, L"row"},
                                                                {ToldRole::kRow, L"row"},
                                                                {ToldRole::kText, L"row"}}));
}

}  // namespace
}  // namespace DuiLib
