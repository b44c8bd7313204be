#include "platform/machine/live/live_machine.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>
#include <vector>

#include "tests/machine/live/smbios_bytes.h"
#include "tests/support/linux/fake_system.h"

namespace {

using machine::InfoCall;
using machine::LiveMachine;
using machine::TestCall;

void WriteProcessor(const FakeSystem& system, int number, int package, int core,
                    const std::string& sharers) {
  const std::string folder = "/sys/devices/system/cpu/cpu" + std::to_string(number);
  system.Write(folder + "/topology/physical_package_id", std::to_string(package) + "\n");
  system.Write(folder + "/topology/core_id", std::to_string(core) + "\n");
  const struct {
    const char *level, *type, *size;
    std::string sharers;
  } caches[] = {{"1", "Data", "48K", sharers},
                {"1", "Instruction", "32K", sharers},
                {"2", "Unified", "1280K", sharers},
                {"3", "Unified", "24M", package == 0 ? "0-3" : "4"}};
  for (std::size_t i = 0; i < std::size(caches); ++i) {
    const std::string cache = folder + "/cache/index" + std::to_string(i);
    system.Write(cache + "/level", caches[i].level);
    system.Write(cache + "/type", caches[i].type);
    system.Write(cache + "/size", caches[i].size);
    system.Write(cache + "/shared_cpu_list", caches[i].sharers);
  }
  system.Write(folder + "/cache/uevent", "");
}

TEST(LiveMachine, CountsCoresAndSharedCachesOnce) {
  const FakeSystem system;
  WriteProcessor(system, 0, 0, 0, "0-1");
  WriteProcessor(system, 1, 0, 0, "0-1");
  WriteProcessor(system, 2, 0, 1, "2-3");
  WriteProcessor(system, 3, 0, 1, "2-3");
  WriteProcessor(system, 4, 1, 0, "4");
  system.Write("/sys/devices/system/cpu/cpu5/online", "0\n");
  system.Write("/sys/devices/system/cpu/cpufreq/boost", "1\n");
  LiveMachine live;
  EXPECT_EQ(live.Info().Number(InfoCall::CpuCoreNumbers), 3U);
  EXPECT_EQ(live.Info().Number(InfoCall::CpuCoreThreads), 5U);
  EXPECT_EQ(live.Info().Number(InfoCall::CpuL1CacheSize), 3 * 80U);
  EXPECT_EQ(live.Info().Number(InfoCall::CpuL2CacheSize), 3 * 1280U);
  EXPECT_EQ(live.Info().Number(InfoCall::CpuL3CacheSize), 2 * 24 * 1024U);
}

TEST(LiveMachine, InventsNothingOnASystemThatTellsNothing) {
  const FakeSystem system;
  LiveMachine live;
  EXPECT_EQ(live.Info().Number(InfoCall::CpuCoreNumbers), 0U);
  EXPECT_GT(live.Info().Number(InfoCall::CpuCoreThreads), 0U);
  EXPECT_EQ(live.Info().Number(InfoCall::CpuL1CacheSize), 0U);
  EXPECT_EQ(live.Info().Text(InfoCall::BaseboardProduct), L"");
  EXPECT_EQ(live.Info().Number(InfoCall::MemoryTotal), 0U);
  EXPECT_EQ(live.Info().Number(InfoCall::MemoryCount), 0U);
  EXPECT_EQ(live.Info().Number(InfoCall::DiskCount), 0U);
  EXPECT_EQ(live.ProductName(), L"");
}

TEST(LiveMachine, TakesBoardAndMemoryFromTheFirmware) {
  const FakeSystem system;
  system.Write("/sys/firmware/dmi/tables/DMI", SmbiosBytes::Laptop());
  system.Write("/sys/class/dmi/id/product_name", "not asked\n");
  system.Write("/proc/meminfo", "MemTotal:       16000000 kB\n");
  LiveMachine live;
  EXPECT_EQ(live.ProductName(), L"TUSK 14");
  EXPECT_EQ(live.Info().Text(InfoCall::BaseboardManufacturer), L"Board Maker");
  EXPECT_EQ(live.Info().Text(InfoCall::BaseboardVersion), L"V2");
  EXPECT_EQ(live.Info().Number(InfoCall::CpuExtClock), 100U);
  EXPECT_EQ(live.Info().Number(InfoCall::MemoryCount), 2U);
  EXPECT_EQ(live.Info().Number(InfoCall::MemoryTotal), 49152U);
  EXPECT_EQ(live.Info().Text(InfoCall::MemoryPartNumber, 0), L"PN-48");
  EXPECT_EQ(live.Info().Text(InfoCall::MemoryLocator, 1), L"DIMM 1");
  EXPECT_EQ(live.Info().Number(InfoCall::MemoryCapacity, 1), 0U);
}

TEST(LiveMachine, FallsBackOnWhatEveryUserMayRead) {
  const FakeSystem system;
  system.Write("/sys/class/dmi/id/product_name", "TUSK 15\n");
  system.Write("/sys/class/dmi/id/board_name", "BRD-2\n");
  system.Write("/proc/meminfo",
               "MemFree:  1 kB\nMemTotal:       16777216 kB\nHugePages_Total:  0\n");
  LiveMachine live;
  EXPECT_EQ(live.ProductName(), L"TUSK 15");
  EXPECT_EQ(live.Info().Text(InfoCall::BaseboardProduct), L"BRD-2");
  EXPECT_EQ(live.Info().Number(InfoCall::MemoryTotal), 16384U);
  EXPECT_EQ(live.Info().Number(InfoCall::MemoryCount), 0U);
}

void WriteDisk(const FakeSystem& system, const std::string& name, const std::string& sectors) {
  system.Write("/sys/block/" + name + "/size", sectors);
  system.Write("/sys/block/" + name + "/device/uevent", "");
}

TEST(LiveMachine, ListsDisksAsTheirKindDescribesThem) {
  const FakeSystem system;
  WriteDisk(system, "vda", "536870912\n");
  system.Write("/sys/block/vda/serial", "virt1");
  system.Write("/sys/block/vda/device/vendor", "0x1af4\n");
  WriteDisk(system, "nvme0n1", "1000215216\n");
  system.Write("/sys/block/nvme0n1/device/model", "Fast Disk 512   \n");
  system.Write("/sys/block/nvme0n1/device/serial", "N1\n");
  system.Write("/sys/block/nvme0n1/device/firmware_rev", "FW1 \n");
  system.Write("/sys/block/nvme0n1/queue/rotational", "0\n");
  WriteDisk(system, "sda", "1953525168\n");
  system.Write("/sys/block/sda/device/vendor", "ATA     \n");
  system.Write("/sys/block/sda/device/model", "Round Disk\n");
  system.Write("/sys/block/sda/device/rev", "R2\n");
  system.Write("/sys/block/sda/device/vpd_pg80", std::string("\0\x80\0\x08  SER-80", 12));
  system.Write("/sys/block/sda/queue/rotational", "1\n");
  WriteDisk(system, "sdb", "1953125\n");
  system.Write("/sys/block/sdb/device/vendor", "Stick Co\n");
  system.Write("/sys/block/sdb/device/model", "Stick\n");
  WriteDisk(system, "sdc", "0\n");  // a card reader without a card
  WriteDisk(system, "sr0", "100\n");
  WriteDisk(system, "zram0", "100\n");
  system.Write("/sys/block/dm-0/size", "100\n");
  system.Write("/sys/block/overlay/size", "100\n");  // no device behind it

  LiveMachine live;
  const machine::Inventory& info = live.Info();
  ASSERT_EQ(info.Number(InfoCall::DiskCount), 4U);
  const struct {
    const wchar_t *caption, *serial, *revision;
    std::uint64_t gigabytes;
    bool isSolidState;
  } disks[] = {{L"Fast Disk 512", L"N1", L"FW1", 512, true},
               {L"Round Disk", L"SER-80", L"R2", 1000, false},
               {L"Stick Co Stick", L"", L"", 1, false},
               {L"vda", L"virt1", L"", 274, false}};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(info.Text(InfoCall::DiskCaption, i), disks[i].caption);
    EXPECT_EQ(info.Text(InfoCall::DiskSerialNumber, i), disks[i].serial);
    EXPECT_EQ(info.Text(InfoCall::DiskFirmwareRevision, i), disks[i].revision);
    EXPECT_EQ(info.Number(InfoCall::DiskVendorCapacity, i), disks[i].gigabytes);
    EXPECT_EQ(info.Flag(InfoCall::DiskIsSolidState, i), disks[i].isSolidState);
  }
}

