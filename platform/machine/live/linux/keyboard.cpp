#include <array>

#include "platform/machine/live/category.h"

namespace machine {
namespace {

// Filter keys belong to each desktop here, not to the system, and no service stands behind the hot
// keys.
TestAnswer FindNothing(const Devices&, TestCall, int) {
  return {};
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::KeyboardFilterKey, FindNothing},
    {TestCall::KeyboardHotKey, FindNothing},
});

}  // namespace

Category KeyboardCategory() {
  return {.tests = kTests};
}

}  // namespace machine
