#pragma once

#include <filesystem>
#include <string>

#include "platform/machine/live/category.h"

namespace machine {

/// Takes the driver from a device and gives it back, or finds one for a device without. `device` is
/// its folder, links resolved. A child does it, which comes to its end even if this program does
/// not. Empty when it is done, which does not say that the device works; else why it could not be.
/// Takes seconds.
std::wstring BindAgain(const std::filesystem::path& device);

/// Gives a device its driver back that an earlier program took away and did not come to return.
Category UnfinishedBinding();

}  // namespace machine
