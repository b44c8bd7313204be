#pragma once

#include <string>

namespace cli {

/// What a test library said about a test, beside its result.
struct ItemWords {
  std::wstring detail;     // what was found
  std::wstring notTested;  // why the test could not be made

  bool IsEmpty() const { return detail.empty() && notTested.empty(); }
};

}  // namespace cli
