#include "platform/duilib/window/desktop.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/list.h"
#include "platform/duilib/controls/option.h"
#include "platform/duilib/painter/painter.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/duilib/window/window_impl_base.h"
#include "tests/duilib/ui_test.h"
#include "tests/duiwindow/hand.h"
#include "tests/duiwindow/picture.h"
#include "tests/support/temporary_folder.h"

namespace DuiLib {
namespace {

using std::chrono::milliseconds;

const std::filesystem::path kResources = std::filesystem::path(TEST_DATA_DIR) / "res";
constexpr Size kSize{880, 544};

Desktop& TheDesktop() {
  StartDisplay();
  std::string reason;
  Desktop* const desktop = Desktop::Load(reason);
  if (desktop == nullptr) throw std::runtime_error(reason);
  return *desktop;
}

// The systems round a colour that lies between two in their ways.
bool AreAlike(unsigned one, unsigned other) {
  constexpr int kMost = 4;
  for (const int shift : {0, 8, 16}) {
    const auto level = [&](unsigned colour) { return static_cast<int>(colour >> shift & 0xFF); };
    if (std::abs(level(one) - level(other)) > kMost) return false;
  }
  return true;
}

/// Whether a window looks as its picture, but for so many dots at its sides.
bool ShowsPicture(const Hand& hand, CPaintManagerUI& content, int sides) {
  const TemporaryFolder folder;
  Painter::Load()->PaintInto(folder.path / "picture.png", {&content});
  const Picture picture(folder.path / "picture.png");
  const Hand::Shot shot = hand.Look();
  if (shot.size != picture.GetSize()) return false;
  for (int y = sides; y < shot.size.height - sides; ++y) {
    for (int x = sides; x < shot.size.width - sides; ++x) {
      if (!AreAlike(shot.At(x, y), picture.At(x, y))) return false;
    }
  }
  return true;
}

/// A real window over the layout with every control.
class DesktopTest : public testing::Test {
 protected:
  DesktopTest() : desktop(TheDesktop()) {
    TestLog::Instance().Take();
    WindowSystem::SetInForce(&desktop);
    UICulture::GetInstance()->SetLanguage("en-US", kResources);
    content.SetNotifyPump(&pump);
    content.SetSkinFolder(kResources);
    content.LoadTheme(L"theme.xml");
    content.SetRoot(CDialogBuilder().Create(L"every_control.xml", {}, &content));
    window = desktop.MakeTop(content, {Point{100, 80}, kSize, false});
    window->SetTitle(L"sample");
    window->Show();
    RunUntil([] { return true; });
  }
  ~DesktopTest() override {
    window.reset();
    WindowSystem::SetInForce(nullptr);
  }

  void FillList(int rows) {
    auto& list = Get<CListUI>(L"list");
    for (int row = 0; row < rows; ++row) {
      list.Add(CDialogBuilder().Create(
          L"<ListContainerElement height='32' selected-background='pad'><Label font='16' "
          L"text='row'/></ListContainerElement>"));
    }
  }

  /// Runs the loop until that has come about; a minute is the limit.
  void RunUntil(const std::function<bool()>& condition) {
    constexpr std::size_t kTimer = 999;
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    CControlUI& root = *content.GetRoot();
    bool met = false;
    root.SetNotifyHook([&](TNotifyUI& told) {
      if (told.type != kNotifyTimer || told.value != kTimer) return false;
      met = condition();
      if (met || std::chrono::steady_clock::now() > end) desktop.Quit();
      return true;
    });
    content.SetTimer(&root, kTimer, 5);
    desktop.Run();
    content.KillTimer(&root, kTimer);
    root.SetNotifyHook({});
    EXPECT_TRUE(met);
  }

  template <typename Class>
  Class& Get(const std::wstring& name) {
    auto* const control = dynamic_cast<Class*>(content.FindControl(name));
    if (control == nullptr) throw std::runtime_error("no such control");
    return *control;
  }
  Point MiddleOf(const std::wstring& name) {
    content.LayOut();
    return Get<CControlUI>(name).GetPos().Middle();
  }

