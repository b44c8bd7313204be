#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "common/text.h"
#include "platform/duilib/builder/dialog_builder.h"
#include "platform/duilib/painter/tree_painter.h"
#include "platform/duilib/window/headless_window.h"

using namespace DuiLib;

namespace {

// Takes what is painted, and holds that each clip is taken off again.
class NoSurface final : public Surface {
 public:
  ~NoSurface() override {
    if (clips != 0) std::abort();
  }
  void PushClip(const Rect&) override { ++clips; }
  void PopClip() override { --clips; }
  void FillBox(const Box&, const Fill&) override {}
  void DrawBorder(const Box&, int, std::uint32_t) override {}
  void DrawShadow(const Box&, int, std::uint32_t) override {}
  void DrawPicture(const std::filesystem::path&, const Rect&,
                   std::optional<std::uint32_t>) override {}
  void DrawText(std::wstring_view, const Font&, std::uint32_t, Point) override {}

 private:
  int clips = 0;
};

void Paint(CPaintManagerUI& window) {
  NoSurface surface;
  PaintWindow(window, surface, {0, 0, 400, 300});
}

}  // namespace

// Builds the layout, lays it out and paints it at two sizes, and goes through it with keyboard and
// pointer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  HeadlessWindow window({400, 300});
  CPaintManagerUI& manager = window.Manager();
  // Beginning with '<', so that it is never the name of a file.
  window.Open(CDialogBuilder().Create(common::Utf8ToWide("<" + std::string(text)), {}, &manager));
  manager.LayOut(true);
  Paint(manager);
  for (const Key key :
       {Key::kTab, Key::kSpace, Key::kDown, Key::kEnd, Key::kEnter, Key::kBackTab}) {
    window.Press(key);
  }
  manager.SetClientSize({31, 17});
  for (int y = 0; y < 17; y += 4) {
    manager.OnMouseDown({15, y});
    manager.OnMouseUp({15, y});
    manager.OnWheel({15, y}, -1);
  }
  manager.RunDueTimers();
  Paint(manager);
  return 0;
}
