#include "sysdiagnose/engine/hint_text.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

TEST(HintText, TheTableHasTwoEndsAndNothingBeyondThem) {
  const InForce inForce;
  for (const int code : {0, 1, 8, 255, -9, INT32_MAX, INT32_MIN})
    EXPECT_EQ(HintText(code), L"") << code;
  EXPECT_EQ(HintText(-1), L"IDS_HARDWARE_DIAGNOSE_CHECK_DRIVE");
  EXPECT_EQ(HintText(-4), L"IDS_HARDWARE_DIAGNOSE_BATTERY_LOWVOLT");
  EXPECT_EQ(HintText(-8), L"IDS_HARDWARE_DIAGNOSE_FN_OPEN");
}

TEST(HintText, EveryCodeHasWordsOfItsOwnInEachLanguage) {
  const InForce inForce;
  for (const char* language : {"en-US", "zh-CN"}) {
    DuiLib::UICulture::GetInstance()->SetLanguage(language, APP_DIR "/res");
    std::set<std::wstring> texts;
    for (int code = -8; code <= -1; ++code) {
      const std::wstring text = HintText(code);
      EXPECT_NE(text, L"") << language << code;
      EXPECT_FALSE(text.starts_with(L"IDS_")) << language << code;
      EXPECT_TRUE(texts.insert(text).second) << language << code << " says what another says";
    }
  }
}

}  // namespace
}  // namespace orv::sysdiagnose
