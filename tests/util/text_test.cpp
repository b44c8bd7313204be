#include <gmock/gmock.h>

#include "common/log.h"
#include "platform/util/log_file.h"
#include "platform/util/text_helpers.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::ElementsAre;
using testing::MatchesRegex;

TEST(TextHelpers, KeepToAsciiAndToTheirEdges) {
  EXPECT_EQ(DE::TrimSP(std::string(" \t\r\n\v\fa b\xc2\xa0 ")), "a b\xc2\xa0");
  EXPECT_EQ(DE::TrimSP(std::wstring(L"  \u3000 ")), L"\u3000");
  EXPECT_EQ(DE::TrimSP(std::string(" \n ")), "");
  EXPECT_EQ(DE::UpperCase("az_\xc3\xa9`{"), "AZ_\xc3\xa9`{");
  EXPECT_THAT(DE::split(",a,,b,", ','), ElementsAre("", "a", "", "b", ""));
  EXPECT_THAT(DE::split("", ','), ElementsAre(""));
}

TEST(LogFile, TakesInfoAndAboveIntoAFolderOfAnyName) {
  const TemporaryFolder folder;
  const std::filesystem::path logs = folder.path / u8"журнал" / "log";
  util::StartLogFile(logs);
  const auto logger = log4cxx::Logger::getLogger("orv.test");
  LOG4CXX_DEBUG(logger, "not this");
  COMMON_LOG_WARN(logger, std::string("disk is full"));
  EXPECT_THAT(ReadText(logs / "sysdiagnose.log"),
              MatchesRegex("....-..-.. ..:..:..,... WARN  orv\\.test .*text_test\\.cpp:.+ "
                           "disk is full\r?\n"));

  WriteText(folder.path / "file", "");
  EXPECT_THROW(util::StartLogFile(folder.path / "file"), std::runtime_error);
}

}  // namespace
