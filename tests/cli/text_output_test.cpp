#include <gtest/gtest.h>

#include <algorithm>

#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

class TextOutputTest : public testing::Test {
 protected:
  std::string Show(const std::string& machine, const std::vector<std::string>& command) const {
    std::vector<std::string> words{"--lang", "ids",        "--machine",
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
      "IDS_HARDWARE_DETECT_BATTERY\n"
      "  ok        IDS_HARDWARE_DIAGNOSE_NETCARD_DEVICE\n"
      "  ok        IDS_HARDWARE_DIAGNOSE_BAT_VOLTAGE\n"
      "IDS_HARDWARE_DETECT_DISK\n"
      "  Disk ?[2J\n"
      "  ok        IDS_HARDWARE_DIAGNOSE_DISK_01\n"
      "  ABNORMAL  IDS_HARDWARE_DIAGNOSE_DISK_03\n";
  const auto end =
      "  ok        IDS_HARDWARE_DIAGNOSE_DISK_F2\n"
      "  Other  (could not be tested)\n"
      "\n"
      "What needs attention:\n"
      "  IDS_HARDWARE_DETECT_DISK\n"
      "    Disk ?[2J, IDS_HARDWARE_DIAGNOSE_DISK_03\n"
      "  IDS_HARDWARE_DETECT_BATTERY\n"
      "\n"
      "Categories: 1 normal, 1 abnormal. ";
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
  const std::string line = "            ";
  for (const std::string& part :
       {"  Disk A  (could not be tested)\n  Disk B\n" + line +
            "could not be tested: no right\n  Disk C\n  ABNORMAL  IDS_HARDWARE_DIAGNOSE_DISK_01\n" +
            line + "read only\n  ABNORMAL  IDS_HARDWARE_DIAGNOSE_DISK_03\n  ok",
        "MEM_BIT_FLIP\n" + line +
            "memory at offset 0x1234567890 reads 0xaaaaaaaaaaaaaaab instead of\n" + line +
            "another\n",
        std::string("    Disk C, IDS_HARDWARE_DIAGNOSE_DISK_01\n      read only\n"
                    "    Disk C, IDS_HARDWARE_DIAGNOSE_DISK_03\n")})
    EXPECT_NE(text.find(part), std::string::npos) << part << text;
  EXPECT_EQ(text.find("fast"), std::string::npos) << text;
}

}  // namespace
