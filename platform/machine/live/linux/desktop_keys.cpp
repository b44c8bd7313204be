#include "platform/machine/live/linux/desktop_keys.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/ascii.h"
#include "common/text.h"
#include "platform/machine/live/linux/bus.h"
#include "platform/machine/live/linux/mending.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"

namespace machine {
namespace {

using Words = std::vector<std::string>;

constexpr std::uint32_t kOn = 1;
constexpr std::uint32_t kNoHotKeys = 1;
constexpr std::chrono::seconds kToolLimit{4};

/// How a setting of a desktop is asked for and turned off, by the tool of that desktop.
struct Setting {
  const char* tool;
  const char* place;
  const char* name;
};

constexpr auto kGnome =
    std::to_array<Setting>({{"gsettings", "org.gnome.desktop.a11y.keyboard", "slowkeys-enable"},
                            {"gsettings", "org.gnome.desktop.a11y.keyboard", "bouncekeys-enable"}});
constexpr auto kCinnamon = std::to_array<Setting>(
    {{"gsettings", "org.cinnamon.desktop.a11y.keyboard", "slowkeys-enable"},
     {"gsettings", "org.cinnamon.desktop.a11y.keyboard", "bouncekeys-enable"}});
constexpr auto kMate =
    std::to_array<Setting>({{"gsettings", "org.mate.accessibility-keyboard", "slowkeys-enable"},
                            {"gsettings", "org.mate.accessibility-keyboard", "bouncekeys-enable"}});
constexpr auto kXfce = std::to_array<Setting>({{"xfconf-query", "accessibility", "/SlowKeys"},
                                               {"xfconf-query", "accessibility", "/BounceKeys"}});

/// A desktop, by its name in the session's environment.
struct Desktop {
  std::string_view name;
  std::span<const Setting> settings;
  const char* hotKeyService;  // on the session's bus
};
constexpr auto kDesktops = std::to_array<Desktop>({
    {"GNOME", kGnome, "org.gnome.SettingsDaemon.MediaKeys"},
    {"Unity", kGnome, "org.gnome.SettingsDaemon.MediaKeys"},
    {"X-Cinnamon", kCinnamon, "org.cinnamon.SettingsDaemon.MediaKeys"},
    {"MATE", kMate, "org.mate.SettingsDaemon"},
    {"XFCE", kXfce, nullptr},
    {"KDE", {}, "org.kde.kglobalaccel"},
});

/// The desktop of this session; null without one, or one that is not known.
const Desktop* FindDesktop() {
  const char* const value = std::getenv("XDG_CURRENT_DESKTOP");
  if (value == nullptr || os::SystemPath("/") != "/") return nullptr;
  const std::string names = ':' + std::string(value) + ':';
  const auto found = std::ranges::find_if(kDesktops, [&](const Desktop& desktop) {
    return names.find(':' + std::string(desktop.name) + ':') != std::string::npos;
  });
  return found == kDesktops.end() ? nullptr : &*found;
}

bool IsXfconf(const Setting& setting) {
  return std::string_view(setting.tool) == "xfconf-query";
}

Words ToRead(const Setting& setting) {
  if (IsXfconf(setting)) return {setting.tool, "-c", setting.place, "-p", setting.name};
  return {setting.tool, "get", setting.place, setting.name};
}

Words ToTurnOff(const Setting& setting) {
  if (IsXfconf(setting))
    return {setting.tool, "-c", setting.place, "-p", setting.name, "-s", "false"};
  return {setting.tool, "set", setting.place, setting.name, "false"};
}

/// Nothing where the tool does not tell. A setting of Xfce that was never made is off.
std::optional<bool> IsOn(const Setting& setting, std::string& fault) {
  const auto result = os::RunProcess(ToRead(setting), kToolLimit, &fault);
  if (!result) return std::nullopt;
  const std::string answer = common::Trimmed(result->output);
  if (answer == "true" || answer == "false") return answer == "true";
  if (IsXfconf(setting) && result->exitStatus == 1) return false;
  fault = "tells nothing";
  return std::nullopt;
}

}  // namespace

TestAnswer TestSlowKeys() {
  const Desktop* const desktop = FindDesktop();
  if (desktop == nullptr || desktop->settings.empty())
    return {.notTested = L"there is no desktop here that tells whether slow keys are on"};
  for (const Setting& setting : desktop->settings) {
    std::string fault;
    const std::optional<bool> on = IsOn(setting, fault);
    if (!on) return {.notTested = common::Utf8ToWide(std::string(setting.tool) + ' ' + fault)};
    if (*on)
      return {.code = kOn, .text = L"short or repeated key strokes are dropped", .pass = false};
  }
  return {};
}

RepairAnswer TurnSlowKeysOff() {
  const Desktop* const desktop = FindDesktop();
  if (desktop == nullptr || desktop->settings.empty())
    return FailedRepair(L"there is no desktop here whose slow keys could be turned off");
  for (const Setting& setting : desktop->settings) {
    std::string fault;
    if (!IsOn(setting, fault).value_or(false)) continue;
    if (!os::RunProcess(ToTurnOff(setting), kToolLimit, &fault))
      return FailedRepair(common::Utf8ToWide(std::string(setting.tool) + ' ' + fault));
  }
  return TestAgain(TestSlowKeys);
}

TestAnswer TestHotKeys() try {
  const Desktop* const desktop = FindDesktop();
  const auto bus = desktop == nullptr ? nullptr : ConnectToSessionBus();
  if (bus == nullptr || desktop->hotKeyService == nullptr)
    return {.notTested = L"there is no desktop here that tells of its hot keys"};
  if (IsRunning(*bus, desktop->hotKeyService)) return {};
  return {.code = kNoHotKeys,
          .text = L"the desktop's service behind the hot keys does not run",
          .pass = false};
} catch (const sdbus::Error& error) {
  return {.notTested = L"the session gives no answer: " + common::Utf8ToWide(error.getMessage())};
}

}  // namespace machine
