#include "platform/os/process.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>

#include "common/path_text.h"
#include "platform/os/windows/handle.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace std::chrono_literals;

std::string Program(const char* file) {
  return common::PathText(std::filesystem::absolute(file));
}

TEST(RunProcess, LetsNoneOfOurHandlesThrough) {
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  const os::Handle event(CreateEventW(&inheritable, TRUE, FALSE, nullptr));
  const std::string number = std::to_string(reinterpret_cast<std::uintptr_t>(event.Get()));
  const auto result = os::RunProcess({Program(EVENT_SETTER), number}, 20s);
  ASSERT_TRUE(result);
  EXPECT_EQ(WaitForSingleObject(event.Get(), 0), DWORD{WAIT_TIMEOUT});
}

TEST(RunProcess, AKilledProgramsChildrenAreGoneToo) {
  const TemporaryFolder folder;
  const std::filesystem::path file = folder.path / "held";
  EXPECT_FALSE(
      os::RunProcess({Program(PROCESS_PARTNER), "hold-in-child", common::PathText(file)}, 60s));
  ASSERT_TRUE(std::filesystem::exists(file));
  const auto deadline = std::chrono::steady_clock::now() + 20s;
  while (DeleteFileW(file.c_str()) == 0 && std::chrono::steady_clock::now() < deadline) Sleep(1);
  EXPECT_FALSE(std::filesystem::exists(file));
}

}  // namespace
