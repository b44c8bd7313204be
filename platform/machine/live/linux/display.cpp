#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/edid.h"
#include "platform/machine/live/linux/card_mode.h"
#include "platform/machine/live/linux/device_folder.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kEdidLimit = std::size_t{32} << 10;

// Kinds of connector that a laptop's own panel hangs on.
constexpr auto kPanels = std::to_array<std::string_view>({"eDP-", "LVDS-", "DSI-", "DPI-"});

struct Connector {
  fs::path folder;
  std::string card;  // card0
  std::string name;  // eDP-1

  bool IsPanel() const {
    return std::ranges::any_of(kPanels, [&](auto kind) { return name.starts_with(kind); });
  }
};

/// The connectors with a display, of cards that are built in.
std::vector<Connector> ListConnected() {
  const fs::path parent = os::SystemPath("/sys/class/drm");
  std::vector<Connector> connected;
  for (const std::string& entry : ListNames(parent)) {
    const std::size_t dash = entry.find('-');
    if (!entry.starts_with("card") || dash == std::string::npos) continue;
    Connector connector{parent / entry, entry.substr(0, dash), entry.substr(dash + 1)};
    if (ReadLine(connector.folder / "status") != "connected") continue;
    if (IsInner(DeviceFolder(parent / connector.card / "device")))
      connected.push_back(std::move(connector));
  }
  return connected;
}

/// The machine's own panel, else the first display.
std::optional<Connector> ChooseDisplay() {
  const std::vector<Connector> connected = ListConnected();
  if (connected.empty()) return std::nullopt;
  const auto panel = std::ranges::find_if(connected, &Connector::IsPanel);
  return panel != connected.end() ? *panel : connected.front();
}

/// A card that sleeps is not asked, for that would wake it.
std::optional<DisplayMode> ModeOf(const Connector& connector) {
  if (IsSleeping(DeviceFolder(os::SystemPath("/sys/class/drm") / connector.card / "device")))
    return std::nullopt;
  return CurrentMode(os::SystemPath("/dev/dri/" + connector.card), connector.name);
}

std::wstring SizeText(const DisplayMode& mode) {
  return std::to_wstring(mode.width) + L"x" + std::to_wstring(mode.height);
}

void ReadDisplay(Devices& devices) {
  const std::optional<Connector> connector = ChooseDisplay();
  if (!connector) return;
  const std::optional<Edid> edid = ParseEdid(ReadBytes(connector->folder / "edid", kEdidLimit));
  Inventory& answers = devices.answers;
  answers.Set(InfoCall::MonitorCaption,
              common::Utf8ToWide(edid ? CaptionOf(*edid) : connector->name));
  if (const std::optional<DisplayMode> mode = ModeOf(*connector)) {
    answers.Set(InfoCall::DisplayResolution, SizeText(*mode));
    answers.Set(InfoCall::RefreshRate, std::uint64_t{mode->rate});
  } else if (edid && edid->preferred.width != 0) {
    answers.Set(InfoCall::DisplayResolution, SizeText(edid->preferred) + L" (preferred mode)");
    answers.Set(InfoCall::RefreshRate, std::uint64_t{edid->preferred.rate});
  }
}

}  // namespace

Category DisplayCategory() {
  return {.read = ReadDisplay};
}

}  // namespace machine
