#include "manager/companion_service/log_files.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cerrno>
#include <stdexcept>
#include <system_error>

#include "common/path_text.h"
#include "platform/machine/current.h"
#include "platform/machine/machine_files/machine_file.h"
#include "tests/manager/largest_allocation.h"
#include "tests/manager/packed_logs.h"
#include "tests/support/temporary_folder.h"

namespace companion {
namespace {

namespace fs = std::filesystem;
using protocol::LogModule;
using testing::AnyOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::Pair;
using testing::StartsWith;

class LogFilesTest : public testing::Test {
 protected:
  LogFilesTest() {
    machine::SetCurrent(machine::ParseMachine(
        R"({"info": {"CMemory": {"GetSerialNumberbyIndex": ["SN-47110815"]}}})", "machine"));
  }
  ~LogFilesTest() override { machine::SetCurrent(nullptr); }

  // A log that was last written to `age` hours ago.
  void WriteLog(const std::string& name, const std::string& text, int age = 0) const {
    WriteText(data / "log" / name, text);
    fs::last_write_time(data / "log" / name,
                        fs::file_time_type::clock::now() - std::chrono::hours(age));
  }

  std::string ApplicationLog() { return ReadText(logs.ProduceApplicationLog().file); }

  static std::string Lines(const std::string& word, int from, int to) {
    std::string lines;
    for (int i = from; i < to; ++i) lines += word + " " + std::to_string(i) + "\n";
    return lines;
  }

  // What the last call threw, and that nothing is left of it.
  template <typename Call>
  std::string FailureOf(Call call) {
    try {
      call();
      return {};
    } catch (const std::runtime_error& error) {
      for (const char* left : {".packing", ".masked"})
        EXPECT_FALSE(fs::is_regular_file(outbox / left)) << left;
      return error.what();
    }
  }

  const TemporaryFolder folder;
  const fs::path data = folder.path / "data";
  const fs::path outbox = data / "outbox";
  std::atomic<bool> endAsked = false;
  LogFiles logs{data, endAsked};
};

TEST_F(LogFilesTest, TheApplicationLogEndsWithWhatWasWrittenLast) {
  WriteLog("a.log", Lines("newest", 0, 400) + "no line feed");
  WriteLog("b.log", Lines(std::string(200, 'm'), 0, 400) + "middle", 1);
  WriteLog("c.log", Lines("oldest", 0, 400), 2);
  EXPECT_EQ(ApplicationLog(), Lines("oldest", 202, 400) + Lines(std::string(200, 'm'), 0, 400) +
                                  "middle\n" + Lines("newest", 0, 400) + "no line feed\n");

  WriteLog("a.log", Lines(std::string(300, 'x'), 0, 2000));
  EXPECT_EQ(ApplicationLog(), Lines(std::string(300, 'x'), 1000, 2000));
}

// However a log is parted, none of its identifiers is.
TEST_F(LogFilesTest, IdentifiersInAnEndlessLineAreHashed) {
  std::string text;
  while (text.size() < 300000) text += "SN-47110815,";
  WriteLog("a.log", text);
  const machine::IdentifierMask mask(machine::Current().Info());
  EXPECT_EQ(ApplicationLog(), mask.Apply(std::string_view(text)) + "\n");
}

TEST_F(LogFilesTest, ALongLogIsPackedPieceByPiece) {
  std::string text =
      Lines("a line of the log", 0, 100000) + std::string(2 << 20, '\0') + "\x1A\r\n";
  WriteLog("a.log", text);
  largestAllocation = 0;
  const fs::path archive = logs.Pack(logs.Ready());
  EXPECT_LT(largestAllocation, 1U << 20);
  EXPECT_TRUE(Unpacked(archive).at("logs/a.log") == text);
}

TEST_F(LogFilesTest, EverySourceHasANameOfItsOwnInTheArchive) {
  WriteLog("events.jsonl", "log\n");
  WriteLog("events-2.jsonl", "second\n");
  WriteText(data / "events.jsonl", "events\n");
  WriteLog("application-log.txt", "third\n");
  std::vector<LogFile> files = logs.Ready();
  files.push_back(logs.ProduceApplicationLog());
  EXPECT_THAT(
      Unpacked(logs.Pack(files)),
      ElementsAre(Pair("logs/application-log-2.txt", testing::_),
                  Pair("logs/application-log.txt", "third\n"),
                  Pair("logs/events-2.jsonl", "second\n"), Pair("logs/events-3.jsonl", "events\n"),
                  Pair("logs/events.jsonl", "log\n")));
}

TEST_F(LogFilesTest, AFailureNamesTheFileAndTheReasonOfTheSystem) {
  WriteLog("a.log", "a line\n");
  const auto isToldOf = [](const fs::path& file) {
    const auto reason = [](int number) {
      return EndsWith(std::generic_category().message(number));
    };
    return AllOf(StartsWith(common::PathText(file) + ": "), AnyOf(reason(EISDIR), reason(EACCES)));
  };
  for (const char* name : {".packing", ".masked"}) {
    fs::create_directories(outbox / name / "x");
    EXPECT_THAT(FailureOf([&] { logs.Pack(logs.Ready()); }), isToldOf(outbox / name));
    fs::remove_all(outbox / name);
  }
  fs::create_directories(outbox / "application-log.txt/x");
  EXPECT_THAT(FailureOf([&] { logs.ProduceApplicationLog(); }),
              isToldOf(outbox / "application-log.txt"));

  const std::vector<LogFile> files = logs.Ready();
  endAsked = true;
  EXPECT_THAT(FailureOf([&] { logs.Pack(files); }), testing::HasSubstr("asked to end"));
  fs::remove_all(outbox);
  WriteText(outbox, "a file");
  EXPECT_THAT(FailureOf([&] { logs.Pack(files); }), StartsWith(common::PathText(outbox) + ": "));
}

}  // namespace
}  // namespace companion
