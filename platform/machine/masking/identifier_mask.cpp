#include "platform/machine/masking/identifier_mask.h"

#include <algorithm>
#include <array>

#include "common/ascii.h"
#include "common/text.h"
#include "platform/machine/masking/identifier_hash.h"

namespace machine {
namespace {

constexpr std::size_t kAddressDigits = 12;
constexpr std::size_t kHashLength = 13;
constexpr std::size_t kShortest = 4;  // that is looked for inside words

constexpr std::wstring_view kHexDigits = L"0123456789ABCDEF";
constexpr std::wstring_view kSeparators = L"-:. _";

constexpr auto kIdentifiers =
    std::to_array<InfoCall>({InfoCall::BaseboardSerialNumber, InfoCall::MemorySerialNumber,
                             InfoCall::DiskSerialNumber, InfoCall::AdapterMacAddress});

bool IsHex(wchar_t c) {
  return kHexDigits.find(c) != std::wstring_view::npos;
}

bool IsOfWord(wchar_t c) {
  return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || c == L'.' || c == L'-' ||
         c == L'_' || c >= 0x80;
}

bool IsWordAt(std::wstring_view upper, std::size_t place, std::size_t length) {
  const std::size_t end = place + length;
  return (place == 0 || !IsOfWord(upper[place - 1])) &&
         (end == upper.size() || !IsOfWord(upper[end]));
}

bool IsHash(std::wstring_view upper) {
  return upper.size() == kHashLength && upper.front() == L'#' &&
         std::all_of(upper.begin() + 1, upper.end(), &IsHex);
}

std::wstring HashOf(std::wstring_view text) {
  return common::Utf8ToWide(HashIdentifier(common::WideToUtf8(text)));
}

// Twelve digits with at most one separator between two of them.
struct Address {
  std::wstring digits;
  std::wstring separators;  // in order
  std::size_t length = 0;
};

Address ReadAddress(std::wstring_view upper, std::size_t place) {
  Address address;
  std::size_t at = place;
  while (at < upper.size() && address.digits.size() < kAddressDigits) {
    if (!address.digits.empty() && kSeparators.find(upper[at]) != std::wstring_view::npos)
      address.separators += upper[at++];
    if (at == upper.size() || !IsHex(upper[at])) return {};
    address.digits += upper[at++];
  }
  if (address.digits.size() == kAddressDigits) address.length = at - place;
  return address;
}

bool IsUsualNotation(const Address& address, std::wstring_view upper, std::size_t place) {
  const std::wstring& separators = address.separators;
  const bool isPairs = separators == L"-----" || separators == L":::::";
  if (!isPairs && separators != L"..") return false;
  const std::size_t group = isPairs ? 2 : 4;
  for (std::size_t i = group; i < address.length; i += group + 1)
    if (upper[place + i] != separators.front()) return false;
  return true;
}

}  // namespace

IdentifierMask::IdentifierMask(const Inventory& info) : active(true) {
  for (const InfoCall call : kIdentifiers) Learn(call, info);
  std::ranges::stable_sort(serialNumbers, std::ranges::greater(),
                           [](const Identifier& known) { return known.text.size(); });
}

void IdentifierMask::Learn(InfoCall call, const Inventory& info) {
  for (std::size_t i = 0; i < info.Size(call); ++i) {
    const std::wstring text = common::Trimmed(info.Text(call, static_cast<int>(i)));
    const std::wstring upper = common::UpperCase(text);
    if (upper.empty() || IsHash(upper)) continue;
    const Address address = ReadAddress(upper, 0);
    if (call == InfoCall::AdapterMacAddress && address.length == upper.size())
      addressDigits.push_back(address.digits);
    else
      serialNumbers.push_back({upper, HashOf(text)});
  }
}

IdentifierMask::Found IdentifierMask::FindAddressAt(std::wstring_view upper,
                                                    std::size_t place) const {
  const Address address = ReadAddress(upper, place);
  if (address.length == 0) return {};
  if (std::ranges::count(addressDigits, address.digits) == 0 &&
      !IsUsualNotation(address, upper, place))
    return {};
  return {address.length, HashOf(address.digits)};
}

IdentifierMask::Found IdentifierMask::FindAt(std::wstring_view upper, std::size_t place) const {
  Found found = FindAddressAt(upper, place);
  for (const Identifier& known : serialNumbers) {
    if (known.text.size() <= found.length) break;
    if (upper.substr(place, known.text.size()) != known.text) continue;
    if (known.text.size() < kShortest && !IsWordAt(upper, place, known.text.size())) continue;
    return {known.text.size(), known.hash};
  }
  return found;
}

std::wstring IdentifierMask::Apply(std::wstring_view text) const {
  if (!active) return std::wstring(text);
  const std::wstring upper = common::UpperCase(text);
  std::wstring masked;
  for (std::size_t place = 0; place < text.size();) {
    const Found found = FindAt(upper, place);
    if (found.length == 0) {
      masked += text[place++];
      continue;
    }
    masked += found.hash;
    place += found.length;
  }
  return masked;
}

std::string IdentifierMask::Apply(std::string_view text) const {
  return common::WideToUtf8(Apply(common::Utf8ToWide(text)));
}

}  // namespace machine
