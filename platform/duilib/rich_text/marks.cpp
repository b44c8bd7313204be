#include "platform/duilib/rich_text/marks.h"

#include <algorithm>
#include <utility>

#include "platform/duilib/builder/number.h"

namespace DuiLib {
namespace {

class MarkReader {
 public:
  std::vector<TextRun> Read(std::wstring_view text) {
    while (!text.empty()) {
      const auto closing = text.front() == L'{' ? text.find(L'}') : std::wstring_view::npos;
      if (closing != std::wstring_view::npos && Take(text.substr(1, closing - 1))) {
        text.remove_prefix(closing + 1);
        continue;
      }
      const auto next = text.find(L'{', 1);
      Append(text.substr(0, next));
      text.remove_prefix(std::min(next, text.size()));
    }
    return std::move(runs);
  }

 private:
  // What stands between two braces; whether it is a mark.
  bool Take(std::wstring_view mark) {
    if (mark == L"/f") return Close(fonts);
    if (mark == L"/c") return Close(colours);
    if (mark == L"/a") return Close(links);
    if (mark == L"a") {
      links.push_back(nextLink++);
      fresh = true;
      return true;
    }
    if (mark.starts_with(L"f ")) return Open(fonts, ParseNumber(mark.substr(2)));
    if (mark.starts_with(L"c #")) return Open(colours, Colour::Parse(mark.substr(2)));
    return false;
  }

  template <typename Value>
  bool Open(std::vector<Value>& open, const std::optional<Value>& value) {
    if (!value) return false;
    open.push_back(*value);
    fresh = true;
    return true;
  }

  template <typename Value>
  bool Close(std::vector<Value>& open) {
    if (!open.empty()) open.pop_back();
    fresh = true;
    return true;
  }

  void Append(std::wstring_view text) {
    if (fresh || runs.empty()) runs.push_back({{}, Last(fonts), Last(colours), Last(links)});
    fresh = false;
    runs.back().text += text;
  }

  template <typename Value>
  static std::optional<Value> Last(const std::vector<Value>& open) {
    return open.empty() ? std::nullopt : std::optional<Value>(open.back());
  }

  std::vector<TextRun> runs;
  std::vector<int> fonts;
  std::vector<Colour> colours;
  std::vector<std::size_t> links;
  std::size_t nextLink = 0;
  bool fresh = false;  // the look has changed since the last run
};

}  // namespace

std::vector<TextRun> ParseMarks(std::wstring_view text) {
  return MarkReader().Read(text);
}

std::wstring WithoutMarks(std::wstring_view text) {
  std::wstring plain;
  for (const TextRun& run : ParseMarks(text)) plain += run.text;
  return plain;
}

}  // namespace DuiLib
