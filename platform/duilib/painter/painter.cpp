#include "platform/duilib/painter/painter.h"

#include "common/log.h"
#include "platform/os/module.h"

namespace DuiLib {
namespace {

constexpr const char* kLibrary = "DuiWindow.dll";

Painter* FromLibrary() {
  const os::ModuleHandle library = os::LoadModule(kLibrary);
  const auto procedure =
      reinterpret_cast<PainterProcedure>(os::FindProcedure(library, kPainterProcedure));
  if (procedure != nullptr) return procedure();
  COMMON_LOG_WARN(log4cxx::Logger::getLogger("orv.duilib"),
                  "there is no painter: the library DuiWindow cannot be loaded");
  return nullptr;
}

}  // namespace

Painter::Painter() = default;
Painter::~Painter() = default;

Painter* Painter::Load() {
  static Painter* const painter = FromLibrary();
  return painter;
}

}  // namespace DuiLib
