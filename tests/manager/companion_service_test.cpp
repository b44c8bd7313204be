#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include "common/path_text.h"
#include "platform/message/broker.h"
#include "platform/message/ipc_message_client.h"
#include "platform/os/child_process.h"
#include "platform/os/folder_entries.h"
#include "tests/cli/program.h"
#include "tests/manager/packed_logs.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::AnyOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::SizeIs;

constexpr std::uint32_t kService = 0x3B0000;

class CompanionServiceTest : public testing::Test {
 protected:
  CompanionServiceTest() {
    WriteText(machine, R"({"info": {"CMemory": {"GetSerialNumberbyIndex": ["SN-47110815"]},
        "CNetworkAdapter": {"GetMacAddressbyIndex": ["02:42:AC:11:00:02"]}}})");
  }
  // What removes the folder would not find its way into the deep one.
  ~CompanionServiceTest() override {
    std::error_code ignored;
    fs::rename(deep, folder.path / "shallow", ignored);
  }

  void WriteLogs() const {
    WriteText(data / "log/old.log",
              "disk SN-47110815, adapter 02-42-ac-11-00-02 or 0242AC110002\n");
    WriteText(data / "events.jsonl", "{\"id\":620000022}\n");
  }

  Outcome Logs(std::vector<std::string> options = {}) const {
    std::vector<std::string> arguments = {
        "--json", "--machine", common::PathText(machine), "--data-dir", common::PathText(data),
        "logs",   "--socket",  common::PathText(socket)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunProgram(arguments);
  }

  // The terminal program with its folder, to be killed.
  std::vector<std::string> LogsCommand(const std::string& option) const {
    return {APP_DIR "/sysdiagnose",
            "--machine",
            common::PathText(machine),
            "--data-dir",
            common::PathText(data),
            "logs",
            "--socket",
            common::PathText(socket),
            option};
  }

  std::unique_ptr<os::ChildProcess> StartService() const {
    return std::make_unique<os::ChildProcess>(std::vector<std::string>{
        APP_DIR "/companion-service", "--machine", common::PathText(machine), "--data-dir",
        common::PathText(data), "--socket", common::PathText(socket)});
  }

  std::vector<fs::path> Outbox() const { return os::EntriesOf(data / "outbox"); }

  const TemporaryFolder folder;
  const fs::path deep = folder.path / std::string(240, 'd');  // beyond 260 characters with the rest
  const fs::path data = deep / "data";
  const fs::path socket = folder.path / "a.sock";
  const fs::path machine = folder.path / "machine.json";
};

// As it stands in JSON.
std::string FileText(const fs::path& file) {
  std::string text;
  for (const char character : common::PathText(file))
    text += std::string(character == '\\' ? 2 : 1, character);
  return text;
}

std::string LogLine(int module, const fs::path& file) {
  return R"({"type":"log","module":)" + std::to_string(module) + R"(,"file":")" + FileText(file) +
         "\"}\n";
}

TEST_F(CompanionServiceTest, OffersTheLogsToTheTerminalProgramAndPacksThemWithoutIdentifiers) {
  WriteLogs();
  const Outcome packed = Logs({"--upload"});
  EXPECT_EQ(packed.exitStatus, 0) << packed.errors;
  ASSERT_EQ(Outbox().size(), 1u) << "the archive and nothing else";
  EXPECT_EQ(packed.output, LogLine(1, data / "log/old.log") + LogLine(2, data / "events.jsonl") +
                               LogLine(4, data / "outbox/application-log.txt") +
                               R"({"type":"archive","file":")" + FileText(Outbox().front()) +
                               "\"}\n");

  EXPECT_LT(fs::file_size(Outbox().front()), 4096u) << "packed, and nothing behind it";
  std::string unpacked;
  for (const auto& [name, text] : Unpacked(Outbox().front())) unpacked += text;
  EXPECT_THAT(unpacked, HasSubstr("620000022"));
  for (const char* identifier : {"SN-47110815", "02-42-ac-11-00-02", "0242AC110002"})
    EXPECT_THAT(unpacked, Not(HasSubstr(identifier)));
  EXPECT_FALSE(fs::exists(socket)) << "what it started is ended";
}

TEST_F(CompanionServiceTest, DiscardsWhatIsNotUploadedAndOffersNothingWhenThereIsNothing) {
  const Outcome none = Logs({"--upload"});
  EXPECT_EQ(none.exitStatus, 0) << none.errors;
  EXPECT_THAT(none.output, IsEmpty());

  WriteLogs();
  const Outcome listed = Logs();
  EXPECT_EQ(listed.exitStatus, 0) << listed.errors;
  EXPECT_THAT(listed.output, HasSubstr("application-log.txt"));
  EXPECT_THAT(Outbox(), IsEmpty());
}

