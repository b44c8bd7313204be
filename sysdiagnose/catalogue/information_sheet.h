#pragma once

#include <functional>
#include <string>

#include "sysdiagnose/base/hardware_id.h"

namespace orv::sysdiagnose {

/// One row of an information sheet. An empty row stands between two devices, or for a category
/// without any row.
struct HardwareInfoRow {
  std::wstring label;
  std::wstring value;
};

/// A row on its way to a page.
struct tagHardwareDetailInfo : HardwareInfoRow {
  enmHardwareID category{};
  int kind = 0;       // kLabelledRow or kEmptyRow
  std::wstring name;  // on the first row of a device, its value

  static constexpr int kLabelledRow = 0;
  static constexpr int kEmptyRow = 1;
};

/// Takes the rows of a sheet in order. Its result is not used.
using InfoRowCallback = std::function<bool(enmHardwareID, tagHardwareDetailInfo&)>;

/// Hands out a category's rows, read from the libraries now; at least one, empty if need be. True
/// when the category has a row of its own. An id without a category hands out nothing. Any thread;
/// the callback runs on the caller's.
bool CollectInformation(enmHardwareID category, const InfoRowCallback& onRow);

}  // namespace orv::sysdiagnose
