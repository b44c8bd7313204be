#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/duilib/window/desktop.h"

namespace manager {

/// Whether the window is light or dark.
enum class ThemeChoice { kSystem, kLight, kDark };

/// "system", "light", "dark", in this order.
inline constexpr const char* kThemeNames[] = {"system", "light", "dark"};

/// What the manager remembers from one start to the next.
struct Settings {
  DuiLib::Placement placement{{}, {1040, 720}, false};
  ThemeChoice theme = ThemeChoice::kSystem;
  std::string language;  // empty: the user's
};

/// What does not make sense is left at its default. Throws std::runtime_error for a text that is no
/// JSON object.
Settings ParseSettings(std::string_view json);
std::string SettingsText(const Settings& settings);

/// Of the data folder in force. What cannot be read is one log line and the defaults; what cannot
/// be written is one log line.
Settings ReadSettings();
void WriteSettings(const Settings& settings);

}  // namespace manager
