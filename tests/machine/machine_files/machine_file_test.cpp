#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "common/log.h"
#include "platform/machine/machine_files/machine_file.h"
#include "tests/support/fake_clock.h"

namespace machine {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t kMinusFour = 0xFFFFFFFC;

std::string ErrorOf(const std::function<void()>& read) {
  try {
    read();
  } catch (const MachineFileError& error) {
    return error.what();
  }
  return "no error";
}

std::string ParseError(std::string_view json) {
  return ErrorOf([&] { ParseMachine(json, "m"); });
}

std::string ReadAll(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  EXPECT_TRUE(stream) << file;
  return (std::ostringstream() << stream.rdbuf()).str();
}

TEST(MachineFile, NamesPlaceAndReasonOfEveryFault) {
  struct Row {
    std::string json;
    std::string message;
  };
  const Row rows[] = {
      {"", "m: 1:1: the document is empty"},
      {"{\n \"product\": \"主\" x}", "m: 2:17: missing a comma or '}' after an object member"},
      {"{} {}", "m: 1:4: the document root must not be followed by other values"},
      {std::string("{}\0{}", 5), "m: 1:3: zero byte"},
      {"{\"product\": \"\xC0\xAF\"}", "m: 1:14: invalid encoding in string"},
      {std::string(16, '[') + std::string(16, ']'), "m: expected an object"},
      {std::string(17, '['), "m: 1:17: nested deeper than 16 levels"},
      {R"({"product": "\"[[[[[[[[[[[[[[[[[\\"})", "no error"},
      {R"({"p": {}})", "m: p: unknown key"},
      {R"({"a\nb": {}})", "m: " + common::OneLine("a\nb") + ": unknown key"},
      {R"({"info": {}, "info": {}})", "m: info: given twice"},
      {R"({"product": "\udc00"})", "m: product: half of a surrogate pair in the text"},
      {R"({"product": 14})", "m: product: expected a text"},
      {R"({"shelf": {}})", "m: shelf: expected an array"},
      {R"({"shelf": ["a", null]})", "m: shelf[1]: expected a text"},
      {R"({"notFitted": "battery"})", "m: notFitted: expected an array"},
      {R"({"notFitted": ["audio", "speaker"]})", "m: notFitted[1]: unknown category"},
      {R"({"notFitted": ["audio", "audio"]})", "m: notFitted[1]: given twice"},
      {R"({"registry": {"R": {"K": "N"}}})", "m: registry.R.K: expected an object"},
      {R"({"registry": {"R": {"K": {"N": 1}}}})", "m: registry.R.K.N: expected a text"},
      {R"({"info": {"CGpu": {}}})", "m: info.CGpu: unknown class"},
      {R"({"info": {"CCpu": {"GetCaption": ""}}})", "m: info.CCpu.GetCaption: unknown call"},
      {R"({"info": {"CDisk": {"GetCaption": "A"}}})",
       "m: info.CDisk.GetCaption: expected an array"},
      {R"({"info": {"CDisk": {"GetCaption": ["A", 1]}}})",
       "m: info.CDisk.GetCaption[1]: expected a text"},
      {R"({"info": {"CDisk": {"JudgeSSd": [1]}}})",
       "m: info.CDisk.JudgeSSd[0]: expected true or false"},
      {R"({"info": {"CCpu": {"GetCpuName": ["A"]}}})", "m: info.CCpu.GetCpuName: expected a text"},
      {R"({"info": {"CCpu": {"GetCpuCoreNumbers": -1}}})",
       "m: info.CCpu.GetCpuCoreNumbers: expected a whole number from 0 to 4294967295"},
      {R"({"info": {"CCpu": {"GetCpuCoreNumbers": 4294967296}}})",
       "m: info.CCpu.GetCpuCoreNumbers: expected a whole number from 0 to 4294967295"},
      {R"({"info": {"CMemory": {"GetCapacitybyIndex": [1.5]}}})",
       "m: info.CMemory.GetCapacitybyIndex[0]: expected a whole number from 0 to "
       "18446744073709551615"},
      {R"({"info": {"CMemory": {"GetMemoryNums": 1025}}})",
       "m: info.CMemory.GetMemoryNums: expected a whole number from 0 to 1024"},
      {R"({"info": {"CNetworkAdapter": {"GetWireLessIndex": [2147483648]}}})",
       "m: info.CNetworkAdapter.GetWireLessIndex[0]: expected a whole number from 0 to 2147483647"},
      {R"({"tests": {"CCpuTest::TestSSE": 1, "CCpuTest::IsSupportSSE3": true}})",
       "m: tests.CCpuTest::IsSupportSSE3: unknown call"},
      {R"({"tests": {"CCpuTest::IsSupportSSE": [true]}})",
       "m: tests.CCpuTest::IsSupportSSE: expected true or false"},
      {R"({"tests": {"CCpuTest::TestSSE": true}})",
       "m: tests.CCpuTest::TestSSE: expected a code or an object"},
      {R"({"tests": {"CCpuTest::TestSSE": []}})",
       "m: tests.CCpuTest::TestSSE: expected at least one answer"},
      {R"({"tests": {"CCpuTest::TestSSE": [0, [0]]}})",
       "m: tests.CCpuTest::TestSSE[1]: expected a code or an object"},
      {R"({"tests": {"CCpuTest::TestSSE": [0, {"code": -2147483649}]}})",
       "m: tests.CCpuTest::TestSSE[1].code: expected a whole number from -2147483648 to "
       "4294967295"},
      {R"({"tests": {"CCpuTest::TestSSE": {"cod": 0}}})",
       "m: tests.CCpuTest::TestSSE.cod: unknown key"},
      {R"({"tests": {"CCpuTest::TestSSE": {"notTested": true}}})",
       "m: tests.CCpuTest::TestSSE.notTested: expected a text"},
      {R"({"repairs": {"CAudioDetect::RepairAudioProblem": {"notTested": "no"}}})",
       "m: repairs.CAudioDetect::RepairAudioProblem.notTested: does not belong to this call"},
      {R"({"tests": {"CCpuTest::TestSSE": {"flags": []}}})",
       "m: tests.CCpuTest::TestSSE.flags: does not belong to this call"},
      {R"({"tests": {"CCpuTest::TestSSE": {"pass": true}}})",
       "m: tests.CCpuTest::TestSSE.pass: does not belong to this call"},
      {R"({"tests": {"CBiometricDetect::CheckDevice": {"restart": true}}})",
       "m: tests.CBiometricDetect::CheckDevice.restart: does not belong to this call"},
      {R"({"tests": {"CCpuTest::TestSSE": {"delayMs": 600001}}})",
       "m: tests.CCpuTest::TestSSE.delayMs: expected a whole number from 0 to 600000"},
      {R"({"tests": {"CDiskFaultDetect::CheckSsdSmartResult": {"flags": [0, 256]}}})",
       "m: tests.CDiskFaultDetect::CheckSsdSmartResult.flags[1]: expected a whole number from 0 "
       "to 255"},
      {R"({"tests": {"CDiskFaultDetect::CheckSsdSmartResult": {"flags":
          [0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}}})",
       "m: tests.CDiskFaultDetect::CheckSsdSmartResult.flags: expected at most 22 entries"},
      {R"({"repairs": {"CCpuTest::TestSSE": 0}})", "m: repairs.CCpuTest::TestSSE: unknown call"},
      {R"({"repairs": {"CAudioDetect::RepairAudioProblem": {"pass": true}}})",
       "m: repairs.CAudioDetect::RepairAudioProblem.pass: does not belong to this call"},
  };
  for (const Row& row : rows) EXPECT_EQ(ParseError(row.json), row.message) << row.json;
}

