#include "platform/util/identifiers_in_text.h"

#include <algorithm>

#include "common/text.h"
#include "platform/machine/machine.h"
#include "platform/util/identifier_hash.h"

namespace util {
namespace {

constexpr std::size_t kLeastLength = 4;  // shorter ones are common words and numbers
constexpr std::size_t kMacLength = 17;

bool IsHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool IsWordCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsMacAddress(std::string_view text) {
  if (text.size() != kMacLength || (text[2] != ':' && text[2] != '-')) return false;
  for (std::size_t i = 0; i < kMacLength; ++i)
    if (i % 3 == 2 ? text[i] != text[2] : !IsHexDigit(text[i])) return false;
  return true;
}

// Length of the identifier that begins here; 0 when none does.
std::size_t IdentifierAt(std::string_view rest, const std::vector<std::string>& identifiers) {
  std::size_t longest = IsMacAddress(rest.substr(0, kMacLength)) ? kMacLength : 0;
  for (const std::string& identifier : identifiers)
    if (rest.starts_with(identifier)) longest = std::max(longest, identifier.size());
  const bool endsAWord = longest == rest.size() || !IsWordCharacter(rest[longest]);
  return endsAWord ? longest : 0;
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace

std::vector<std::string> MachineIdentifiers() {
  using machine::InfoCall;
  const machine::Inventory& info = machine::Current().Info();
  std::vector<std::string> identifiers;
  for (const InfoCall call : {InfoCall::BaseboardSerialNumber, InfoCall::MemorySerialNumber,
                              InfoCall::DiskSerialNumber, InfoCall::AdapterMacAddress}) {
    for (std::size_t i = 0; i < info.Size(call); ++i) {
      std::string text = Trimmed(common::WideToUtf8(info.Text(call, static_cast<int>(i))));
      if (IsMacAddress(text)) {
        identifiers.push_back(text);
        std::erase_if(text, [](char c) { return c == ':' || c == '-'; });
      }
      if (text.size() >= kLeastLength) identifiers.push_back(text);
    }
  }
  return identifiers;
}

std::string HashIdentifiers(std::string_view text, const std::vector<std::string>& identifiers) {
  std::string hashed;
  hashed.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const bool beginsAWord = at == 0 || !IsWordCharacter(text[at - 1]);
    const std::size_t length = beginsAWord ? IdentifierAt(text.substr(at), identifiers) : 0;
    if (length == 0) {
      hashed += text[at++];
      continue;
    }
    hashed += HashIdentifier(text.substr(at, length));
    at += length;
  }
  return hashed;
}

}  // namespace util
