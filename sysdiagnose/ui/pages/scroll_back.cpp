#include "sysdiagnose/ui/pages/scroll_back.h"

#include <algorithm>

namespace orv::sysdiagnose {

int ScrollBackStep(DuiLib::CListUI& list, int target) {
  constexpr int kTicks = 1000 / kTickMs;
  const int way = list.GetScrollPos() - target;
  return std::max((way + kTicks - 1) / kTicks, list.GetLineStep());
}

}  // namespace orv::sysdiagnose