/// Puts a smartctl of our own before the system's, for as long as it lives.
class FakeSmartctl {
 public:
  FakeSmartctl(const FakeSystem& system, const std::string& script) {
    system.Write("/bin/smartctl", "#!/bin/sh\n" + script);
    const std::filesystem::path tool = system.Root() / "bin/smartctl";
    std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
    setenv("PATH", (tool.parent_path().string() + ":" + path).c_str(), 1);
  }
  ~FakeSmartctl() { setenv("PATH", path.c_str(), 1); }
  FakeSmartctl(const FakeSmartctl&) = delete;
  FakeSmartctl& operator=(const FakeSmartctl&) = delete;

 private:
  std::string path = std::getenv("PATH");
};

TEST(LiveMachine, AsksAboutTheDiskThatTheTestIsAbout) {
  const FakeSystem system;
  WriteDisk(system, "cciss!c0d0", "100\n");
  WriteDisk(system, "sda", "100\n");
  // Exits as the real one does for a disk with a failed attribute in its past.
  const std::string devices = system.Root() / "dev";
  const FakeSmartctl smartctl(
      system, "[ \"$*\" = \"--json -a " + devices + "/cciss/c0d0\" ] && verdict=false\n" +
                  "[ \"$*\" = \"--json -a " + devices + "/sda\" ] && verdict=true\n" + R"(
echo "{\"smart_status\": {\"passed\": $verdict}}"
exit 32
)");
  LiveMachine live;
  EXPECT_EQ(live.Test(TestCall::DiskSsdSmart, 0, 0).code, 0U);
  EXPECT_EQ(live.Test(TestCall::DiskHddSmart, 0, 1).code, 1U);
  EXPECT_EQ(live.Test(TestCall::DiskHddSmart, 0, 2).code, 2U);
  EXPECT_EQ(live.Test(TestCall::DiskHddSmart, 0, -1).flags.size(), machine::kHddFlagCount);
}

