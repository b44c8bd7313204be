#include "platform/report/event_data_report.h"

#include <gmock/gmock.h>
#include <rapidjson/document.h>

#include <thread>
#include <vector>

#include "platform/os/paths.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_log.h"
#include "tests/support/virtual_clock.h"

namespace {

class EventDataReportTest : public testing::Test {
 protected:
  EventDataReportTest() { os::SetDataFolder(folder.path); }

  static bool Send(const std::string& id, const std::string& payload) {
    EventDataReport& report = EventDataReport::Instance();
    return report.SendMsg(report.GetMsg(id, payload));
  }

  std::string Written() const { return ReadText(folder.path / "events.jsonl"); }

  TemporaryFolder folder;
  VirtualClock clock{1'710'000'000};
};

TEST_F(EventDataReportTest, WritesOneValidJsonLineWhateverTheBytes) {
  EXPECT_TRUE(Send("620000020", "0,0,0,1,0,0"));
  EXPECT_TRUE(Send("0", std::string("\xff\xc3\xa9\n\"\0", 6)));
  EXPECT_TRUE(Send("007", ""));
  EXPECT_TRUE(Send("-1\xfe", ""));
  EXPECT_TRUE(Send("", ""));
  EXPECT_EQ(Written(),
            "{\"id\":620000020,\"payload\":\"0,0,0,1,0,0\",\"time\":1710000000}\n"
            "{\"id\":0,\"payload\":\"\xef\xbf\xbd\xc3\xa9\\n\\\"\\u0000\",\"time\":1710000000}\n"
            "{\"id\":\"007\",\"payload\":\"\",\"time\":1710000000}\n"
            "{\"id\":\"-1\xef\xbf\xbd\",\"payload\":\"\",\"time\":1710000000}\n"
            "{\"id\":\"\",\"payload\":\"\",\"time\":1710000000}\n");
}

TEST_F(EventDataReportTest, LinesOfSeveralThreadsDoNotMix) {
  constexpr int kThreads = 4;
  constexpr int kEvents = 100;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i)
    threads.emplace_back([i] {
      for (int event = 0; event < kEvents; ++event)
        Send("1", std::string(9000, static_cast<char>('a' + i)));
    });
  for (std::thread& thread : threads) thread.join();

  std::istringstream lines(Written());
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    rapidjson::Document event;
    ASSERT_FALSE(event.Parse(line.c_str()).HasParseError()) << line;
    const std::string payload = event["payload"].GetString();
    EXPECT_EQ(payload, std::string(9000, payload.at(0)));
  }
  EXPECT_EQ(count, kThreads * kEvents);
}

TEST_F(EventDataReportTest, SaysSoWhenTheFileCannotBeWritten) {
  TestLog::Instance().Take();
  std::filesystem::create_directory(folder.path / "events.jsonl");
  EXPECT_FALSE(Send("620000010", ""));
  EXPECT_THAT(TestLog::Instance().Take(),
              testing::ContainsRegex("ERROR orv\\.report .* event 620000010 is lost: "
                                     ".*events\\.jsonl: cannot be written: \\w"));
}

}  // namespace
