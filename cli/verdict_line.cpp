#include "cli/verdict_line.h"

#include <algorithm>
#include <array>

#include "cli/terminal_text.h"
#include "cli/texts.h"

namespace cli {
namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kGap = 2;
constexpr std::size_t kCaptionColumns = 36;

// By Verdict.
constexpr auto kColours =
    std::to_array<Colour>({Colour::Grey, Colour::Green, Colour::Yellow, Colour::Red});
static_assert(kColours.size() == static_cast<std::size_t>(Verdict::Count));

// As counts name them; the first two always, the others where there are any.
constexpr auto kCounted = std::to_array<Verdict>(
    {Verdict::Normal, Verdict::Abnormal, Verdict::NotTested, Verdict::NotThere});

}  // namespace

std::string VerdictLine(const std::wstring& caption, Verdict verdict) {
  const std::wstring words = WordsOf(verdict);
  const std::string coloured =
      Coloured(kColours.at(static_cast<std::size_t>(verdict)), Printable(words));
  const std::size_t columns = LineColumns();
  if (kIndent + Columns(caption) + kGap + Columns(words) > columns)
    return Indented(caption, kIndent) + "\n" + std::string(2 * kIndent, ' ') + coloured;
  const std::size_t room = columns - kIndent - kGap - Columns(words);
  return std::string(kIndent, ' ') + Padded(caption, std::min(kCaptionColumns, room)) +
         std::string(kGap, ' ') + coloured;
}

std::vector<VerdictCount> CountsOf(const RunVerdicts& verdicts) {
  const std::size_t unreached = verdicts.All().size() - verdicts.CountOfReached();
  std::vector<VerdictCount> counts;
  for (const Verdict verdict : kCounted) {
    const std::size_t count =
        verdicts.CountOf(verdict) - (verdict == Verdict::NotTested ? unreached : 0);
    if (count != 0 || verdict == Verdict::Normal || verdict == Verdict::Abnormal)
      counts.push_back({WordsOf(verdict), count});
  }
  if (unreached != 0) counts.push_back({Text(L"UNREACHED"), unreached});
  return counts;
}

std::wstring CountsText(const RunVerdicts& verdicts) {
  std::wstring text;
  for (const auto& [words, count] : CountsOf(verdicts))
    text += (text.empty() ? L"" : Text(L"COMMA")) + words + L" " + std::to_wstring(count);
  return text;
}

std::string CountsLine(const RunVerdicts& verdicts) {
  return Indented(Text(L"CATEGORIES") + Text(L"COLON") + CountsText(verdicts), 0);
}

std::string TestedLine(const RunVerdicts& verdicts) {
  return Line(L"TESTED",
              {std::to_wstring(verdicts.CountOfTested()), std::to_wstring(verdicts.All().size())});
}

}  // namespace cli