TEST(LiveMachine, ADiskThatCannotBeReadSaysWhy) {
  const FakeSystem system;
  WriteDisk(system, "sda", "100\n");
  const std::pair<const char*, const wchar_t*> cases[] = {
      {"kill -9 $$\n", L"smartctl was ended by a signal"},
      {"exit 1\n", L"smartctl says nothing"},
      {"echo no\n", L"smartctl gives no report"},
      {R"(echo '{"smartctl": {"messages": [{"severity": "information", "string": "old"},
            {"severity": "error", "string": "Permission denied"}]}}')",
       L"Permission denied"},
      {"echo '{}'\n", L"the disk does not tell its health"},
  };
  LiveMachine live;
  for (const auto& [script, reason] : cases) {
    const FakeSmartctl smartctl(system, script);
    const machine::TestAnswer answer = live.Test(TestCall::DiskSsdSmart, 0, 0);
    EXPECT_EQ(answer.code, 2U) << script;
    EXPECT_EQ(answer.notTested, reason);
  }
}

TEST(LiveMachine, AnswersEveryCallFromManyThreadsAtOnce) {
  const FakeSystem system;
  system.Write("/sys/firmware/dmi/tables/DMI", SmbiosBytes::Laptop());
  LiveMachine live;
  std::vector<std::jthread> threads;
  threads.reserve(4);
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([&] {
      EXPECT_EQ(live.ProductName(), L"TUSK 14");
      EXPECT_EQ(live.Test(TestCall::MemoryStuckAddress, 0, -1).code, 0U);
      EXPECT_EQ(live.Test(TestCall::CpuSse2, 0, -1).code, 0U);
      EXPECT_EQ(live.Test(TestCall::AudioDevice, 0, -1).code, 1U);
      EXPECT_FALSE(live.Test(TestCall::BiometricDevice, 0, -1).pass);
      EXPECT_EQ(live.Test(TestCall::KeyboardHotKey, 0, -1).code, 0U);
      EXPECT_NE(live.Repair(machine::RepairCall::Audio, 0, 1).code, 0U);
    });
}

}  // namespace
