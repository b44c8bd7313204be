#pragma once

#include <utility>

#include "platform/duilib/tree/paint_manager.h"

namespace DuiLib {

// While handlers run, nothing that they may come back to is destroyed.
class CPaintManagerUI::Delivery {
 public:
  explicit Delivery(CPaintManagerUI& ofManager) : manager(ofManager) { ++manager.deliveries; }
  ~Delivery() {
    if (--manager.deliveries == 0) std::exchange(manager.buried, {});
  }
  Delivery(const Delivery&) = delete;
  Delivery& operator=(const Delivery&) = delete;

 private:
  CPaintManagerUI& manager;
};

}  // namespace DuiLib
