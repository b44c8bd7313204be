#include "sysdiagnose/records/bi_report.h"

#include <gmock/gmock.h>

#include "tests/support/in_force.h"
#include "tests/support/virtual_clock.h"

namespace orv::sysdiagnose {
namespace {

TEST(LoadPercent, IsTheShareNotIdleAndZeroWhenTimeStandsStill) {
  const os::SystemTimes before{1000, 2000, 500};
  struct Case {
    os::SystemTimes now;
    std::uint32_t percent;
  };
  const Case cases[] = {
      {{1050, 2080, 520}, 50},                           // 100 passed, 50 of them idle
      {{1000, 2080, 520}, 100}, {{1100, 2080, 520}, 0},  // all idle
      {{999, 2080, 520}, 0},                             // idle went backwards
      {{1000, 2000, 500}, 0},                            // nothing passed
      {{1000, 1900, 500}, 0},                            // kernel went backwards
      {{1334, 2980, 520}, 66},                           // the fraction is cut
  };
  for (const auto& [now, percent] : cases)
    EXPECT_EQ(LoadPercent(before, now), percent) << now.idle << " " << now.kernel;
}

TEST(BIReport, SamplesEvery200MillisecondsAndEachStartBeginsAnew) {
  const InForce inForce;
  VirtualClock clock;
  BIReport report;
  report.Start();
  clock.Advance(std::chrono::milliseconds(450));
  report.StopAndReport();
  report.Start();
  report.StopAndReport();
  const std::string events = ReadText(inForce.folder.path / "data/events.jsonl");
  const auto split = events.find('\n');
  EXPECT_THAT(events.substr(0, split), testing::HasSubstr(R"(\"DeviceTemper\":\"0|0\")"));
  std::string shape = events.substr(0, split);
  std::erase_if(shape, [](char c) { return c == '|' || (c >= '0' && c <= '9'); });
  EXPECT_THAT(shape, testing::HasSubstr(
                         R"("{\"CpuUsage\":\"\",\"CpuClock\":\"\",\"DeviceTemper\":\"\"}")"));
  EXPECT_THAT(
      events.substr(split + 1),
      testing::HasSubstr(R"("{\"CpuUsage\":\"\",\"CpuClock\":\"\",\"DeviceTemper\":\"\"}")"));
}

}  // namespace
}  // namespace orv::sysdiagnose
