#pragma once

#include <vector>

#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/ui/pages/content_page.h"

namespace orv::sysdiagnose {

/// The detect page: a diagnosis while it runs, its result, and its repairs. UI thread only.
class PageDetect final : public ContentPage {
 public:
  PageDetect();
  ~PageDetect() = default;

  /// Begins a diagnosis of these categories. To be called before the page is shown.
  void StartDetect(std::vector<enmHardwareID>) {}
};

}  // namespace orv::sysdiagnose
