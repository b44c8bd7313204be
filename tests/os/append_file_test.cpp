#include "platform/os/append_file.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>

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
TEST_F(AppendLineTest, NoLineIsLostOrMixedWhileOthersPutTheFileAway) {
  constexpr int kThreads = 4;
  constexpr int kLines = 200;
  WriteText(file, "first\n");
  fs::resize_file(file, kFullFile - 40 * kLines);
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i)
    threads.emplace_back([this, i] {
      for (int line = 0; line < kLines; ++line)
        AppendLine(file, std::string(100, static_cast<char>('a' + i)) + std::to_string(line));
    });
  for (std::thread& thread : threads) thread.join();

  std::set<std::string> lines;
  const std::string earlier = Earlier();
  std::istringstream all(earlier.substr(earlier.rfind('\0') + 1) + ReadText(file));
  for (std::string line; std::getline(all, line);) lines.insert(line);
  ASSERT_EQ(lines.size(), std::size_t{kThreads * kLines});
  for (int i = 0; i < kThreads; ++i)
    for (int line = 0; line < kLines; ++line)
      EXPECT_EQ(lines.count(std::string(100, static_cast<char>('a' + i)) + std::to_string(line)),
                1u);
  EXPECT_LE(fs::file_size(file), kFullFile);
}

TEST_F(AppendLineTest, AFolderIsRefusedWithTheReason) {
  const std::string failure = folder.path.string() + ": cannot be written: ";
  const std::string text = ThrownText([this] { AppendLine(folder.path, "line"); });
  EXPECT_TRUE(text.starts_with(failure) && text.size() > failure.size()) << text;
}

}  // namespace
}  // namespace os
