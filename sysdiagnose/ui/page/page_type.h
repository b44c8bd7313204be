#pragma once

namespace orv::sysdiagnose {

/// The content pages; the values are their places in the tab layout.
enum enumPageType { PAGE_ARCHIEVEMENT = 0, PAGE_SCAN = 1, PAGE_DETECT = 2 };

}  // namespace orv::sysdiagnose
