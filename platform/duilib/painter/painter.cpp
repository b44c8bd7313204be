#include "platform/duilib/painter/painter.h"

#include "common/log.h"
#include "platform/duilib/window/window_library.h"

namespace DuiLib {
namespace {

Painter* FromLibrary() {
  const auto procedure =
      reinterpret_cast<PainterProcedure>(WindowLibraryProcedure(kPainterProcedure));
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
