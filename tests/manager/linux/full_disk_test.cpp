#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>

#include <atomic>
#include <random>

#include "manager/companion_service/log_files.h"
#include "platform/machine/current.h"
#include "platform/machine/machine_files/machine_file.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

constexpr rlim_t kLongestFile = 100000;

// While it lives, no file of this process can grow longer.
class ShortFiles {
 public:
  ShortFiles() {
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit{kLongestFile, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    signal(SIGXFSZ, SIG_IGN);
  }
  ShortFiles(const ShortFiles&) = delete;
  ShortFiles& operator=(const ShortFiles&) = delete;
  ~ShortFiles() { setrlimit(RLIMIT_FSIZE, &before); }

 private:
  rlimit before{};
};

std::string Noise(std::size_t size) {
  std::minstd_rand random(1);
  std::string noise;
  while (noise.size() < size) noise += static_cast<char>(' ' + random() % 95);
  return noise;
}

// Each log fits, the archive of both does not.
TEST(FullDisk, IsToldByTheFileAndTheReasonAndLeavesNothing) {
  machine::SetCurrent(machine::ParseMachine("{}", "machine"));
  const TemporaryFolder folder;
  for (const char* name : {"a.log", "b.log"}) WriteText(folder.path / "log" / name, Noise(90000));
  const std::atomic<bool> endAsked = false;
  companion::LogFiles logs(folder.path, endAsked);
  std::string failure;
  {
    const ShortFiles shortFiles;
    try {
      logs.Pack(logs.Ready());
    } catch (const std::runtime_error& error) {
      failure = error.what();
    }
  }
  EXPECT_EQ(failure, (folder.path / "outbox/.packing").string() + ": File too large");
  EXPECT_TRUE(fs::is_empty(folder.path / "outbox"));
  machine::SetCurrent(nullptr);
}

}  // namespace
