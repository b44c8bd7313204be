#include "platform/duilib/window/desktop.h"

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
  void RunUntil(const std::function<bool()>& condition) { RunContentUntil(content, condition); }

  void RunContentUntil(CPaintManagerUI& manager, const std::function<bool()>& condition) {
    bool met = false;
    const Watch watch(manager, [&] {
      met = condition();
      if (met) desktop.Quit();
    });
    desktop.Run();
    EXPECT_TRUE(met);
  }

  /// Asks again and again while a loop runs.
  class Watch {
   public:
    Watch(CPaintManagerUI& on, std::function<void()> ask) : manager(on), control(new CControlUI) {
      auto* const root = static_cast<CContainerUI*>(manager.GetRoot());
      control->SetNotifyHook([asks = std::move(ask)](TNotifyUI&) {
        asks();
        return true;
      });
      control->SetVisible(false);
      root->Add(control);
      manager.SetTimer(control, 0, 5);
    }
    ~Watch() { static_cast<CContainerUI*>(manager.GetRoot())->Remove(control); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

   private:
    CPaintManagerUI& manager;
    CControlUI* const control;
  };

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
  CPaintManagerUI content;
  std::unique_ptr<TopWindow> window;
  const Hand hand{"sample"};
};

TEST_F(DesktopTest, ShowsWhatAPictureShows) {
  hand.Move({5, 5});
  RunUntil([&] {
    TemporaryFolder folder;
    Painter::Load()->PaintInto(folder.path / "picture.png", {&content});
    const Picture picture(folder.path / "picture.png");
    const Hand::Shot shot = hand.Look();
    if (shot.size != picture.GetSize()) return false;
    for (int y = 0; y < shot.size.height; ++y) {
      for (int x = 0; x < shot.size.width; ++x) {
        if (shot.dots[static_cast<std::size_t>(y) * shot.size.width + x] != picture.At(x, y))
          return false;
      }
    }
    return true;
  });
}

}  // namespace
}  // namespace DuiLib
