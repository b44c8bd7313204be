#include "platform/machine/live/linux/card_mode.h"

#include <drm.h>
#include <drm_mode.h>
#include <fcntl.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "platform/machine/live/linux/forked_call.h"
#include "platform/machine/live/linux/system_file.h"

namespace machine {
namespace {

constexpr std::size_t kMostConnectors = 64;

// The first part of a connector's name, by the kernel's number for its kind.
constexpr auto kKinds = std::to_array<std::string_view>(
    {"Unknown", "VGA", "DVI-I", "DVI-D", "DVI-A", "Composite", "SVIDEO", "LVDS", "Component", "DIN",
     "DP", "HDMI-A", "HDMI-B", "TV", "eDP", "Virtual", "DSI", "DPI"});

struct ConnectorName {
  std::uint32_t kind = 0;
  std::uint32_t number = 0;  // among those of its kind
};

std::optional<ConnectorName> ParseName(const std::string& name) {
  const std::size_t dash = name.rfind('-');
  if (dash == std::string::npos) return std::nullopt;
  const auto kind = std::ranges::find(kKinds, std::string_view(name).substr(0, dash));
  const auto number = LeadingNumber(name.substr(dash + 1));
  if (kind == kKinds.end() || !number) return std::nullopt;
  return ConnectorName{static_cast<std::uint32_t>(kind - kKinds.begin()),
                       static_cast<std::uint32_t>(*number)};
}

template <typename Question>
bool Ask(int card, unsigned long request, Question& question) {
  return ioctl(card, request, &question) == 0;
}

std::uint64_t AddressOf(void* place) {
  return reinterpret_cast<std::uintptr_t>(place);
}

/// The encoder that serves the connector; 0 for none.
std::uint32_t EncoderOf(int card, const ConnectorName& name) {
  std::array<std::uint32_t, kMostConnectors> connectors{};
  drm_mode_card_res resources{};
  resources.connector_id_ptr = AddressOf(connectors.data());
  resources.count_connectors = kMostConnectors;
  if (!Ask(card, DRM_IOCTL_MODE_GETRESOURCES, resources)) return 0;
  for (std::size_t i = 0; i < std::min<std::size_t>(resources.count_connectors, kMostConnectors);
       ++i) {
    // Room for modes: without any the kernel probes the connector.
    drm_mode_modeinfo mode{};
    drm_mode_get_connector connector{};
    connector.connector_id = connectors[i];
    connector.modes_ptr = AddressOf(&mode);
    connector.count_modes = 1;
    if (Ask(card, DRM_IOCTL_MODE_GETCONNECTOR, connector) &&
        connector.connector_type == name.kind && connector.connector_type_id == name.number)
      return connector.encoder_id;
  }
  return 0;
}

/// System calls only: runs in a child.
int ReadMode(const char* path, const ConnectorName& name, DisplayMode& answer) {
  const int card = open(path, O_RDWR | O_CLOEXEC | O_NONBLOCK);
  if (card < 0) return 1;
  drm_mode_get_encoder encoder{};
  encoder.encoder_id = EncoderOf(card, name);
  if (encoder.encoder_id == 0 || !Ask(card, DRM_IOCTL_MODE_GETENCODER, encoder)) return 1;
  drm_mode_crtc picture{};
  picture.crtc_id = encoder.crtc_id;
  if (picture.crtc_id == 0 || !Ask(card, DRM_IOCTL_MODE_GETCRTC, picture)) return 1;
  if (picture.mode_valid == 0) return 1;
  answer = {picture.mode.hdisplay, picture.mode.vdisplay, picture.mode.vrefresh};
  return 0;
}

}  // namespace

std::optional<DisplayMode> CurrentMode(const std::filesystem::path& card,
                                       const std::string& connector) {
  const auto name = ParseName(connector);
  if (!name || !Exists(card)) return std::nullopt;
  const SharedAnswer<DisplayMode> mode;
  const auto status = RunForked([&] { return ReadMode(card.c_str(), *name, *mode); },
                                AfterLimit::Kill, kQuestionLimit);
  if (status != 0) return std::nullopt;
  return *mode;
}

}  // namespace machine
