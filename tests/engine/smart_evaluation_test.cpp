#include "sysdiagnose/engine/smart_evaluation.h"

#include <gtest/gtest.h>

#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

TEST(Smart, EveryAttributeGivesOneRecordAndEveryFlagOnePlaceInTheLine) {
  const InForce inForce(R"({"info": {"CDisk": {"GetCaption": ["A"], "JudgeSSd": [false]}},
      "tests": {"CDiskFaultDetect::CheckHhdSmartResult": {"code": 0, "flags": [0, 0, 0, 255]}}})");
  HardwareDetect::CDiskFaultDetect diagnose;
  std::vector<tagDetectItemDetail> records(1);
  std::string csv;
  EXPECT_EQ(EvaluateHddSmart(diagnose, 0, records, csv), 0);
  ASSERT_EQ(records.size(), 25);
  for (std::size_t i = 1; i < records.size(); ++i) {
    EXPECT_EQ(records[i].normal, i != 4) << i;
    EXPECT_EQ(records[i].code, 0);
    EXPECT_EQ(records[i].hint, L"");
  }
  EXPECT_EQ(records[4].caption, L"IDS_HARDWARE_DIAGNOSE_DISK_05");
  EXPECT_EQ(csv, "0,0,0,255,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,4294967295");
}

TEST(Smart, ASolidStateDiskHasItsOwnTable) {
  const InForce inForce(R"({"info": {"CDisk": {"GetCaption": ["A"], "JudgeSSd": [true]}},
      "tests": {"CDiskFaultDetect::CheckSsdSmartResult": {"code": 3, "flags": [0, 1]}}})");
  HardwareDetect::CDiskFaultDetect diagnose;
  std::vector<tagDetectItemDetail> records;
  std::string csv;
  EXPECT_EQ(EvaluateSsdSmart(diagnose, 0, records, csv), 3);
  ASSERT_EQ(records.size(), 22);
  EXPECT_EQ(records[1].caption, L"IDS_HARDWARE_DIAGNOSE_DISK_05");
  EXPECT_FALSE(records[1].normal);
  EXPECT_EQ(csv, "0,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,2");
}

}  // namespace
}  // namespace orv::sysdiagnose
