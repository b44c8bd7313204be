#include <gmock/gmock.h>

#include "tests/plugins_manager/exported_names.h"

namespace {

// Any other symbol could be bound to by a library that stays, and would keep the plugin loaded.
TEST(PluginLibrary, ExportsItsEntryPointsAndNothingElse) {
  EXPECT_THAT(
      ExportedNames(PLUGIN),
      testing::UnorderedElementsAre("x3InitializePlugin", "x3UninitializePlugin", "x3InitPlugin",
                                    "x3FreePlugin", "x3InternalCreate", "x3CreateObject"));
}

TEST(PluginLibrary, ItsManagerExportsWhatItLooksUp) {
  EXPECT_THAT(ExportedNames(MANAGER),
              testing::IsSupersetOf({"x3RegisterPlugin", "x3UnregisterPlugin"}));
}

}  // namespace
