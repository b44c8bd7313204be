#include "platform/util/log_file.h"

#include <gmock/gmock.h>

#include "common/log.h"
#include "platform/os/append_file.h"
#include "tests/support/temporary_folder.h"

namespace util {
namespace {

namespace fs = std::filesystem;

void Log(const std::string& text) {
  COMMON_LOG_INFO(log4cxx::Logger::getLogger("orv.test"), text);
}

std::string ErrorChannelOf(const std::string& text) {
  testing::internal::CaptureStderr();
  Log(text);
  return testing::internal::GetCapturedStderr();
}

TEST(LogFile, IsPutAwayWhenFullAndTellsItsOwnFailureOnce) {
  const TemporaryFolder folder;
  const fs::path file = folder.path / "log" / "sysdiagnose.log";
  StartLogFile(folder.path / "log");
  Log("before");
  fs::resize_file(file, os::kFullFile);
  Log("after");
  const auto isOneLine = testing::MatchesRegex(".* INFO  orv.test .*log_file_test.cpp:.* after\n");
  EXPECT_THAT(ReadText(file), isOneLine);
  EXPECT_EQ(ReadText(file).find('\n'), ReadText(file).size() - 1);
  EXPECT_EQ(fs::file_size(folder.path / "log" / "sysdiagnose.1.log"), os::kFullFile);

  fs::rename(file, folder.path / "aside.log");
  fs::resize_file(folder.path / "aside.log", os::kFullFile);
  fs::create_directory(file);
  EXPECT_THAT(ErrorChannelOf("lost"), testing::HasSubstr("sysdiagnose.log: cannot be written: "));
  EXPECT_EQ(ErrorChannelOf("lost too"), "");
  fs::remove(file);
  Log("after");
  EXPECT_THAT(ReadText(file), isOneLine);
}

}  // namespace
}  // namespace util
