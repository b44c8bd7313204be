#include "platform/duiwindow/paints.h"

#include "platform/duiwindow/toolkit.h"

namespace duiwindow {

Paints& ThePaints() {
  static Paints& paints = [&]() -> Paints& {
    StartToolkit();
    return *new Paints;
  }();
  return paints;
}

}  // namespace duiwindow
