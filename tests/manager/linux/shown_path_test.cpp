#include "manager/companion_service/shown_path.h"

#include <gtest/gtest.h>

namespace {

TEST(ShownPath, EscapesWhatIsNoText) {
  EXPECT_EQ(companion::ShownPath("log/gr\xC3\xB6\xC3\x9F"
                                 "e.log"),
            "log/gr\xC3\xB6\xC3\x9F"
            "e.log");
  EXPECT_EQ(companion::ShownPath("log/a\xC3\xB6 \xE9\n.log"), "log/a%C3%B6 %E9%0A.log");
}

}  // namespace