TEST_F(CompanionServiceTest, PacksALogWhateverItsName) {
  const std::string word =
      "gr\xC3\xB6\xC3\x9F"
      "e";
  WriteText(data / common::TextPath("log/" + word + ".log"), "a line\n");
  WriteText(data / common::TextPath("log/\xF0\x9F\x98\x80.log"), "another\n");
  const Outcome packed = Logs({"--upload"});
  EXPECT_EQ(packed.exitStatus, 0) << packed.errors;
  ASSERT_THAT(Outbox(), SizeIs(1));
  const auto texts = Unpacked(Outbox().front());
  EXPECT_THAT(texts, Contains(Pair("logs/" + word + ".log", "a line\n")));
  EXPECT_THAT(texts, Contains(Pair(AnyOf("logs/\xF0\x9F\x98\x80.log", "logs/%F0%9F%98%80.log"),
                                   "another\n")));
}

TEST_F(CompanionServiceTest, SaysWhyTheLogsWereNotPacked) {
  WriteLogs();
  fs::create_directories(data / "outbox/.packing/in the way");
  const Outcome packed = Logs({"--upload"});
  EXPECT_EQ(packed.exitStatus, 2);
  EXPECT_THAT(
      packed.errors,
      HasSubstr("the logs were not packed: " + common::PathText(data / "outbox/.packing") + ": "));
  EXPECT_THAT(Outbox(), SizeIs(1)) << "what is in the way, and nothing of the service's";

  fs::rename(data / "outbox", data / "elsewhere");
  fs::create_directories(data / "outbox/application-log.txt/in the way");
  const Outcome listed = Logs();
  EXPECT_EQ(listed.exitStatus, 2);
  EXPECT_THAT(listed.output, HasSubstr("old.log"));
  EXPECT_THAT(listed.errors, HasSubstr("the application log was not written: "));
}

TEST_F(CompanionServiceTest, CutsAListThatIsLongerThanAMessage) {
  const std::string name(200, 'n');
  for (int i = 0; i < 2600; ++i) WriteText(data / "log" / (name + std::to_string(i)), "a line\n");
  const Outcome listed = Logs();
  EXPECT_EQ(listed.exitStatus, 0) << listed.errors;
  EXPECT_THAT(listed.output, HasSubstr("application-log.txt"));
  const auto lines = std::count(listed.output.begin(), listed.output.end(), '\n');
  EXPECT_GT(lines, 1000);
  EXPECT_LT(lines, 2600);
  EXPECT_THAT(ReadText(data / "log/sysdiagnose.log"),
              HasSubstr("the list of logs is cut to the first " + std::to_string(lines - 1)));
}

// The terminal programs come and go; the service stays, also when the broker is killed.
TEST_F(CompanionServiceTest, ServesSeveralProgramsThroughABrokerThatRestarts) {
  WriteLogs();
  const auto service = StartService();
  const std::vector<std::string> serve = {"--data-dir", common::PathText(data), "serve", "--socket",
                                          common::PathText(socket)};
  auto broker = std::make_unique<Program>(serve);
  ASSERT_TRUE(broker->ReadUntil("a.sock"));
  EXPECT_EQ(RunProgram(serve).exitStatus, 2) << "one broker at a time";
  EXPECT_THAT(Logs().output, HasSubstr("application-log.txt"));

  broker = nullptr;
  broker = std::make_unique<Program>(serve);
  ASSERT_TRUE(broker->ReadUntil("a.sock"));
  EXPECT_THAT(Logs({"--upload"}).output, HasSubstr(".tar.gz"));
  EXPECT_FALSE(service->EndsWithin(0s));
  service->AskToEnd();
  EXPECT_TRUE(service->EndsWithin(3s));
}

TEST_F(CompanionServiceTest, MayBeKilledAtAnyMomentAndStartedAgain) {
  WriteLogs();
  const message::Broker broker(socket);
  CIPCMessageClient client(0x390000, false);
  std::minstd_rand random(3);
  for (int i = 0; i < 100; ++i) {
    const auto service = StartService();
    const auto killed = std::chrono::steady_clock::now() + 1ms * (random() % 40);
    while (std::chrono::steady_clock::now() < killed) {
      for (const std::uint32_t id : {0x3B0001u, 0x3B0002u, 0x3B0003u}) {
        tagIPC_MESSAGE_ITEM item;
        item.target = kService;
        item.messageId = id;
        client.PostIPCMessage(item);
      }
      std::this_thread::sleep_for(3ms);
    }
    service->Kill();
  }
  const Outcome after = Logs({"--upload"});
  EXPECT_EQ(after.exitStatus, 0) << after.errors;
  EXPECT_THAT(after.output, HasSubstr(".tar.gz"));
  for (const char* left : {".packing", ".masked"})
    EXPECT_FALSE(fs::exists(data / "outbox" / left)) << left;
}

TEST_F(CompanionServiceTest, ServesOnWhenTheTerminalProgramIsKilledAtAnyMoment) {
  WriteLogs();
  const message::Broker broker(socket);
  const auto service = StartService();
  ASSERT_EQ(Logs().exitStatus, 0);
  std::minstd_rand random(4);
  for (int i = 0; i < 100; ++i) {
    os::ChildProcess logs(LogsCommand(i % 2 == 0 ? "--upload" : "--json"));
    std::this_thread::sleep_for(1ms * (random() % 40));
    logs.Kill();
  }
  EXPECT_FALSE(service->EndsWithin(0s));
  EXPECT_THAT(Logs({"--upload"}).output, HasSubstr(".tar.gz"));
}

}  // namespace
