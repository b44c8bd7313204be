#pragma once

#include <filesystem>
#include <vector>

#include "platform/duilib/tree/paint_manager.h"
#include "platform/duilib/window/text_measure.h"

namespace DuiLib {

/// Measures and paints. UI thread only.
class DUILIB_API Painter {
 public:
  Painter();
  virtual ~Painter();
  Painter(const Painter&) = delete;
  Painter& operator=(const Painter&) = delete;

  /// Exact text sizes; lives as long as the painter.
  virtual TextMeasure& Measure() = 0;

  /// Writes a picture of windows as they stand, laid out first, each over those before it, in the
  /// middle of the first, which is dimmed under them: client size x scale of the first. PNG. Throws
  /// std::runtime_error naming the file.
  virtual void PaintInto(const std::filesystem::path& png,
                         const std::vector<CPaintManagerUI*>& windows) = 0;

  /// The painter of the DuiWindow library, which lies beside this one and is loaded at the first
  /// call. Null, and one log line, where it cannot be loaded. Never unloaded.
  static Painter* Load();
};

/// What the library exports: its one painter, under the name kPainterProcedure.
using PainterProcedure = Painter* (*)();
inline constexpr const char* kPainterProcedure = "ThePainter";

}  // namespace DuiLib
