#include "platform/os/replace_file.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/support/temporary_folder.h"
#include "tests/support/thrown_text.h"

namespace os {
namespace {

namespace fs = std::filesystem;

TEST(ReplaceFile, ThroughALinkTheFileBehindItIsWritten) {
  const TemporaryFolder folder;
  fs::create_directory(folder.path / "far");
  WriteText(folder.path / "far/report.html", "before");
  fs::create_symlink("far", folder.path / "near");
  fs::create_symlink("near/report.html", folder.path / "latest.html");
  fs::create_symlink("near/new.html", folder.path / "unborn.html");

  ReplaceFile(folder.path / "latest.html", "after");
  EXPECT_EQ(ReadText(folder.path / "far/report.html"), "after");
  EXPECT_TRUE(fs::is_symlink(folder.path / "latest.html"));
  ReplaceFile(folder.path / "unborn.html", "new");
  EXPECT_EQ(ReadText(folder.path / "far/new.html"), "new");
  EXPECT_TRUE(fs::is_symlink(folder.path / "unborn.html"));
}

TEST(ReplaceFile, NamesTheReason) {
  const TemporaryFolder folder;
  WriteText(folder.path / "plain", "");
  fs::create_symlink("round", folder.path / "round");
  const struct {
    fs::path file;
    std::string reason;
  } cases[] = {
      {folder.path, "is not a regular file"},
      {folder.path / "missing/report.html", "its folder does not exist"},
      {folder.path / "plain/report.html", std::strerror(ENOTDIR)},
      {folder.path / std::string(256, 'n'), std::strerror(ENAMETOOLONG)},
      {folder.path / "round", std::strerror(ELOOP)},
      {"/proc/report.html", std::string("cannot be written: ") + std::strerror(ENOENT)},
  };
  for (const auto& wrong : cases)
    EXPECT_EQ(ThrownText([&] { ReplaceFile(wrong.file, "text"); }),
              wrong.file.string() + ": " + wrong.reason);
}

TEST(ReplaceFile, TakesTheLongestNameThatAFileMayHave) {
  const TemporaryFolder folder;
  const fs::path file = folder.path / std::string(255, 'n');
  ReplaceFile(file, "text");
  EXPECT_EQ(ReadText(file), "text");
}

}  // namespace
}  // namespace os
