#include "sysdiagnose/catalogue/information_sheet.h"

#include <gmock/gmock.h>

#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

using testing::ElementsAre;

// The values of a sheet's rows; an empty row as "--", a named one with its name in front.
std::vector<std::wstring> Values(enmHardwareID category, const std::string& json,
                                 bool expectFound = true) {
  const InForce inForce(json);
  std::vector<std::wstring> values;
  const bool found =
      CollectInformation(category, [&values](enmHardwareID, const tagHardwareDetailInfo& row) {
        values.push_back(row.kind == tagHardwareDetailInfo::kEmptyRow ? L"--" : row.value);
        EXPECT_TRUE(row.name.empty() || row.name == row.value);
        if (!row.name.empty()) values.back().insert(0, L"*");
        return false;
      });
  EXPECT_EQ(found, expectFound);
  return values;
}

TEST(InformationSheet, SeparatorsStandBetweenSlotsOnceSomethingHasBeenShown) {
  EXPECT_THAT(Values(enmHardwareID::Memory, R"({"info": {"CMemory": {
                  "GetPartNumberbyIndex": ["", " M1 ", "", "M3", ""],
                  "GetCapacitybyIndex": [0, 300, 0, 1536, 0], "GetSpeedbyIndex": [0, 3200]}}})"),
              ElementsAre(L"*M1", L"0GB", L"3200MHZ", L"--", L"--", L"*M3", L"2GB", L"--"));
}

TEST(InformationSheet, ACategoryWithoutRowsShowsOneEmptyRow) {
  for (const enmHardwareID id : {enmHardwareID::Memory, enmHardwareID::Keyboard,
                                 enmHardwareID::NetworkCard, enmHardwareID::GraphicsCard})
    EXPECT_THAT(Values(id, R"({"info": {"CKeyBoard": {"GetKeyBoardName": "  "}}})", false),
                ElementsAre(L"--"));
}

TEST(InformationSheet, ACardWithoutANameHidesItsRowsAndItsSeparator) {
  const std::string both = R"({"info": {"CVediocard": {
      "GetIndependentVideoCardName": "D", "GetIndependentVedioCardMemorySize": 4096,
      "GetInternalVideoCardName": "I", "GetInternalVideoCardDriverDate": "2026"}}})";
  const std::string internal = R"({"info": {"CVediocard": {
      "GetIndependentVedioCardMemorySize": 4096, "GetInternalVideoCardName": "I"}}})";
  const std::string absent = R"({"tests": {"CVideoCardDetect::CheckDevice": 5},
      "info": {"CVediocard": {"GetInternalVideoCardName": "I"}}})";
  EXPECT_THAT(Values(enmHardwareID::GraphicsCard, both),
              ElementsAre(L"*D", L"4096 M", L"--", L"*I", L"2026"));
  EXPECT_THAT(Values(enmHardwareID::GraphicsCard, internal), ElementsAre(L"*I"));
  EXPECT_THAT(Values(enmHardwareID::GraphicsCard, absent, false), ElementsAre(L"--"));
}

TEST(InformationSheet, OnlyWirelessAdaptersAreListed) {
  EXPECT_THAT(Values(enmHardwareID::NetworkCard, R"({"info": {"CNetworkAdapter": {
                  "GetWireLessIndex": [2, 0], "GetCaptionbyIndex": ["w0", "wired", "w2"],
                  "GetMacAddressbyIndex": ["m0"]}}})"),
              ElementsAre(L"*w2", L"--", L"*w0", L"m0"));
}

TEST(InformationSheet, CoresShowWhenEitherNumberIsKnown) {
  EXPECT_THAT(Values(enmHardwareID::Processor, R"({"info": {"CCpu": {
                  "GetCpuCoreThreads": 8, "GetCpuExtClock": 100, "GetL3CacheSize": 6144}}})"),
              ElementsAre(L"*0/8", L"100MHZ", L"6144KB"));
}

TEST(InformationSheet, AnIdWithoutACategoryHasNoSheet) {
  for (const int id : {-1, 12})
    EXPECT_THAT(Values(static_cast<enmHardwareID>(id), "{}", false), ElementsAre());
}

}  // namespace
}  // namespace orv::sysdiagnose
