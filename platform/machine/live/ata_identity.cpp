#include "platform/machine/live/ata_identity.h"

#include "common/ascii.h"

namespace machine {
namespace {

constexpr std::size_t kPageSize = 572;
constexpr std::byte kPageCode{0x89};
constexpr std::size_t kCommandAt = 56;
constexpr std::byte kIdentifyDevice{0xEC};
constexpr std::size_t kAnswerAt = 60;

// Places in the answer, in words of two letters.
constexpr std::size_t kSerialWord = 10, kSerialWords = 10;
constexpr std::size_t kFirmwareWord = 23, kFirmwareWords = 4;
constexpr std::size_t kModelWord = 27, kModelWords = 20;

/// The second letter of a word comes first.
std::string Text(std::span<const std::byte> page, std::size_t word, std::size_t words) {
  std::string text;
  for (std::size_t i = word; i < word + words; ++i) {
    for (const std::size_t half : {std::size_t{1}, std::size_t{0}}) {
      const auto letter = static_cast<char>(page[kAnswerAt + 2 * i + half]);
      text += letter >= ' ' && letter <= '~' ? letter : ' ';
    }
  }
  return common::Trimmed(text);
}

}  // namespace

std::optional<AtaIdentity> ParseAtaPage(std::span<const std::byte> page) {
  if (page.size() < kPageSize || page[1] != kPageCode || page[kCommandAt] != kIdentifyDevice)
    return std::nullopt;
  AtaIdentity identity{Text(page, kModelWord, kModelWords), Text(page, kSerialWord, kSerialWords),
                       Text(page, kFirmwareWord, kFirmwareWords)};
  if (identity.model.empty()) return std::nullopt;
  return identity;
}

}  // namespace machine
