#include "platform/machine/live/linux/sound_cards.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <system_error>

#include "common/ascii.h"
#include "platform/machine/live/linux/device_folder.h"
#include "platform/machine/live/linux/hardware_database.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kTextLimit = std::size_t{64} << 10;

// Drivers that make sound for programs alone, and that of the beeper.
constexpr auto kNoHardware =
    std::to_array<std::string_view>({"Loopback", "Dummy", "VirMIDI", "PC-Speaker", "Aloop"});

/// Takes the text up to a separator, which is taken away too; all of it where there is none.
std::string Take(std::string_view& text, std::string_view separator) {
  const std::size_t place = std::min(text.find(separator), text.size());
  std::string taken = common::Trimmed(text.substr(0, place));
  text.remove_prefix(std::min(place + separator.size(), text.size()));
  return taken;
}

std::optional<int> NumberOf(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 0) return std::nullopt;
  return number;
}

std::string AsoundFolder(int card) {
  return "/proc/asound/card" + std::to_string(card);
}

std::string ValueOf(std::string_view text, std::string_view key) {
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (!line.starts_with(key)) continue;
    line.remove_prefix(key.size());
    return common::Trimmed(line);
  }
  return {};
}

bool IsForDisplays(std::string_view codec) {
  return codec.find("HDMI") != std::string_view::npos ||
         codec.find("Display") != std::string_view::npos;
}

/// The first word of a codec's name is its maker, unless the kernel does not know it.
std::string MakerOfCodec(const fs::path& file) {
  const std::string name = ValueOf(ReadText(file, kTextLimit), "Codec:");
  std::string_view rest = name;
  const std::string first = Take(rest, " ");
  return first == "Generic" || IsForDisplays(name) ? std::string() : first;
}

std::string MakerOfCodecs(int card) {
  const fs::path folder = os::SystemPath(AsoundFolder(card));
  for (const std::string& name : ListNames(folder)) {
    if (!name.starts_with("codec#")) continue;
    if (std::string maker = MakerOfCodec(folder / name); !maker.empty()) return maker;
  }
  return {};
}

std::string MakerOfDevice(const fs::path& device) {
  if (std::string own = ReadLine(device.parent_path() / "manufacturer"); !own.empty()) return own;
  const auto maker = ReadHex(device / "vendor");
  return maker ? PciName(*maker, ReadHex(device / "device").value_or(0)).maker : std::string();
}

}  // namespace

// " 0 [PCH            ]: HDA-Intel - HDA Intel PCH", and a line of details after each.
std::vector<ListedCard> ParseCards(std::string_view text) {
  std::vector<ListedCard> cards;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const std::optional<int> number = NumberOf(Take(line, "["));
    Take(line, "]:");
    ListedCard card{number.value_or(0), Take(line, " - "), common::Trimmed(line)};
    if (number && !card.driver.empty()) cards.push_back(std::move(card));
  }
  return cards;
}

// "00-03: HDMI 0 : HDMI 0 : playback 1", with " : capture 1" where it records.
std::vector<Stream> ParseStreams(std::string_view text) {
  std::vector<Stream> streams;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const std::optional<int> card = NumberOf(Take(line, "-"));
    const std::optional<int> device = NumberOf(Take(line, ":"));
    if (!card || !device) continue;
    const bool plays = line.find(": playback ") != std::string_view::npos;
    const bool records = line.find(": capture ") != std::string_view::npos;
    streams.push_back({*card, *device, Take(line, " : "), plays, records});
  }
  return streams;
}

std::vector<SoundCard> ListSoundCards() {
  std::vector<SoundCard> cards;
  for (const ListedCard& listed :
       ParseCards(ReadText(os::SystemPath("/proc/asound/cards"), kTextLimit))) {
    if (std::ranges::count(kNoHardware, listed.driver) > 0) continue;
    SoundCard card{.number = listed.number,
                   .device = DeviceFolder(os::SystemPath(
                       "/sys/class/sound/card" + std::to_string(listed.number) + "/device")),
                   .name = listed.name.empty() ? listed.driver : listed.name,
                   .maker = MakerOfCodecs(listed.number)};
    if (!card.device.empty() && !IsInner(card.device)) continue;
    if (card.maker.empty()) card.maker = MakerOfDevice(card.device);
    cards.push_back(std::move(card));
  }
  return cards;
}

}  // namespace machine
