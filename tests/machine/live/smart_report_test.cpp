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

// What the drive says of itself must show among the attributes, whatever they say alone.
TEST(SmartReport, ADriveThatSaysItFailsRaisesTheFlagOfItsReason) {
  constexpr std::size_t kSectors = 3, kOldSectors = 1, kSpare = 18, kWear = 19;
  constexpr auto kHdd = TestCall::DiskHddSmart, kSsd = TestCall::DiskSsdSmart;
  const auto failing = [](const std::string& more) {
    return R"({"smart_status": {"passed": false)" + more + "}";
  };
  const auto ata = [&](const std::string& attribute) {
    return failing(R"(}, "ata_smart_attributes": {"table": [)" + attribute + "]}");
  };
  const auto nvme = [&](int warning) {
    const std::string value = std::to_string(warning);
    return failing(R"(, "nvme": {"value": )" + value +
                   R"(}}, "nvme_smart_health_information_log": {"critical_warning": )" + value +
                   R"(, "available_spare": 100, "available_spare_threshold": 10})");
  };
  const auto scsi = [&](int ascq, const std::string& words) {
    return failing(R"(, "scsi": {"asc": 93, "ascq": )" + std::to_string(ascq) +
                   R"(, "ie_string": ")" + words + R"("}})");
  };
  const struct {
    TestCall test;
    std::string report;
    std::vector<std::size_t> raised;
    std::wstring reasons;
  } cases[] = {
      {kHdd, failing("}"), {kSectors}, L""},
      {kSsd, failing("}"), {kWear}, L""},
      {kHdd,
       ata(R"({"id": 10, "name": "Spin_Retry_Count", "when_failed": "now"})"),
       {6},
       L": Spin_Retry_Count"},
      {kSsd,
       ata(R"({"id": 5, "name": "Reallocated", "value": 9, "thresh": 9})"),
       {kOldSectors},
       L": Reallocated"},
      {kSsd, ata(R"({"id": 5, "name": "Once", "when_failed": "past"})"), {kOldSectors, kWear}, L""},
      {kHdd,
       ata(R"({"id": 200, "name": "Multi_Zone", "when_failed": "now"})"),
       {kSectors},
       L": Multi_Zone"},
      {kSsd, nvme(0x01), {kSpare}, L": spare blocks below their threshold"},
      {kSsd, nvme(0x0C), {kWear}, L": reliability degraded, read only"},
      {kSsd,
       nvme(0x03),
       {kSpare, kWear},
       L": spare blocks below their threshold, temperature out of its limits"},
      {kSsd, nvme(0x80), {kWear}, L""},
      {kHdd, nvme(0x01), {kSectors}, L": spare blocks below their threshold"},
      {kHdd, scsi(0x32, "DATA ERROR RATE TOO HIGH"), {kSectors}, L": DATA ERROR RATE TOO HIGH"},
      {kSsd, scsi(0x73, "ENDURANCE LIMIT MET"), {kWear}, L": ENDURANCE LIMIT MET"},
      {kSsd, scsi(0x03, "SPARE AREA"), {kSpare}, L": SPARE AREA"},
      {kSsd,
       R"({"nvme_smart_health_information_log": {"critical_warning": 4}})",
       {kWear},
       L": reliability degraded"},
      {kSsd,
       R"({"smart_status": {"passed": true},
                 "nvme_smart_health_information_log": {"critical_warning": 8}})",
       {kWear},
       L": read only"},
  };
  for (const auto& [test, report, raised, reasons] : cases) {
    const machine::TestAnswer answer = ParseSmartReport(test, report);
    EXPECT_EQ(answer.code, 0U) << report;
    EXPECT_EQ(Raised(test, report), raised) << report;
    EXPECT_EQ(answer.text, L"the disk reports that it is failing" + reasons) << report;
  }
}

}  // namespace
