#include "common/text.h"

#include <gtest/gtest.h>

#include "common/seconds_text.h"
#include "tests/support/comma_locale.h"

namespace common {
namespace {

TEST(Text, MalformedUtf8BecomesOneReplacementPerByteAndLosesNothingAround) {
  struct Case {
    const char* bytes;
    const wchar_t* wide;
  };
  constexpr Case kCases[] = {
      {"a\x80z", L"a\xFFFDz"},                            // lone continuation
      {"a\xC3", L"a\xFFFD"},                              // cut off
      {"\xE4\xBD", L"\xFFFD\xFFFD"},                      // cut off after two of three
      {"\xC0\xAF", L"\xFFFD\xFFFD"},                      // overlong
      {"\xE0\x80\x80", L"\xFFFD\xFFFD\xFFFD"},            // overlong
      {"\xED\xA0\x80x", L"\xFFFD\xFFFD\xFFFDx"},          // surrogate
      {"\xF4\x90\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD"},  // beyond the last code point
      {"\xC3\xA9\xE4\xBD\xA0", L"\xE9\x4F60"},
  };
  for (const auto& [bytes, wide] : kCases) EXPECT_EQ(Utf8ToWide(bytes), wide) << bytes;
}

TEST(Text, EveryFormSurvivesTheRoundTrip) {
  const std::string utf8 = "a\xC3\xA9\xE4\xBD\xA0\xF0\x9F\x94\x8B";
  const std::u16string units = u"a\u00E9\u4F60\U0001F50B";
  EXPECT_EQ(WideToUtf8(Utf8ToWide(utf8)), utf8);
  EXPECT_EQ(WideToUtf16(Utf8ToWide(utf8)), units);
  EXPECT_EQ(WideToUtf8(Utf16ToWide(units)), utf8);
}

TEST(Text, UnpairedSurrogatesSurviveInUnitsAndAreReplacedInUtf8) {
  const std::u16string units = {u'a', char16_t{0xD83D}, u'b', char16_t{0xDD0B}, char16_t{0xD800}};
  EXPECT_EQ(WideToUtf16(Utf16ToWide(units)), units);
  EXPECT_EQ(WideToUtf8(Utf16ToWide(units)),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(SecondsText, HasOneDigitBehindAPointInEveryLocale) {
  using std::chrono::milliseconds;
  const CommaLocale locale;
  ASSERT_TRUE(locale.InForce());
  EXPECT_EQ(SecondsText(milliseconds(0)), "0.0 s");
  EXPECT_EQ(SecondsText(milliseconds(1960)), "2.0 s");
  EXPECT_EQ(SecondsText(milliseconds(1'234'940)), "1234.9 s");
}

}  // namespace
}  // namespace common
