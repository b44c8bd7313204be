#pragma once

#include <utility>

#include "platform/duilib/tree/paint_manager.h"

namespace DuiLib {

// While handlers run, nothing that they may come back to is destroyed. Whoever goes on after a
// notification holds one; without a window there are no handlers but hooks.
class CPaintManagerUI::Delivery {
 public:
  explicit Delivery(CPaintManagerUI* ofManager) : manager(ofManager) {
    if (manager != nullptr) ++manager->deliveries;
  }
  ~Delivery() {
    if (manager != nullptr && --manager->deliveries == 0) std::exchange(manager->buried, {});
  }
  Delivery(const Delivery&) = delete;
  Delivery& operator=(const Delivery&) = delete;

 private:
  CPaintManagerUI* const manager;
};

}  // namespace DuiLib
