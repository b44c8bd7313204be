#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/machine/live/edid.h"

namespace machine {

/// The mode in which a connector ("eDP-1") of a graphics card (/dev/dri/card0) is driven, by the
/// kernel's own account: nothing is probed. Nothing when this user may not open the card, when it
/// does not answer in time or when the connector is not driven.
std::optional<DisplayMode> CurrentMode(const std::filesystem::path& card,
                                       const std::string& connector);

}  // namespace machine
