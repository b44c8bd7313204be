#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <cstring>

#include "platform/os/append_file.h"
#include "platform/os/folder_entries.h"
#include "platform/os/replace_file.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/thrown_text.h"

namespace os {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

// While it lives, this process finds no room in a file beyond so many bytes, as on a full disk.
class RoomForBytes {
 public:
  explicit RoomForBytes(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before);
    signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit room{bytes, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &room);
  }
  RoomForBytes(const RoomForBytes&) = delete;
  RoomForBytes& operator=(const RoomForBytes&) = delete;
  ~RoomForBytes() {
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, signalBefore);
  }

 private:
  rlimit before{};
  void (*signalBefore)(int) = nullptr;
};

const std::string kNoRoom = std::strerror(EFBIG);

TEST(FullDisk, AReplacedFileStaysAsItWasAndNothingElseIsLeft) {
  const TemporaryFolder folder;
  const fs::path file = folder.path / "report.html";
  WriteText(file, "before");
  {
    const RoomForBytes room(1000);
    EXPECT_EQ(ThrownText([&] { ReplaceFile(file, std::string(1001, 'x')); }),
              file.string() + ": cannot be written: " + kNoRoom);
  }
  EXPECT_EQ(ReadText(file), "before");
  EXPECT_THAT(EntriesOf(folder.path), ElementsAre(file));
}

TEST(FullDisk, NoPartOfALineStaysInFrontOfTheNextOne) {
  const TemporaryFolder folder;
  const fs::path file = folder.path / "events.jsonl";
  AppendLine(file, "whole");
  {
    const RoomForBytes room(1000);
    EXPECT_EQ(ThrownText([&] { AppendLine(file, std::string(1000, 'x')); }),
              file.string() + ": cannot be written: " + kNoRoom);
  }
  AppendLine(file, "next");
  EXPECT_EQ(ReadText(file), "whole\nnext\n");
}

// None of them may keep the writer waiting, nor may a link lead it elsewhere.
TEST(AppendLine, PipesDevicesSocketsAndLinksAreRefused) {
  const TemporaryFolder folder;
  const fs::path fifo = folder.path / "pipe";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  const fs::path socketFile = folder.path / "socket";
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  socketFile.string().copy(address.sun_path, sizeof address.sun_path - 1);
  const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  close(listener);
  fs::create_symlink(folder.path / "target", folder.path / "link");

  for (const fs::path& file : {fifo, socketFile, fs::path("/dev/null"), fs::path("/dev/full")}) {
    const std::string refusal = file.string() + ": is not a regular file";
    EXPECT_EQ(ThrownText([&] { AppendLine(file, "line"); }), refusal);
    EXPECT_EQ(ThrownText([&] { LineFile{file}; }), refusal);
  }
  EXPECT_EQ(ThrownText([&] { AppendLine(folder.path / "link", "line"); }),
            (folder.path / "link").string() + ": is a link");
  EXPECT_FALSE(fs::exists(folder.path / "target"));
}

}  // namespace
}  // namespace os
