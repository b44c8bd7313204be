#include "platform/machine/live/linux/desktop_keys.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/machine/live/linux/acting_kernel.h"
#include "tests/machine/live/linux/message_bus.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

/// The environment of a session with a desktop, whose tools keep a setting in a file of its name.
class Session {
 public:
  explicit Session(const char* desktop) {
    setenv("XDG_CURRENT_DESKTOP", desktop, 1);
    setenv("PATH", (folder.path.string() + ":" + path).c_str(), 1);
    AddTool("gsettings", "[ $1 = set ] && echo $4 >$here/$3 || cat $here/$3");
    AddTool("xfconf-query",
            "name=$here/$(basename $4)\n[ \"$5\" = -s ] && echo $6 >$name || cat $name");
  }
  ~Session() {
    unsetenv("XDG_CURRENT_DESKTOP");
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    setenv("PATH", path.c_str(), 1);
  }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  void Set(const std::string& setting, const std::string& value) const {
    WriteText(folder.path / setting, value + '\n');
  }
  std::string Get(const std::string& setting) const { return ReadText(folder.path / setting); }
  void AddTool(const std::string& name, const std::string& script) const {
    const fs::path tool = folder.path / name;
    WriteText(tool, "#!/bin/sh\nhere=" + folder.path.string() + '\n' + script + '\n');
    fs::permissions(tool, fs::perms::owner_all);
  }
  fs::path Socket() const { return folder.path / "bus"; }

 private:
  TemporaryFolder folder;
  std::string path = std::getenv("PATH");
};

TEST(SlowKeys, AreFoundAndTurnedOff) {
  const struct {
    const char *desktop, *slow, *bounce;
  } cases[] = {{"ubuntu:GNOME", "slowkeys-enable", "bouncekeys-enable"},
               {"MATE", "slowkeys-enable", "bouncekeys-enable"},
               {"XFCE", "SlowKeys", "BounceKeys"}};
  for (const auto& [desktop, slow, bounce] : cases) {
    const Session session(desktop);
    session.Set(slow, "false");
    session.Set(bounce, "false");
    EXPECT_EQ(machine::TestSlowKeys().code, 0U) << desktop;
    EXPECT_EQ(machine::TestSlowKeys().notTested, L"");
    session.Set(bounce, "true");
    EXPECT_EQ(machine::TestSlowKeys().code, 1U) << desktop;
    EXPECT_EQ(machine::TurnSlowKeysOff().code, 0U) << desktop;
    EXPECT_EQ(session.Get(bounce), "false\n");
  }
}

TEST(SlowKeys, ThatStayOnAreAFailedRepair) {
  const Session session("GNOME");
  session.AddTool("gsettings", "[ $1 = set ] || echo true");
  const ActingKernel nothingHappens({});
  EXPECT_EQ(machine::TurnSlowKeysOff().code, 1U);
}

TEST(SlowKeys, OfASessionThatCannotBeAskedCouldNotBeTested) {
  for (const char* desktop : {"", "SAMPLE", "GNOMES", "KDE"}) {
    const Session session(desktop);
    EXPECT_EQ(machine::TestSlowKeys().code, 0U);
    EXPECT_NE(machine::TestSlowKeys().notTested, L"") << desktop;
    EXPECT_NE(machine::TurnSlowKeysOff().code, 0U);
  }
  const Session session("GNOME");
  session.AddTool("gsettings", "echo No such schema >&2; exit 1");
  EXPECT_EQ(machine::TestSlowKeys().notTested, L"gsettings tells nothing");
}

TEST(HotKeys, WorkWhileTheirServiceRuns) {
  const Session session("GNOME");
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
  EXPECT_NE(machine::TestHotKeys().notTested, L"");
  const MessageBus bus(session.Socket());
  const auto other = bus.Connect("sample.Other");
  setenv("DBUS_SESSION_BUS_ADDRESS", bus.Address().c_str(), 1);
  EXPECT_EQ(machine::TestHotKeys().code, 1U);
  const auto service = bus.Connect("org.gnome.SettingsDaemon.MediaKeys");
  EXPECT_EQ(machine::TestHotKeys().code, 0U);
  EXPECT_EQ(machine::TestHotKeys().notTested, L"");
}

}  // namespace
