#pragma once

#include "platform/duiwindow/letterings.h"
#include "platform/duiwindow/pictures.h"
#include "platform/duiwindow/shadows.h"
#include "platform/duiwindow/texts.h"

namespace duiwindow {

/// What is kept from one painting to the next.
struct Paints {
  Texts texts;
  Letterings letterings{texts};
  Pictures pictures;
  Shadows shadows;
};

/// Those of this process: windows and pictures share them. The toolkit has been started.
Paints& ThePaints();

}  // namespace duiwindow