TEST(MachineFile, RefusesWhatCannotBeReadInTheSameForm) {
  const std::filesystem::path folder = testing::TempDir();
  const std::filesystem::path large = folder / "large.json";
  std::ofstream(large, std::ios::binary) << "{}" << std::string(4 * 1024 * 1024 - 2, ' ');
  EXPECT_EQ(ErrorOf([&] { ReadMachineFile(large); }), "no error");
  std::ofstream(large, std::ios::binary | std::ios::app) << ' ';
  EXPECT_EQ(ErrorOf([&] { ReadMachineFile(large); }), large.string() + ": larger than 4 MiB");
  std::filesystem::remove(large);
  EXPECT_EQ(ErrorOf([&] { ReadMachineFile(large); }), large.string() + ": does not exist");
  EXPECT_EQ(ErrorOf([&] { ReadMachineFile(folder); }),
            folder.string() + ": is a folder, not a file");
}

TEST(MachineFile, AnswersByDefaultAsAHealthyMachineWithoutDevices) {
  const auto empty = ParseMachine("\xEF\xBB\xBF{}", "m");
  for (const InfoCallRow& row : kInfoCalls) {
    EXPECT_EQ(empty->Info().Text(row.call), L"");
    EXPECT_EQ(empty->Info().Number(row.call), 0u);
  }
  for (const TestCallRow& row : kTestCalls) {
    const TestAnswer answer = empty->Test(row.call, 3, -1);
    EXPECT_EQ(answer.code, row.flagCount > 0 ? 1u : 0u) << row.name;
    EXPECT_TRUE(answer.pass && answer.flags.empty() && answer.text.empty()) << row.name;
  }
  for (const SupportCallRow& row : kSupportCalls) EXPECT_TRUE(empty->IsSupported(row.call));
  EXPECT_EQ(empty->Repair(RepairCall::Audio, 0, 5).code, 0u);
  EXPECT_EQ(empty->Shelf(), std::nullopt);
  EXPECT_EQ(empty->RegistryValue("R", "K", "N"), std::nullopt);
}

