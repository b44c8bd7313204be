#include "platform/os/process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "common/path_text.h"

namespace {

using namespace std::chrono_literals;

std::optional<os::ProcessResult> Partner(std::vector<std::string> words,
                                         std::chrono::milliseconds limit = 60s) {
  words.insert(words.begin(), common::PathText(std::filesystem::absolute(PROCESS_PARTNER)));
  return os::RunProcess(words, limit);
}

TEST(RunProcess, HandsOverEachWordAsItIs) {
  const auto result = Partner({"print", "a b", "", "$HOME %TEMP%", "say \"hi\"", "back\\slash\\",
                               "\\\\\"", "a\\\\ \"b", "\xe7\x89\x88\xc3\xbc"});
  ASSERT_TRUE(result);
  EXPECT_EQ(result->output,
            "a b||$HOME %TEMP%|say \"hi\"|back\\slash\\|\\\\\"|a\\\\ \"b|\xe7\x89\x88\xc3\xbc|");
  EXPECT_EQ(result->exitStatus, 0);
}

TEST(RunProcess, HandsBackOutputAndExitStatus) {
  const auto result = Partner({"print-both"});
  ASSERT_TRUE(result);
  EXPECT_EQ(result->output, "seen");
  EXPECT_EQ(result->exitStatus, 3);
}

TEST(RunProcess, GivesNothingForWhatCannotBeStarted) {
  EXPECT_FALSE(os::RunProcess({}, 20s));
  std::string fault;
  EXPECT_FALSE(os::RunProcess({"no-such-program-anywhere"}, 20s, &fault));
  EXPECT_EQ(fault, "is not installed");
}

TEST(RunProcess, TakesFourMebibytesAndNoMore) {
  const auto full = Partner({"zeros", "4194304"});
  ASSERT_TRUE(full);
  EXPECT_EQ(full->output.size(), 4194304U);
  EXPECT_FALSE(Partner({"zeros", "4194305"}));
  EXPECT_FALSE(Partner({"zeros"}));
}

TEST(RunProcess, HasNoInput) {
  const auto result = Partner({"read"});
  ASSERT_TRUE(result);
  EXPECT_EQ(result->exitStatus, 0);
}

// A tool that hangs on a broken disk must not hang the diagnosis, whether it keeps its output open,
// closes it, or left the hanging to a child of its own.
TEST(RunProcess, KillsWhatOutlivesItsLimit) {
  for (const char* deed : {"hang", "hang-silent", "hang-in-child"}) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(Partner({deed}, 200ms)) << deed;
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 60s) << deed;
  }
}

}  // namespace
