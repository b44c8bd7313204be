#pragma once

#include <stdexcept>

namespace startup {

/// What the user typed cannot be meant; the text says what is wrong. It quotes what was typed as it
/// is, control characters included.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace startup
