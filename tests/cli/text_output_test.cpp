#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

class TextOutputTest : public testing::Test {
 protected:
  std::string Show(const std::string& machine, const std::vector<std::string>& command) const {
    std::vector<std::string> words{"--lang", "en-US",      "--machine",
                                   machine,  "--data-dir", folder.path.string()};
    words.insert(words.end(), command.begin(), command.end());
    const Outcome outcome = RunProgram(words);
    EXPECT_EQ(outcome.errors, "");
    return outcome.output;
  }

  const TemporaryFolder folder;
};

TEST_F(TextOutputTest, HasNoControlCharacterOfADeviceName) {
  for (const char* command : {"list", "info", "run", "history"}) {
    const std::string text = Show(TEST_DATA_DIR "/../machine/files/odd.json", {command});
    EXPECT_NE(text, "") << command;
    EXPECT_TRUE(std::none_of(text.begin(), text.end(), [](char c) {
      return (static_cast<unsigned char>(c) < 0x20 && c != '\n') || c == 0x7F;
    })) << text;
    for (const char* broken : {"\u0085", "\u2028", "\n2024-01-01", "\nseconde"})
      EXPECT_EQ(text.find(broken), std::string::npos) << text;
    if (command == std::string("list")) {
      EXPECT_NE(text.find("Sample ?Audio"), std::string::npos) << text;
    }
  }
}

TEST_F(TextOutputTest, ARunNamesEveryDiskAndEveryAbnormalCategory) {
  const std::string machine = (folder.path / "machine.json").string();
  WriteText(machine, R"({"info":{"CDisk":{"GetCaption":["Disk \u001b[2J","Other"]}},
      "tests":{"CDiskFaultDetect::CheckHhdSmartResult":[{"flags":[0,1]},2],
               "CBatteryDetect::TestLoss":4}})");
  const std::string text = Show(machine, {"run", "battery", "disk"});
  const auto start =
      "Battery\n"
      "  Device present                        Normal\n"
      "  Battery voltage                       Normal\n"
      "Disk\n"
      "  Disk ?[2J\n"
      "  Read error rate                       Normal\n"
      "  Spin-up time                          Abnormal\n";
  const auto end =
      "  Data read (LBA)                       Normal\n"
      "  Other                                 Could not be tested\n"
      "\n"
      "What needs attention:\n"
      "  Battery\n"
      "    The battery holds much less than when it was new. Have it replaced.\n"
      "  Disk\n"
      "    Disk ?[2J, Spin-up time: The moving parts of the disk are failing. Back up\n"
      "    your data now, do not move the computer while it runs, and have the disk\n"
      "    replaced.\n"
      "\n"
      "Categories: Normal 0, Abnormal 2\n";
  EXPECT_TRUE(text.starts_with(start)) << text;
  EXPECT_NE(text.find(end), std::string::npos) << text;
}

TEST_F(TextOutputTest, WhatALibrarySaysStandsBelowItsLineWithinEightyColumns) {
  const std::string machine = (folder.path / "machine.json").string();
  WriteText(machine, R"({"info":{"CDisk":{"GetCaption":["Disk A","Disk B","Disk C"]}},
      "tests":{"CDiskFaultDetect::CheckHhdSmartResult":[2,{"code":2,"notTested":"no right"},
                   {"code":0,"text":"read only","flags":[1,1]}],
               "CCpuTest::TestSSE2":{"code":0,"text":"fast"},
               "CMemFaultDetect::CheckBitFlip":{"code":1,
                   "text":"memory at offset 0x1234567890 reads 0xaaaaaaaaaaaaaaab instead of another"}}})");
  const std::string text = Show(machine, {"run", "disk", "memory", "processor"});
  for (const std::string part :
       {"  Disk A                                Could not be tested\n"
        "  Disk B                                Could not be tested\n"
        "    no right\n"
        "  Disk C\n"
        "  Read error rate                       Abnormal\n"
        "    read only\n"
        "  Spin-up time                          Abnormal\n"
        "  Starts and stops                      Normal\n",
        "    memory at offset 0x1234567890 reads 0xaaaaaaaaaaaaaaab instead of another\n",
        "    Disk C, Read error rate: Parts of the disk can no longer be read or written\n"
        "    safely. Back up your data now and have the disk replaced.\n"
        "      read only\n"
        "    Disk C, Spin-up time: "})
    EXPECT_NE(text.find(part), std::string::npos) << part << text;
  EXPECT_EQ(text.find("fast"), std::string::npos) << text;
}