  Desktop& desktop;
  RecordingPump pump;
  Heard all;
  CPaintManagerUI content;
  std::unique_ptr<TopWindow> window;
  const Hand hand{"sample"};
};

TEST_F(DesktopTest, ShowsWhatAPictureShows) {
  hand.Move({5, 5});
  RunUntil([&] { return ShowsPicture(hand, content, 0); });
}

TEST_F(DesktopTest, APersonsClicksAndKeysReachTheControls) {
  FillList(40);
  const auto heard = [&](const std::string& line) {
    RunUntil([&] {
      for (std::string& one : pump.Take()) all.push_back(std::move(one));
      return std::find(all.begin(), all.end(), line) != all.end();
    });
    all.clear();
  };
  hand.Click(MiddleOf(L"btnMain"));
  heard("click btnMain 0");
  EXPECT_TRUE(Get<CControlUI>(L"btnMain").IsHovered());
  EXPECT_FALSE(content.ShowsFocus());

  hand.Key("Tab");
  hand.Key("space");
  heard("selectchanged optCheck 0");
  EXPECT_TRUE(content.ShowsFocus());

  const Rect bar = Get<CListUI>(L"list").GetScrollThumb();
  auto& list = Get<CListUI>(L"list");
  hand.Move({bar.left - 40, bar.Middle().y});
  hand.Wheel(3);  // the first notch may only tell where the wheel stands
  RunUntil([&] { return list.GetScrollPos() >= 240; });

  // Held at its middle, and not let go by leaving it.
  const Rect thumb = list.GetScrollThumb();
  hand.Move(thumb.Middle());
  hand.Press();
  RunUntil([&] { return content.GetPressed() == &list; });
  hand.Move({thumb.left - 200, 540});
  RunUntil([&] { return list.GetScrollPos() == list.GetScrollRange(); });
  hand.Move({thumb.left - 200, 4});
  RunUntil([&] { return list.GetScrollPos() == 0; });
  hand.Release();
  hand.Click({bar.left - 40, list.GetPos().top + 8 + 16});
  heard("itemselect  0");
  hand.Key("End");
  heard("itemselect  39");
}

TEST_F(DesktopTest, PaintsOnlyWhatHasChanged) {
  hand.Move({5, 5});
  RunUntil([&] { return hand.Look().size == kSize; });
  const Hand::Shot before = hand.Look();
  // Colours of the theme that nothing tells of: where they show something was painted anew.
  content.GetTheme().SetColour(L"window", 0xFF00FF00, 0xFF00FF00);
  content.GetTheme().SetColour(L"card", 0xFF00FF00, 0xFF00FF00);
  const Rect place = Get<CControlUI>(L"txtNumbers").GetPos();
  Rect changed;
  Get<CLabelUI>(L"txtNumbers").SetText(L"9876543210");
  RunUntil([&] {
    const Hand::Shot after = hand.Look();
    for (int y = 0; y < kSize.height; ++y) {
      for (int x = 0; x < kSize.width; ++x) {
        if (after.At(x, y) != before.At(x, y)) changed = changed.Holding({x, y, x + 1, y + 1});
      }
    }
    return !changed.IsEmpty();
  });
  EXPECT_TRUE(place.GrownBy(content.GetPaintReach()).Holds(changed)) << changed.Height();
}

TEST_F(DesktopTest, ClosuresAndTimersRunInTimeAndNothingElseWakesTheLoop) {
  std::vector<int> ran;
  std::thread other([&] {
    for (int number = 0; number < 100; ++number) {
      UIMainQueue::dispatch([&ran, number] { ran.push_back(number); });
    }
    UIMainQueue::dispatch([this] { desktop.Quit(); });
  });
  desktop.Run();
  other.join();
  ASSERT_EQ(ran.size(), 100u);
  EXPECT_TRUE(std::is_sorted(ran.begin(), ran.end()));

  UIMainQueue::dispatch([] { throw std::runtime_error("of a closure"); });
  auto& button = Get<CControlUI>(L"btnMain");
  button.SetNotifyHook([&](TNotifyUI& told) -> bool {
    if (told.type == kNotifyTimer) desktop.Quit();
    throw std::runtime_error("of a timer");
  });
  content.SetTimer(&button, 7, 20);
  const auto began = std::chrono::steady_clock::now();
  desktop.Run();
  EXPECT_GE(std::chrono::steady_clock::now() - began, milliseconds(20));
  const std::string log = TestLog::Instance().Take();
  EXPECT_NE(log.find("of a closure"), std::string::npos) << log;
  EXPECT_NE(log.find("of a timer"), std::string::npos) << log;
  content.KillTimer(&button);
}

TEST_F(DesktopTest, ThePersonClosesItAndMayBeAskedFirst) {
  int asked = 0;
  window->closeAsked = [&] { return ++asked == 2; };
  hand.Close();
  RunUntil([&] { return asked == 1; });
  window->closed = [&] {
    window.reset();  // which it may
    desktop.Quit();
  };
  hand.Close();
  desktop.Run();
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(window, nullptr);
}

TEST_F(DesktopTest, TellsWhenTheSystemChangesBetweenLightAndDark) {
  AskForDark(false);
  RunUntil([&] { return !desktop.IsDark(); });
  std::vector<bool> told;
  desktop.darkChanged = [&] { told.push_back(desktop.IsDark()); };
  AskForDark(true);
  RunUntil([&] { return desktop.IsDark(); });
  AskForDark(true);
  AskForDark(false);
  RunUntil([&] { return !desktop.IsDark(); });
  EXPECT_EQ(told, (std::vector<bool>{true, false}));
  desktop.darkChanged = nullptr;
}

class SampleDialog final : public WindowImplBase {
 public:
  CDuiString GetWindowClassName() const override { return L"SampleDialog"; }
  int OnNcHitTest(Point screen) override {
    return ScreenToClient(screen).y < 60 ? kHitCaption : kHitClient;
  }
  void OnCancel() override {
    ++cancels;
    Close(5);
  }
  int cancels = 0;

