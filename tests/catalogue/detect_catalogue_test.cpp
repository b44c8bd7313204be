#include "sysdiagnose/catalogue/detect_catalogue.h"

#include <gmock/gmock.h>

#include "platform/concurrency/task.h"
#include "sysdiagnose/catalogue/device_names.h"
#include "sysdiagnose/catalogue/sizes.h"
#include "tests/support/comma_locale.h"
#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

TEST(Catalogue, AFaultyListOffersNothingButKeepsTheTwelveRecords) {
  const InForce inForce;
  inForce.WriteConfig("SysdiagnoseList.xml",
                      "<sysdiagnose><DetectItem id='4' name='' description=''/><broken");
  const DetectCatalogue catalogue;
  EXPECT_TRUE(catalogue.items.empty());
  ASSERT_EQ(catalogue.categories.size(), 12);
  const DetectCategory* disk = catalogue.Find(enmHardwareID::Disk);
  EXPECT_EQ(disk->caption, L"IDS_HARDWARE_DETECT_DISK");
  EXPECT_EQ(disk->altIcon, L"file='drawable/hardware/ic_harddisk.png'");
  EXPECT_EQ(catalogue.Find(static_cast<enmHardwareID>(12)), nullptr);
  concurrency::wait_until_idle();
}

TEST(Catalogue, TheFillGivesEachCategoryItsDeviceTexts) {
  const InForce inForce(R"({"info": {
      "CCpu": {"GetCpuName": "Sample CPU"},
      "CMemory": {"GetTotalMemoryNums": 15872, "GetPartNumberbyIndex": ["M1", "M2"]},
      "CDisk": {"GetCaption": ["Disk A", "Disk B"], "GetTotalVendorCapacity": [512, 1999]},
      "CNetworkAdapter": {"GetWireLessIndex": [1], "GetCaptionbyIndex": ["wired", "wireless"]}}})");
  const DetectCatalogue catalogue;
  concurrency::wait_until_idle();
  const auto textsOf = [&catalogue](enmHardwareID id) {
    const DetectCategory* category = catalogue.Find(id);
    return category->deviceSummary.Get() + L" / " + category->deviceDetail.Get();
  };
  EXPECT_EQ(textsOf(enmHardwareID::Processor), L"Sample CPU / Sample CPU");
  EXPECT_EQ(textsOf(enmHardwareID::Memory), L"M1 / 16GB");
  EXPECT_EQ(textsOf(enmHardwareID::Disk), L"512 GB+1.9 TB / Disk A");
  EXPECT_EQ(textsOf(enmHardwareID::NetworkCard), L"wireless / wireless");
  EXPECT_EQ(textsOf(enmHardwareID::Audio), L" / ");
}

TEST(DeviceName, DisksWithoutCapacityAddNothing) {
  const auto nameOf = [](const std::string& capacities) {
    const InForce inForce(R"({"info": {"CDisk": {"GetTotalVendorCapacity": [)" + capacities +
                          "]}}}");
    std::wstring name;
    DeviceName(enmHardwareID::Disk, HardwareInfoSource::Instance(), name);
    return name;
  };
  EXPECT_EQ(nameOf("512, 256"), L"512 GB+256 GB");
  EXPECT_EQ(nameOf("512, 0"), L"512 GB+");
  EXPECT_EQ(nameOf("0, 512"), L"512 GB");
  EXPECT_EQ(nameOf("512, 0, 256"), L"512 GB+256 GB");
}

TEST(DeviceName, TheIndependentCardStandsBeforeTheInternalOne) {
  const auto nameOf = [](const std::string& cards) {
    const InForce inForce(R"({"info": {"CVediocard": {)" + cards + "}}}");
    std::wstring name = L"before";
    const bool found =
        DeviceName(enmHardwareID::GraphicsCard, HardwareInfoSource::Instance(), name);
    EXPECT_EQ(found, !name.empty());
    return name;
  };
  const std::string internal = R"("GetInternalVideoCardName": "I")";
  EXPECT_EQ(nameOf(internal + R"(, "GetIndependentVideoCardName": "D")"), L"D");
  EXPECT_EQ(nameOf(internal), L"I");
  EXPECT_EQ(nameOf(""), L"");
}

TEST(Sizes, GigabytesRoundHalfUpTerabytesAreCut) {
  EXPECT_EQ(GigabytesOf(511), 0);
  EXPECT_EQ(GigabytesOf(512), 1);
  EXPECT_EQ(GigabytesOf(1536), 2);
  EXPECT_EQ(DiskCapacityText(0), L"");
  EXPECT_EQ(DiskCapacityText(999), L"999 GB");
  EXPECT_EQ(DiskCapacityText(1000), L"1.0 TB");
  EXPECT_EQ(DiskCapacityText(1999), L"1.9 TB");
  EXPECT_EQ(DiskCapacityText(2047), L"2.0 TB");
}

TEST(Sizes, AreWrittenTheSameInEveryLocale) {
  const CommaLocale locale;
  ASSERT_TRUE(locale.InForce());
  EXPECT_EQ(DiskCapacityText(1999), L"1.9 TB");
  EXPECT_EQ(DiskCapacityText(12'345'678), L"12345.6 TB");
}

}  // namespace
}  // namespace orv::sysdiagnose
