#pragma once

#include <functional>
#include <vector>

#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/ui/pages/content_page.h"

namespace orv::sysdiagnose {

/// The scan page: lists the machine's hardware, and asks what to test. UI thread only.
class PageScan final : public ContentPage {
 public:
  PageScan();
  ~PageScan() = default;

  using SelectHardwareCallback = std::function<void(std::vector<enmHardwareID>&)>;

  void SetSelectHardware(SelectHardwareCallback callback) { selectHardware = std::move(callback); }

  /// Begins a scan. To be called before the page is shown.
  void EnterScan() {}

 private:
  SelectHardwareCallback selectHardware;
};

}  // namespace orv::sysdiagnose
