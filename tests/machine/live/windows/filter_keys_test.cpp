#include <gtest/gtest.h>

#include "platform/machine/live/live_machine.h"
#include "platform/machine/live/windows/filter_key_calls.h"

namespace {

constexpr DWORD kOn = FKF_FILTERKEYSON;
constexpr DWORD kOthers = FKF_AVAILABLE | FKF_HOTKEYACTIVE | FKF_CLICKON;

/// An owner's setting, and how the system keeps it.
struct Setting {
  FILTERKEYS kept{};
  bool canBeRead = true;
  bool canBeWritten = true;
  bool isForced = false;  // accepts a change and goes on as before
  UINT change = 0;        // as asked with the last change
  int changes = 0;
};

Setting setting;

BOOL WINAPI SystemParameters(UINT action, UINT size, void* value, UINT change) {
  auto* const given = static_cast<FILTERKEYS*>(value);
  if (size != sizeof(FILTERKEYS) || given->cbSize != sizeof(FILTERKEYS)) return FALSE;
  if (action == SPI_GETFILTERKEYS && setting.canBeRead) {
    *given = setting.kept;
    return TRUE;
  }
  if (action != SPI_SETFILTERKEYS || !setting.canBeWritten) return FALSE;
  ++setting.changes;
  setting.change = change;
  if (!setting.isForced) setting.kept = *given;
  return TRUE;
}

std::uint32_t Check() {
  return machine::TestFilterKeys(&SystemParameters).code;
}

std::uint32_t Repair() {
  return machine::TurnFilterKeysOff(&SystemParameters).code;
}

class FilterKeys : public testing::Test {
 protected:
  FilterKeys() {
    setting = {};
    setting.kept = {sizeof(FILTERKEYS), kOn | kOthers, 1000, 500, 250, 0};
  }
};

TEST_F(FilterKeys, AreAbnormalWhileTheyAreOnAndOffAfterTheRepair) {
  EXPECT_EQ(Check(), 1U);
  EXPECT_EQ(Repair(), 0U);
  EXPECT_EQ(Check(), 0U);
  EXPECT_EQ(setting.change, UINT{SPIF_UPDATEINIFILE | SPIF_SENDCHANGE});
  EXPECT_EQ(setting.kept.dwFlags, kOthers) << "the rest of the owner's setting stays";
  EXPECT_EQ(setting.kept.iDelayMSec, 500U);
}

TEST_F(FilterKeys, AreNotTouchedWhenOff) {
  setting.kept.dwFlags = kOthers;
  EXPECT_EQ(Check(), 0U);
  EXPECT_EQ(Repair(), 0U);
  EXPECT_EQ(setting.changes, 0);
}

TEST_F(FilterKeys, ThatCannotBeTurnedOffAreNotRepaired) {
  setting.canBeWritten = false;
  EXPECT_NE(Repair(), 0U);
  setting.canBeWritten = true;
  setting.isForced = true;
  EXPECT_NE(Repair(), 0U);
  EXPECT_EQ(Check(), 1U);
}

TEST_F(FilterKeys, OfASessionWithoutThemAreNormal) {
  setting.canBeRead = false;
  EXPECT_EQ(Check(), 0U);
}

/// The owner's setting while it lives, put back after it.
class OwnersSetting {
 public:
  OwnersSetting() { SystemParametersInfoW(SPI_GETFILTERKEYS, sizeof kept, &kept, 0); }
  ~OwnersSetting() { SystemParametersInfoW(SPI_SETFILTERKEYS, sizeof kept, &kept, 0); }
  OwnersSetting(const OwnersSetting&) = delete;
  OwnersSetting& operator=(const OwnersSetting&) = delete;

 private:
  FILTERKEYS kept{sizeof(FILTERKEYS), 0, 0, 0, 0, 0};
};

TEST(LiveMachine, TurnsTheSystemsFilterKeysOff) {
  const OwnersSetting owners;
  machine::LiveMachine live;
  EXPECT_EQ(live.Repair(machine::RepairCall::FilterKey, 0, 1).code, 0U);
  EXPECT_EQ(live.Test(machine::TestCall::KeyboardFilterKey, 0, -1).code, 0U);
}

}  // namespace
