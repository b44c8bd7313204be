#pragma once

#include <string>
#include <string_view>

namespace machine {

/// A text of the firmware without white space around it; empty where the maker of the machine has
/// left a filler standing, such as "To Be Filled By O.E.M." or "Default string".
std::string FirmwareText(std::string_view text);

}  // namespace machine