 protected:
  CDuiString GetSkinFile() const override { return L"dialog.xml"; }
  CDuiString GetSkinFolder() const override { return kResources.wstring(); }
  void InitWindow() override { GetManager().SetSkinFolder(kResources); }
};

TEST_F(DesktopTest, AModalWindowRunsClosuresTakesTheInputAndIsDragged) {
  hand.Move({5, 5});
  RunUntil([&] { return ShowsPicture(hand, content, 0); });
  const unsigned bright = hand.Look().At(10, 10);
  SampleDialog dialog;
  ASSERT_TRUE(dialog.Create(&content, L"modal", 0, 0));
  dialog.CenterWindow();
  const Hand over("modal");

  Point from;
  Point to;
  bool showed = false;
  unsigned dimmed = 0;
  std::vector<std::string> steps;
  // Each step runs in the loop of the modal window, when what came before it has been done.
  const std::function<bool()> script[] = {
      [&] { return showed = ShowsPicture(over, dialog.GetManager(), 14); },
      [&] {
        dimmed = hand.Look().At(10, 10);
        return dimmed != bright;
      },
      [&] {
        hand.Click({60, 40});  // beside it
        from = over.Place();
        over.Move({200, 30});
        over.Press();
        over.Move({205, 35});
        return true;
      },
      [&] {
        over.Move({205, 35});
        to = over.Place();
        return to.x >= from.x + 20 && to.y >= from.y + 20;
      },
      [&] {
        over.Release();
        over.Key("Escape");
        return true;
      },
  };
  std::size_t step = 0;
  CControlUI& root = *dialog.GetManager().GetRoot();
  root.SetNotifyHook([&](TNotifyUI&) {
    if (step < std::size(script) && script[step]()) ++step;
    return true;
  });
  dialog.GetManager().SetTimer(&root, 0, 5);

  int result = -1;
  UIMainQueue::dispatch([&] {
    UIMainQueue::dispatch([&] { steps.emplace_back("closure in its loop"); });
    result = dialog.ShowModal();
    steps.emplace_back("end of its loop");
    desktop.Quit();
  });
  desktop.Run();
  EXPECT_TRUE(showed);
  EXPECT_EQ(steps, (std::vector<std::string>{"closure in its loop", "end of its loop"}));
  EXPECT_EQ(result, 5);
  EXPECT_EQ(dialog.cancels, 1);
  EXPECT_LT(dimmed & 0xFF, bright & 0xFF);
  EXPECT_EQ(pump.Take(), Heard{});
  RunUntil([&] { return hand.Look().At(10, 10) == bright; });
}

}  // namespace
}  // namespace DuiLib
