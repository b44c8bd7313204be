#include "platform/duilib/rich_text/text_layout.h"

#include <algorithm>
#include <utility>

namespace DuiLib {
namespace {

constexpr wchar_t kFirstWide = 0x2E80;
constexpr const wchar_t* kEllipsis = L"\u2026";

bool IsBlank(wchar_t letter) {
  return letter == L' ' || letter == L'\t';
}

bool IsSecondHalf(wchar_t letter) {
  return letter >= 0xDC00 && letter <= 0xDFFF;
}

// How much of a text stands together: a line break, blanks, a word, or one wide character.
std::size_t WordLength(std::wstring_view text) {
  if (text.front() == L'\n') return 1;
  const bool blank = IsBlank(text.front());
  const bool wide = text.front() >= kFirstWide;
  std::size_t length = 1;
  while (length < text.size()) {
    const wchar_t next = text[length];
    if (!IsSecondHalf(next) &&
        (wide || next == L'\n' || IsBlank(next) != blank || next >= kFirstWide)) {
      break;
    }
    ++length;
  }
  return length;
}

class Setter {
 public:
  Setter(TextRoom inRoom, TextRules byRules, const FontTable& withFonts, TextMeasure& withMeasure)
      : room(inRoom), rules(byRules), fonts(withFonts), measure(withMeasure) {}

  TextLayout Set(const std::vector<TextRun>& runs) {
    emptyHeight = measure.LineHeight(fonts(std::nullopt));
    layout.lines.emplace_back();
    for (const TextRun& run : runs) SetRun(run);
    Finish();
    return std::move(layout);
  }

 private:
  void SetRun(const TextRun& run) {
    TextPiece look{{}, fonts(run.font), run.colour, run.link, 0, 0};
    if (run.link) look.font.underlined = true;
    if (!rules.multiLine) {
      look.text = run.text;
      std::replace(look.text.begin(), look.text.end(), L'\n', L' ');
      return Put(std::move(look));
    }
    for (std::wstring_view rest = run.text; !rest.empty();) {
      const std::size_t length = WordLength(rest);
      look.text = rest.substr(0, length);
      rest.remove_prefix(length);
      SetWord(look);
    }
  }

  void SetWord(const TextPiece& word) {
    if (word.text == L"\n") return NewLine();
    const int width = measure.Width(word.font, word.text);
    if (!Fits(width) && IsBlank(word.text.front())) return;  // blanks hang over the end
    if (!Fits(width) && !Line().pieces.empty()) {
      DropBlanksAtEnd(Line());
      NewLine();
    }
    if (Fits(width)) return Put(word);
    PutInParts(word);
  }

  // A word longer than a line is broken anywhere.
  void PutInParts(TextPiece word) {
    while (!word.text.empty()) {
      const std::size_t length = std::max(FittingLength(word, room.width), FirstLength(word.text));
      TextPiece part = word;
      part.text.resize(length);
      word.text.erase(0, length);
      Put(std::move(part));
      if (!word.text.empty()) NewLine();
    }
  }

  static std::size_t FirstLength(const std::wstring& text) {
    return text.size() > 1 && IsSecondHalf(text[1]) ? 2 : 1;
  }

  // The longest beginning that is no wider.
  std::size_t FittingLength(const TextPiece& piece, int width) {
    std::size_t fits = 0;
    std::size_t tooLong = piece.text.size() + 1;
    while (fits + 1 < tooLong) {
      const std::size_t middle = fits + (tooLong - fits) / 2;
      const std::wstring_view beginning = std::wstring_view(piece.text).substr(0, middle);
      (measure.Width(piece.font, beginning) <= width ? fits : tooLong) = middle;
    }
    if (fits < piece.text.size() && fits > 0 && IsSecondHalf(piece.text[fits])) --fits;
    return fits;
  }

  void DropBlanksAtEnd(TextLine& line) {
    while (!line.pieces.empty() && IsBlank(line.pieces.back().text.back())) {
      TextPiece& last = line.pieces.back();
      while (!last.text.empty() && IsBlank(last.text.back())) last.text.pop_back();
      last.width = measure.Width(last.font, last.text);
      line.width = last.left + last.width;
      if (!last.text.empty()) return;
      line.pieces.pop_back();
    }
  }

  bool Fits(int width) { return room.width < 0 || Line().width + width <= room.width; }
  TextLine& Line() { return layout.lines.back(); }
  void NewLine() { layout.lines.emplace_back(); }

  void Put(TextPiece piece) {
    TextLine& line = Line();
    if (!line.pieces.empty() && SameLook(line.pieces.back(), piece)) {
      TextPiece& last = line.pieces.back();
      line.width -= last.width;
      last.text += piece.text;
      last.width = measure.Width(last.font, last.text);
      line.width += last.width;
      return;
    }
    piece.left = line.width;
    piece.width = measure.Width(piece.font, piece.text);
    line.width += piece.width;
    line.pieces.push_back(std::move(piece));
  }

  static bool SameLook(const TextPiece& one, const TextPiece& other) {
    return one.font == other.font && one.colour == other.colour && one.link == other.link;
  }

  void Finish() {
    int top = 0;
    std::size_t kept = 0;
    for (TextLine& line : layout.lines) {
      line.top = top;
      SetHeight(line);
      if (room.height >= 0 && kept > 0 && top + line.height > room.height) break;
      top += line.height;
      ++kept;
    }
    const bool linesLeft = kept < layout.lines.size();
    layout.lines.resize(kept);
    layout.isCut = linesLeft || (room.width >= 0 && Line().width > room.width);
    if (layout.isCut && rules.ellipsis && room.width >= 0) EndInEllipsis(Line());
    for (const TextLine& line : layout.lines) {
      layout.size.width = std::max(layout.size.width, line.width);
    }
    layout.size.height = top;
  }

  void SetHeight(TextLine& line) {
    line.height = line.pieces.empty() ? emptyHeight : 0;
    for (const TextPiece& piece : line.pieces) {
      line.height = std::max(line.height, measure.LineHeight(piece.font));
      line.baseline = std::max(line.baseline, measure.Baseline(piece.font));
    }
  }

  void EndInEllipsis(TextLine& line) {
    while (!line.pieces.empty()) {
      TextPiece& last = line.pieces.back();
      const int left = room.width - last.left - measure.Width(last.font, kEllipsis);
      if (left >= 0 || line.pieces.size() == 1) {
        last.text.resize(FittingLength(last, std::max(left, 0)));
        while (!last.text.empty() && IsBlank(last.text.back())) last.text.pop_back();
        last.text += kEllipsis;
        last.width = measure.Width(last.font, last.text);
        line.width = last.left + last.width;
        return;
      }
      line.pieces.pop_back();
    }
  }

  const TextRoom room;
  const TextRules rules;
  const FontTable& fonts;
  TextMeasure& measure;
  TextLayout layout;
  int emptyHeight = 0;
};

}  // namespace

TextLayout SetText(const std::vector<TextRun>& runs, TextRoom room, TextRules rules,
                   const FontTable& fonts, TextMeasure& measure) {
  return Setter(room, rules, fonts, measure).Set(runs);
}

}  // namespace DuiLib
