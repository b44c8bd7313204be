#include "manager/companion_service/shown_path.h"

#include <gtest/gtest.h>

namespace {

TEST(ShownPath, EscapesWhatIsNoText) {
  EXPECT_EQ(companion::ShownPath(L"log/gr\u00F6\u00DF"
                                 L"e.log"),
            "log\\gr\xC3\xB6\xC3\x9F"
            "e.log");
  EXPECT_EQ(companion::ShownPath(L"log/a \xD83D.log"), "log\\a %D83D.log");
}

}  // namespace
