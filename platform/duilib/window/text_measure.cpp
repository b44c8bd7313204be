#include "platform/duilib/window/text_measure.h"

#include <algorithm>

#include "common/text.h"

namespace DuiLib {
namespace {

constexpr char32_t kFirstWide = 0x2E80;

}  // namespace

TextMeasure::~TextMeasure() = default;

int SimpleTextMeasure::Width(const Font& font, std::wstring_view text) {
  const std::u32string letters = common::WideToUtf32(text);
  const auto wide = std::count_if(letters.begin(), letters.end(),
                                  [](char32_t letter) { return letter >= kFirstWide; });
  const int halves = static_cast<int>(letters.size()) + static_cast<int>(wide);
  return (halves * font.size + 1) / 2;
}

int SimpleTextMeasure::LineHeight(const Font& font) {
  return font.size * 4 / 3;
}

int SimpleTextMeasure::Baseline(const Font& font) {
  return font.size;
}

}  // namespace DuiLib