TEST(MachineFile, DerivesCountsFromTheLongestArrayOfTheirClass) {
  const auto derived = ParseMachine(R"({"info": {
      "CMemory": {"GetPartNumberbyIndex": ["M1"], "GetCapacitybyIndex": [1, 2, 0]},
      "CDisk": {"GetPhysicDiskNumbers": 1, "GetCaption": ["A", "B"]},
      "CNetworkAdapter": {"GetWireLessIndex": [5, 2]}}})",
                                    "m");
  const Inventory& info = derived->Info();
  EXPECT_EQ(info.Number(InfoCall::MemoryCount), 3u);
  EXPECT_EQ(info.Number(InfoCall::DiskCount), 1u);
  EXPECT_EQ(info.Number(InfoCall::AudioCardCount), 0u);
  EXPECT_EQ(info.Text(InfoCall::DiskCaption, 1), L"B");
  EXPECT_EQ(info.Text(InfoCall::DiskCaption, 2), L"");
  EXPECT_EQ(info.Text(InfoCall::DiskCaption, -1), L"");
  EXPECT_THAT(info.List(InfoCall::WirelessIndices), ElementsAre(5, 2));
}

TEST(MachineFile, GivesSuccessiveAnswersAndRepeatsTheLast) {
  const auto machine = ParseMachine(R"({"tests": {
      "CMemFaultDetect::CheckRandom": [-4, {"code": 3, "text": "worn"}],
      "CDiskFaultDetect::CheckSsdSmartResult": [{"flags": [0, 9]}, 0, 2]},
      "repairs": {"CAudioDetect::RepairAudioProblem": [9, {"restart": true}]}})",
                                    "m");
  EXPECT_EQ(machine->Test(TestCall::MemoryRandom, 0, -1).code, kMinusFour);
  EXPECT_EQ(machine->Test(TestCall::MemoryRandom, 8, -1).text, L"worn");
  const TestAnswer first = machine->Test(TestCall::DiskSsdSmart, 0, 0);
  EXPECT_EQ(first.code, 1u);
  EXPECT_THAT(first.flags, ElementsAre(0, 9));
  EXPECT_EQ(machine->Test(TestCall::DiskSsdSmart, 1, 0).code, 0u);
  EXPECT_EQ(machine->Test(TestCall::DiskSsdSmart, 2, 0).code, 2u);
  EXPECT_EQ(machine->Repair(RepairCall::Audio, 0, 1).code, 9u);
  EXPECT_TRUE(machine->Repair(RepairCall::Audio, 4, 1).restart);
}

TEST(MachineFile, DelaysAndThenThrows) {
  FakeClock clock;
  const auto machine = ParseMachine(R"({"tests": {
      "CAudioDetect::CheckLoopBack": {"delayMs": 450},
      "CBatteryDetect::TestLoss": {"delayMs": 50, "throws": "library fault"}}})",
                                    "m");
  EXPECT_EQ(machine->Test(TestCall::AudioLoopBack, 0, -1).code, 0u);
  EXPECT_EQ(clock.Now(), std::chrono::milliseconds(450));
  EXPECT_THAT([&] { machine->Test(TestCall::BatteryLoss, 0, -1); },
              testing::ThrowsMessage<std::runtime_error>("library fault"));
  EXPECT_EQ(clock.Now(), std::chrono::milliseconds(500));
}

TEST(MachineFile, ReadsAWholeHealthyMachine) {
  const std::filesystem::path files = std::filesystem::path(TEST_DATA_DIR) / "files";
  const auto healthy = ReadMachineFile(files / "healthy.json");
  for (const InfoCallRow& row : kInfoCalls)
    EXPECT_GT(healthy->Info().Size(row.call), 0u) << row.className << "." << row.method;
  EXPECT_EQ(healthy->ProductName(), L"TUSK 14");
  EXPECT_EQ(healthy->Shelf()->back(), "AppLogUpload");
  EXPECT_EQ(healthy->RegistryValue("HKEY_LOCAL_MACHINE", R"(HARDWARE\DESCRIPTION\System\Product)",
                                   "Version"),
            L"TK-1.02_A");
  for (const char* name : {"failing.json", "odd.json", "odd-disks.json"})
    EXPECT_NO_THROW(ReadMachineFile(files / name));
}

// The page that people write machine files from must not fall behind the calls.
TEST(MachineFile, IsDocumentedWithEveryCall) {
  const std::string page =
      ReadAll(std::filesystem::path(TEST_DATA_DIR) / "../../docs/machine-files.md");
  const auto expectNamed = [&](std::string_view name) {
    EXPECT_NE(page.find("`" + std::string(name) + "`"), page.npos) << name;
  };
  for (const InfoCallRow& row : kInfoCalls) expectNamed(row.method);
  for (const TestCallRow& row : kTestCalls) expectNamed(row.name);
  for (const SupportCallRow& row : kSupportCalls) expectNamed(row.name);
  for (const RepairCallRow& row : kRepairCalls) expectNamed(row.name);
}

}  // namespace
}  // namespace machine
