#include "platform/os/append_file.h"

#include <gtest/gtest.h>

#include <iterator>
#include <latch>
#include <set>
#include <thread>
#include <vector>

#include "tests/support/temporary_folder.h"
#include "tests/support/thrown_text.h"

namespace os {
namespace {

namespace fs = std::filesystem;

class AppendLineTest : public testing::Test {
 protected:
  std::string Earlier() const { return ReadText(folder.path / "events.1.jsonl"); }

  const TemporaryFolder folder;
  const fs::path file = folder.path / "events.jsonl";
};

TEST_F(AppendLineTest, AFullFileIsPutAwayInPlaceOfTheOneBefore) {
  WriteText(folder.path / "events.1.jsonl", "long ago\n");
  AppendLine(file, "first");
  fs::resize_file(file, kFullFile - 2);
  AppendLine(file, "a");
  EXPECT_EQ(fs::file_size(file), kFullFile);
  EXPECT_EQ(Earlier(), "long ago\n");
  AppendLine(file, "b");
  AppendLine(file, "c");
  EXPECT_EQ(ReadText(file), "b\nc\n");
  const std::string earlier = Earlier();
  EXPECT_EQ(earlier.size(), kFullFile);
  EXPECT_TRUE(earlier.starts_with("first\n") && earlier.ends_with("a\n"));
}

TEST_F(AppendLineTest, ALineThatIsTooLongForAnyFileIsWrittenAllTheSame) {
  const std::string line(kFullFile, 'x');
  AppendLine(file, line);
  EXPECT_EQ(fs::file_size(file), kFullFile + 1);
  EXPECT_FALSE(fs::exists(folder.path / "events.1.jsonl")) << "an empty file put away";
  AppendLine(file, "next");
  EXPECT_EQ(ReadText(file), "next\n");
}

TEST_F(AppendLineTest, AFullFileThatCannotBePutAwayLosesNoLine) {
  WriteText(folder.path / "events.1.jsonl/kept", "");
  AppendLine(file, "first");
  fs::resize_file(file, kFullFile);
  AppendLine(file, "last");
  EXPECT_TRUE(ReadText(file).ends_with("last\n"));
}

// Each call opens the file for itself, so that threads meet as processes do.
TEST_F(AppendLineTest, WritersThatFindAFullFileTogetherPutItAwayOnceAndLoseNoLine) {
  constexpr int kWriters = 4;
  constexpr int kRounds = 50;
  for (int round = 0; round < kRounds; ++round) {
    fs::remove(file);
    AppendLine(file, "first");
    fs::resize_file(file, kFullFile);
    std::latch start(kWriters);
    std::vector<std::thread> writers;
    for (int i = 0; i < kWriters; ++i)
      writers.emplace_back([&, i] {
        start.arrive_and_wait();
        AppendLine(file, std::to_string(i));
      });
    for (std::thread& writer : writers) writer.join();

    std::istringstream written(ReadText(file));
    const std::set<std::string> lines(std::istream_iterator<std::string>(written), {});
    ASSERT_EQ(lines, (std::set<std::string>{"0", "1", "2", "3"})) << "round " << round;
    ASSERT_EQ(fs::file_size(folder.path / "events.1.jsonl"), kFullFile) << "round " << round;
  }
}

TEST_F(AppendLineTest, AFolderIsRefusedWithTheReason) {
  const std::string failure = folder.path.string() + ": cannot be written: ";
  const std::string text = ThrownText([this] { AppendLine(folder.path, "line"); });
  EXPECT_TRUE(text.starts_with(failure) && text.size() > failure.size()) << text;
}

}  // namespace
}  // namespace os
