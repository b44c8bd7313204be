#include "platform/os/own_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/os/linux/path_walk.h"
#include "platform/os/linux/user_home.h"
#include "platform/os/paths.h"
#include "platform/os/system_paths.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/thrown_text.h"

namespace os {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kNobodysId = 4'000'000'000;  // no system gives it out

class OwnFolderTest : public testing::Test {
 protected:
  OwnFolderTest() {
    fs::create_directory(folder.path / "sticky");
    chmod((folder.path / "sticky").c_str(), 01777);
  }

  fs::path MakeFolder(const char* name, mode_t mode) const {
    fs::create_directories(folder.path / name);
    chmod((folder.path / name).c_str(), mode);
    return folder.path / name;
  }

  static std::string Refusal(const fs::path& path) {
    return ThrownText([&] { MakeOwnFolder(path); });
  }

  const TemporaryFolder folder;
};

TEST_F(OwnFolderTest, NobodyElseMayBeAbleToReplaceItOrToFillIt) {
  const std::string open = ": other users may change what lies there";
  const fs::path shared = MakeFolder("sticky/shared", 0777);
  const fs::path own = MakeFolder("sticky/own", 0755);
  const fs::path again = MakeFolder("sticky/own/sticky", 01777);
  const fs::path apart = MakeFolder("apart", 0777);
  fs::create_symlink(shared, folder.path / "link");
  EXPECT_EQ(Refusal(shared), shared.string() + open);
  EXPECT_EQ(Refusal(shared / "data"), shared.string() + open);
  EXPECT_EQ(Refusal(folder.path / "link/data"), shared.string() + open);
  EXPECT_EQ(Refusal(own / "../shared/data"), shared.string() + open);
  EXPECT_EQ(Refusal(again), again.string() + open);
  EXPECT_FALSE(fs::exists(shared / "data"));
  EXPECT_EQ(Refusal(own), "");
  EXPECT_EQ(Refusal(again / "data"), "");
  EXPECT_EQ(Refusal(apart), "");
}

TEST_F(OwnFolderTest, WhatIsMissingIsMadeForTheUserAlone) {
  fs::create_symlink("elsewhere", folder.path / "link");
  MakeOwnFolder(folder.path / "link/a/b");
  for (const char* made : {"elsewhere", "elsewhere/a", "elsewhere/a/b"})
    EXPECT_EQ(fs::status(folder.path / made).permissions(), fs::perms::owner_all) << made;
  WriteText(folder.path / "plain", "");
  EXPECT_EQ(Refusal(folder.path / "plain/x"),
            (folder.path / "plain").string() + ": is not a folder");
}

// The administrator gives a link away; anybody else looks at an own one as another user would.
class ForeignLinkTest : public OwnFolderTest {
 protected:
  fs::path Link(const fs::path& target, const char* name) const {
    fs::create_symlink(target, folder.path / name);
    const uid_t owner = geteuid() == 0 ? kNobodysId : geteuid();
    EXPECT_EQ(lchown((folder.path / name).c_str(), owner, getegid()), 0);
    return folder.path / name;
  }

  static std::string Refusal(const fs::path& path, PathWalk::Goal goal) {
    return ThrownText([&] { PathWalk(onlooker, goal).To(path); });
  }

  static inline const uid_t onlooker = geteuid() == 0 ? 0 : geteuid() + 1;
};

TEST_F(ForeignLinkTest, NoLinkOfAnotherUserIsFollowed) {
  WriteText(folder.path / "target/file", "");
  const fs::path toFolder = Link(folder.path / "target", "to-folder");
  const fs::path toFile = Link(folder.path / "target/file", "to-file");
  const fs::path toNothing = Link(folder.path / "target/new", "to-nothing");
  fs::create_symlink("to-folder", folder.path / "own");
  for (const auto& [path, link] : {std::pair{toFile, toFile}, std::pair{toNothing, toNothing},
                                   std::pair{toFolder / "new", toFolder}})
    EXPECT_EQ(Refusal(path, PathWalk::Goal::File), link.string() + ": is a link of another user");
}

// For the onlooker who is no administrator, the folder itself is another user's already.
TEST_F(ForeignLinkTest, NoFolderBehindOrWithALinkOfAnotherUserIsTaken) {
  fs::create_directory(folder.path / "data");
  const fs::path toFolder = Link(folder.path / "target", "to-folder");
  const fs::path planted = Link("/etc/passwd", "data/store.db");
  const std::string foreignFolder =
      folder.path.string() + ": other users may change what lies there";
  const auto refusal = [&](const fs::path& link) {
    return geteuid() == 0 ? link.string() + ": is a link of another user" : foreignFolder;
  };
  EXPECT_EQ(Refusal(toFolder / "new", PathWalk::Goal::Folder), refusal(toFolder));
  EXPECT_EQ(Refusal(folder.path / "data", PathWalk::Goal::Folder), refusal(planted));
  EXPECT_FALSE(fs::exists(folder.path / "target"));
}

TEST(UserDataFolder, IsInTheHomeOfTheUserDatabaseWithoutAHomeInTheEnvironment) {
  unsetenv("XDG_DATA_HOME");
  const fs::path home = HomeInUserDatabase(geteuid());
  const fs::path expected = home.empty() ? home : home / ".local/share/sysdiagnose";
  for (const char* unusable : {"", "relative"}) {
    setenv("HOME", unusable, 1);
    EXPECT_EQ(UserDataFolder(), expected);
  }
  unsetenv("HOME");
  EXPECT_EQ(UserDataFolder(), expected);
  EXPECT_EQ(HomeInUserDatabase(0), "/root");
  EXPECT_EQ(HomeInUserDatabase(kNobodysId), "");

  if (geteuid() != 0) return;  // nobody else can become a user without a home
  ASSERT_EQ(seteuid(kNobodysId), 0);
  const std::string error = ThrownText(&DataFolder);
  ASSERT_EQ(seteuid(0), 0);
  EXPECT_EQ(error, "this user has no home folder to keep data in; name a folder with --data-dir");
}

}  // namespace
}  // namespace os
