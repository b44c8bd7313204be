#include "platform/machine/live/smart_report.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using machine::ParseSmartReport;
using machine::TestCall;

/// The places of the flags that are raised.
std::vector<std::size_t> Raised(TestCall test, const std::string& json) {
  std::vector<std::size_t> places;
  const machine::TestAnswer answer = ParseSmartReport(test, json);
  for (std::size_t i = 0; i < answer.flags.size(); ++i)
    if (answer.flags[i] != 0) places.push_back(i);
  return places;
}

std::string Ata(const std::string& attributes) {
  return R"({"smart_status": {"passed": true}, "ata_smart_attributes": {"table": [)" + attributes +
         "]}}";
}

std::string Nvme(int spare, int threshold, int used) {
  return R"({"smart_status": {"passed": true}, "nvme_smart_health_information_log": {)"
         R"("available_spare": )" +
         std::to_string(spare) + R"(, "available_spare_threshold": )" + std::to_string(threshold) +
         R"(, "percentage_used": )" + std::to_string(used) + "}}";
}

TEST(SmartReport, TakesTheDrivesVerdict) {
  EXPECT_EQ(ParseSmartReport(TestCall::DiskHddSmart, R"({"smart_status": {"passed": true}})").code,
            1U);
  EXPECT_EQ(ParseSmartReport(TestCall::DiskHddSmart, R"({"smart_status": {"passed": false}})").code,
            0U);
}

TEST(SmartReport, WithoutAVerdictTheDiskCannotBeRead) {
  const std::string deep = std::string(100'000, '[');
  for (const std::string& text :
       {std::string(), std::string("smartctl: not found"), std::string("[]"), std::string("null"),
        std::string(R"({"smart_status": true})"), std::string(R"({"smart_status": {"passed": 1}})"),
        std::string(R"({"smart_status": {"passed": true})"), deep, deep + std::string(100'000, ']'),
        std::string(R"({"smartctl": {"messages": [{"severity": "error"}], "exit_status": 1}})")}) {
    const machine::TestAnswer answer = ParseSmartReport(TestCall::DiskSsdSmart, text);
    EXPECT_EQ(answer.code, 2U) << text.substr(0, 60);
    EXPECT_EQ(answer.flags, std::vector<std::uint8_t>(machine::kSsdFlagCount, 0));
  }
}

TEST(SmartReport, RaisesTheFlagsOfAttributesOutOfLimits) {
  const std::string report = Ata(R"(
      {"id": 1, "value": 51, "thresh": 50, "when_failed": ""},
      {"id": 3, "value": 90, "thresh": 0, "when_failed": "past"},
      {"id": 5, "value": 10, "thresh": 10, "when_failed": ""},
      {"id": 9, "value": 0, "thresh": 0, "when_failed": ""},
      {"id": 194, "value": 100, "thresh": 0, "when_failed": "now"},
      {"id": 200, "value": 1, "thresh": 50, "when_failed": "now"},
      {"id": 242, "value": 4, "thresh": 5, "when_failed": ""})");
  EXPECT_EQ(Raised(TestCall::DiskHddSmart, report), (std::vector<std::size_t>{1, 3, 17, 23}));
  EXPECT_EQ(Raised(TestCall::DiskSsdSmart, report), (std::vector<std::size_t>{1, 21}));
}

TEST(SmartReport, PassesOverAttributesItCannotUnderstand) {
  const std::string report = Ata(R"(
      7, {"id": -1, "when_failed": "now"}, {"id": "5", "when_failed": "now"}, {"when_failed": "now"},
      {"id": 5, "value": "low", "thresh": 10}, {"id": 5, "when_failed": null},
      {"id": 1.5, "when_failed": "now"}, {"id": 4, "value": 1, "thresh": 1})");
  EXPECT_EQ(Raised(TestCall::DiskHddSmart, report), (std::vector<std::size_t>{2}));
  EXPECT_TRUE(Raised(TestCall::DiskHddSmart,
                     R"({"smart_status": {"passed": true}, "ata_smart_attributes": {"table": {}}})")
                  .empty());
}

TEST(SmartReport, ReadsTheHealthLogOfAnNvmeDrive) {
  constexpr std::size_t kSpare = 18, kEndurance = 19;
  using Places = std::vector<std::size_t>;
  EXPECT_EQ(Raised(TestCall::DiskSsdSmart, Nvme(10, 10, 99)), Places{});
  EXPECT_EQ(Raised(TestCall::DiskSsdSmart, Nvme(9, 10, 99)), Places{kSpare});
  EXPECT_EQ(Raised(TestCall::DiskSsdSmart, Nvme(100, 10, 100)), Places{kEndurance});
  EXPECT_EQ(Raised(TestCall::DiskHddSmart, Nvme(9, 10, 100)), Places{});
}

}  // namespace
