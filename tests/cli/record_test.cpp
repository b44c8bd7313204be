#include <gmock/gmock.h>

#include <cctype>
#include <sstream>

#include "tests/cli/described_system.h"
#include "tests/cli/run_program.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::string kFiles = MACHINE_FILES;

// What list, info and run print, their statuses and nothing of the time of day.
std::vector<std::string> Behaviour(const Program& program, const std::string& machineFile) {
  std::vector<std::string> lines;
  for (const char* command : {"list", "info", "run"}) {
    std::vector<std::string> arguments{command, "--json"};
    if (!machineFile.empty()) arguments.insert(arguments.begin(), {"--machine", machineFile});
    const os::ProcessResult result = program.Run(arguments);
    lines.push_back("status " + std::to_string(result.exitStatus));
    std::istringstream output(result.output);
    for (std::string line; std::getline(output, line);) {
      const auto cells = line.find("\"cells\"");
      lines.push_back(cells == std::string::npos ? line : line.substr(0, line.find(",\"", cells)));
    }
  }
  return lines;
}

// "#" and twelve hexadecimal digits for a value.
bool ShowsAHash(const std::string& line) {
  const std::string opening = "\"value\":\"#";
  const std::size_t begin = line.find(opening) + opening.size();
  return line.find(opening) != std::string::npos &&
         line.find_first_not_of("0123456789abcdef", begin) == begin + 12 && line[begin + 12] == '"';
}

std::vector<std::string> NamesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  return names;
}

TEST(RecordTest, AReplayedRecordingBehavesAsTheMachineDid) {
  for (const char* name : {"healthy.json", "odd.json", "odd-disks.json", "failing.json"}) {
    const Program program;
    const std::string recording = program.Path("recording.json");
    ASSERT_EQ(program.RunOn(kFiles + name, {"record", recording, "--tests", "--plain"}).exitStatus,
              0);
    EXPECT_EQ(Behaviour(program, recording), Behaviour(program, kFiles + name)) << name;
  }
}

TEST(RecordTest, ARecordingDiffersFromItsMachineInHashesAlone) {
  const Program program;
  const std::string recording = program.Path("recording.json");
  ASSERT_EQ(program.RunOn(kFiles + "healthy.json", {"record", recording, "--tests"}).exitStatus, 0);
  const auto original = Behaviour(program, kFiles + "healthy.json");
  const auto replayed = Behaviour(program, recording);
  ASSERT_EQ(replayed.size(), original.size());
  int hashes = 0;
  for (std::size_t i = 0; i < original.size(); ++i) {
    if (replayed[i] == original[i]) continue;
    EXPECT_TRUE(ShowsAHash(replayed[i])) << replayed[i];
    ++hashes;
  }
  EXPECT_EQ(hashes, 5);  // board, two memory modules, disk, wireless adapter
}

TEST(RecordTest, ARecordingOfARecordingIsTheSame) {
  const Program program;
  const std::string first = program.Path("1.json"), second = program.Path("2.json");
  program.RunOn(kFiles + "failing.json", {"record", first, "--tests"});
  program.RunOn(first, {"record", second, "--tests"});
  EXPECT_THAT(ReadText(first), HasSubstr("#"));
  EXPECT_EQ(ReadText(second), ReadText(first));
}

TEST(RecordTest, ThisMachineReplaysAsItAnswered) {
  const Program program;
  const std::vector<std::string> facts = DescribeSystem(program.folder.path / "root");
  const auto original = Behaviour(program, "");
  const std::string recording = program.Path("recording.json");
  ASSERT_EQ(program.Run({"record", recording, "--tests", "--plain"}).exitStatus, 0);

  Program elsewhere;
  EXPECT_EQ(Behaviour(elsewhere, recording), original);
  const std::string json = ReadText(recording);
  for (const std::string& fact : facts) EXPECT_THAT(json, HasSubstr(fact));
}

TEST(RecordTest, FaultsAndTheAnswersOfEachDiskAreRecorded) {
  const Program program;
  const std::string machine = program.Machine(R"({
    "info": {"CDisk": {"GetCaption": ["A", "B", "C", "D"], "JudgeSSd": [true, false, true, true]}},
    "tests": {
      "CDiskFaultDetect::CheckSsdSmartResult": [1, {"code": 0, "flags": [0, 7, 0]}, {"code": 0, "flags": [0, 7]}],
      "CBatteryDetect::TestLoss": {"throws": "library fault"},
      "CCpuTest::TestSSE": {"code": 1, "notTested": "no such instructions"},
      "CBiometricDetect::CheckFunction": {"code": -4, "pass": true}}})");
  const std::string recording = program.Path("recording.json");
  ASSERT_EQ(program.RunOn(machine, {"record", recording, "--tests"}).exitStatus, 0);
  std::string json = ReadText(recording);
  std::erase_if(json, [](unsigned char c) { return std::isspace(c) != 0; });
  EXPECT_THAT(json,
              HasSubstr(R"("CDiskFaultDetect::CheckSsdSmartResult":[1,{"code":0,"flags":[0,7]}])"));
  EXPECT_THAT(json, HasSubstr(R"("CBatteryDetect::TestLoss":{"throws":"libraryfault"})"));
  EXPECT_THAT(json,
              HasSubstr(R"("CCpuTest::TestSSE":{"code":1,"notTested":"nosuchinstructions"})"));
  EXPECT_THAT(json, HasSubstr(R"("CBiometricDetect::CheckFunction":-4)"));
  EXPECT_EQ(Behaviour(program, recording), Behaviour(program, machine));
}

TEST(RecordTest, AFileIsReplacedOnlyWhenToldAndNeverHalf) {
  const Program program;
  const std::string target = program.Path("out/machine.json");
  WriteText(target, "mine");
  const auto record = [&](std::vector<std::string> more) {
    more.insert(more.begin(), {"record", target});
    return program.RunOn(kFiles + "healthy.json", more).exitStatus;
  };
  EXPECT_EQ(record({}), 2);
  EXPECT_EQ(ReadText(target), "mine");
  EXPECT_EQ(record({"--force"}), 0);
  EXPECT_THAT(ReadText(target), HasSubstr("TUSK 14"));
  EXPECT_THAT(NamesIn(program.Path("out")), ElementsAre("machine.json"));

  for (const char* impossible : {"out", "missing/machine.json"})
    EXPECT_EQ(program.Run({"record", program.Path(impossible), "--force"}).exitStatus, 2);
  EXPECT_THAT(NamesIn(program.Path("out")), ElementsAre("machine.json"));
}

}  // namespace
