#include <gmock/gmock.h>

#include <sstream>

#include "platform/os/process.h"

namespace {

// Any other symbol could be bound to by a library that stays, and would keep the plugin loaded.
TEST(PluginLibrary, ExportsItsEntryPointsAndNothingElse) {
  const auto listed = os::RunProcess(
      {"nm", "-D", "--defined-only", "--format=just-symbols", PLUGIN}, std::chrono::seconds(60));
  ASSERT_TRUE(listed.has_value());
  ASSERT_EQ(listed->exitStatus, 0);
  std::istringstream lines(listed->output);
  const std::vector<std::string> names(std::istream_iterator<std::string>(lines), {});
  EXPECT_THAT(names, testing::UnorderedElementsAre("x3InitializePlugin", "x3UninitializePlugin",
                                                   "x3InitPlugin", "x3FreePlugin",
                                                   "x3InternalCreate", "x3CreateObject"));
}

}  // namespace
