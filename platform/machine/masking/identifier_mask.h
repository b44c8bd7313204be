#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/machine/interface/inventory.h"
#include "platform/os/export.h"

namespace machine {

/// Puts hashes in place of serial numbers and MAC addresses, for texts that leave the machine.
///
/// It knows the identifiers of one inventory and finds them in any letter case, inside longer texts
/// too; one of less than four characters only as a word of its own. A known address is found in any
/// notation and hashed as twelve upper-case digits; any other text in one of the usual notations of
/// an address counts as one. What is a hash already stays as it is. Any thread.
class UTIL_API IdentifierMask {
 public:
  /// Changes nothing.
  IdentifierMask() = default;

  explicit IdentifierMask(const Inventory& info);

  std::wstring Apply(std::wstring_view text) const;

  /// For UTF-8; malformed bytes become U+FFFD.
  std::string Apply(std::string_view text) const;

 private:
  struct Identifier {
    std::wstring text;  // ASCII letters in upper case
    std::wstring hash;
  };
  struct Found {
    std::size_t length = 0;  // 0: nothing
    std::wstring hash;
  };

  void Learn(InfoCall call, const Inventory& info);
  Found FindAt(std::wstring_view upper, std::size_t place) const;
  Found FindAddressAt(std::wstring_view upper, std::size_t place) const;

  bool active = false;
  std::vector<Identifier> serialNumbers;    // longest first
  std::vector<std::wstring> addressDigits;  // twelve each
};

}  // namespace machine
