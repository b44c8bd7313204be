#include "platform/duilib/window/desktop.h"

#include "platform/duilib/window/window_library.h"

namespace DuiLib {

TopWindow::TopWindow() = default;
TopWindow::~TopWindow() = default;

Desktop* Desktop::Load(std::string& reason) {
  const auto procedure =
      reinterpret_cast<DesktopProcedure>(WindowLibraryProcedure(kDesktopProcedure));
  if (procedure != nullptr) return procedure(reason);
  reason = "the library DuiWindow cannot be loaded";
  return nullptr;
}

}  // namespace DuiLib
