#include "sysdiagnose/ui/pages/scroll_into_sight.h"

namespace orv::sysdiagnose {

void ScrollIntoSight(DuiLib::CListUI& list, const DuiLib::CControlUI& control) {
  const int position = list.GetScrollPos();  // lays out what has changed
  const DuiLib::Rect& view = list.GetPos();
  const DuiLib::Rect& place = control.GetPos();
  if (place.top < view.top) list.SetScrollPos(position + place.top - view.top);
  if (place.bottom > view.bottom) list.SetScrollPos(position + place.bottom - view.bottom);
}

}  // namespace orv::sysdiagnose
