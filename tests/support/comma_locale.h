#pragma once

#include <locale>
#include <string>

#include "tests/support/temporary_folder.h"

/// While it lives, numbers have a decimal comma and points between thousands: in the C++ locale and
/// in that of the C library. Needs no locale of the system. For the only thread of a test.
class CommaLocale {
 public:
  CommaLocale();
  ~CommaLocale();
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

  /// Whether the C library took its part.
  bool InForce() const;

 private:
  const TemporaryFolder folder;
  const std::locale before;
  const std::string numeric;  // the C library's before
};
