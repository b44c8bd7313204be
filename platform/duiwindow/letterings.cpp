#include "platform/duiwindow/letterings.h"

#include <wx/image.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "platform/duiwindow/wide.h"

namespace duiwindow {
namespace {

constexpr std::size_t kMost = 768;
constexpr int kMostAcross = 1 << 14;
constexpr double kMargin = 0.25;   // of the letters' size: what they may reach beyond their widths
constexpr double kDescent = 0.75;  // the same, below their baseline

int Rounded(double dots) {
  return static_cast<int>(std::lround(dots));
}

// Words with the blanks behind them, and single wide characters.
std::vector<std::wstring_view> WordsOf(std::wstring_view text) {
  std::vector<std::wstring_view> words;
  std::size_t begin = 0;
  for (std::size_t at = 1; at < text.size(); ++at) {
    const bool isSecondHalf = text[at] >= 0xDC00 && text[at] <= 0xDFFF;
    const bool begins = text[at] != L' ' && text[at - 1] == L' ';
    const bool isWide = IsWide(text[at]) || IsWide(text[at - 1]);
    if (isSecondHalf || !(begins || isWide)) continue;
    words.push_back(text.substr(begin, at - begin));
    begin = at;
  }
  words.push_back(text.substr(begin));
  return words;
}

struct Word {
  std::wstring_view text;
  Texts::Extent extent;
};

// A picture that nothing has been painted on.
wxImage Clear(wxSize size) {
  wxImage image(size);
  image.InitAlpha();
  std::memset(image.GetAlpha(), 0, static_cast<std::size_t>(size.x) * size.y);
  return image;
}

}  // namespace

Letterings::Letterings(Texts& with) : texts(with), letterings(kMost) {}

const Lettering& Letterings::Of(std::wstring_view text, const DuiLib::Font& font, double scale,
                                std::uint32_t argb) {
  return letterings.Get({std::wstring(text), scale, font.size, font.bold, font.underlined, argb},
                        [&] { return Set(text, font, scale, argb); });
}

// Letters of another size are not exactly that much wider: what differs is shared out between the
// words, so that the text is as wide as it was measured.
Lettering Letterings::Set(std::wstring_view text, const DuiLib::Font& font, double scale,
                          std::uint32_t argb) {
  const bool wide = Texts::HasWide(text);
  const double width = texts.MeasuredWidth(font, wide, text) * scale;
  std::vector<Word> words;
  double ownWidth = 0;
  double ascent = 0;
  for (const std::wstring_view word : WordsOf(text)) {
    words.push_back({word, texts.ExtentAt(scale, font, wide, word)});
    ownWidth += words.back().extent.width;
    ascent = std::max(ascent, words.back().extent.ascent);
  }
  const double gap =
      words.size() == 1 ? 0 : (width - ownWidth) / static_cast<double>(words.size() - 1);

  Lettering set;
  set.left = Rounded(font.size * scale * kMargin) + 1;
  set.ascent = Rounded(ascent);
  set.size = {static_cast<int>(std::ceil(std::max(width, ownWidth))) + 2 * set.left,
              set.ascent + Rounded(font.size * scale * kDescent)};
  if (set.size.x > kMostAcross) return {};
  wxImage image = Clear(set.size);
  {
    wxGraphicsRenderer* const renderer = wxGraphicsRenderer::GetDefaultRenderer();
    const std::unique_ptr<wxGraphicsContext> context(renderer->CreateContextFromImage(image));
    if (!context) return {};
    context->SetFont(texts.FontAt(scale, font, wide, argb));
    double left = set.left;
    for (const Word& word : words) {
      // Letters of different faces stand at different heights in their texts.
      context->DrawText(wxString(word.text.data(), word.text.size()), left,
                        set.ascent - Rounded(word.extent.ascent));
      left += word.extent.width + gap;
    }
  }
  set.bitmap = wxGraphicsRenderer::GetDefaultRenderer()->CreateBitmapFromImage(image);
  return set;
}

}  // namespace duiwindow
