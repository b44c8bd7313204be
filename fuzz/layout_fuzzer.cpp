#include <cstdint>
#include <string_view>

#include "common/text.h"
#include "platform/duilib/builder/dialog_builder.h"
#include "platform/duilib/window/headless_window.h"

using namespace DuiLib;

// Builds the layout, lays it out at two sizes, and goes through it with keyboard and pointer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  HeadlessWindow window({400, 300});
  CPaintManagerUI& manager = window.Manager();
  // Beginning with '<', so that it is never the name of a file.
  window.Open(CDialogBuilder().Create(common::Utf8ToWide("<" + std::string(text)), {}, &manager));
  manager.LayOut(true);
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
  manager.LayOut();
  return 0;
}
