#include "common/log.h"

#include <gtest/gtest.h>

namespace common {
namespace {

TEST(OneLine, ADeviceNameCannotSplitOrForgeALine) {
  EXPECT_EQ(OneLine("Disk A\n2026 ERROR forged\r\x1B[31m"),
            "Disk A\\u000A2026 ERROR forged\\u000D\\u001B[31m");
  EXPECT_EQ(OneLine(L"\x7F\x85\x2028\xE9"), "\\u007F\\u0085\\u2028\\u00E9");
  EXPECT_EQ(OneLine("\xF0\x9F\x94\x8B"), "\\U0001F50B");
}

TEST(LogStatement, AFailureInsideItStaysInside) {
  const auto text = []() -> std::string { throw std::runtime_error("no text"); };
  EXPECT_NO_THROW(COMMON_LOG_ERROR(log4cxx::Logger::getRootLogger(), text()));
}

}  // namespace
}  // namespace common