// With one fault at each test in turn: all items of all categories.
TEST_F(TextOutputTest, EveryAbnormalRowSaysWhatItsOwnerCanDo) {
  const std::string machine = (folder.path / "machine.json").string();
  const std::string flags = "1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1";
  WriteText(machine, R"({"info":{"CDisk":{"GetCaption":["A","B"],"JudgeSSd":[true]}},"tests":{
      "CDiskFaultDetect::CheckSsdSmartResult":{"code":0,"flags":[)" +
                         flags + R"(]},
      "CDiskFaultDetect::CheckHhdSmartResult":{"code":0,"flags":[)" +
                         flags + R"(,1,1]},
      "CMemFaultDetect::CheckStuckAddr":-4,"CMemFaultDetect::CheckBoard":7,
      "CVideoCardDetect::CheckDevice":[0,1],"CVideoCardDetect::CheckDeviceStatus":[2,0],
      "CAudioDetect::CheckLoopBack":9,"WifiFaultDetect::CheckNetworkCard":3,
      "WifiFaultDetect::CheckWifiSwitch":4,"WifiFaultDetect::CheckWifiSignal":5,
      "CBatteryDetect::TestVoltage":6,"CKeyBoardDetect::DetetctFilterKey":1,
      "CKeyBoardDetect::DetetctHotKey":1,"CBluetoothDetect::CheckState":1}})");
  const std::string text = Show(machine, {"--json", "run"});
  int abnormal = 0;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.find(R"("verdict":"abnormal")") == std::string::npos ||
        line.find("itemResult") == std::string::npos)
      continue;
    ++abnormal;
    const bool isAboutMemory = line.find(R"("category":5)") != std::string::npos;
    const bool hasHint = line.find(R"("hint":"")") == std::string::npos;
    EXPECT_TRUE((hasHint && !isAboutMemory) || line.find(R"("advice":")") != std::string::npos)
        << line;
  }
  EXPECT_EQ(abnormal, 22 + 24 + 2 + 1 + 1 + 3 + 1 + 2 + 1) << text;
  EXPECT_EQ(text.find(":\"IDS_"), std::string::npos) << "an id without a text";

  const std::string shown = Show(machine, {"run", "memory"});
  EXPECT_NE(shown.find("then test each"), std::string::npos) << shown;
  EXPECT_EQ(shown.find("battery"), std::string::npos) << "a hint about another device: " << shown;
}

// One advice for what several tests of a device ask for.
TEST_F(TextOutputTest, WhatNeedsAttentionIsSaidOnce) {
  const std::string machine = (folder.path / "machine.json").string();
  WriteText(machine, R"({"info":{"CMemory":{"GetPartNumberbyIndex":["M1"]}},
      "tests":{"CMemFaultDetect::CheckBoard":7,"CMemFaultDetect::CheckRandom":9,
               "CBatteryDetect::CheckDevice":1,"CBluetoothDetect::CheckDevice":1}})");
  const std::string text = Show(machine, {"check"});
  EXPECT_EQ(text.find("install its driver"), std::string::npos)
      << "of a device that is not found: " << text;
  EXPECT_NE(text.find("  Memory\n    M1, Pseudo-random values, Checkerboard: Save your work"),
            std::string::npos)
      << text;
  for (const char* sentence :
       {"Switch the computer off", "No battery was found.", "does not find the device"}) {
    const std::size_t at = text.find(sentence);
    EXPECT_NE(at, std::string::npos) << text;
    EXPECT_EQ(text.find(sentence, at + 1), std::string::npos) << text;
  }
}

}  // namespace
