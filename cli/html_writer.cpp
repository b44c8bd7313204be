#include "cli/html_writer.h"

#include <algorithm>
#include <array>

#include "cli/terminal_text.h"
#include "common/text.h"
#include "platform/duilib/culture/culture.h"

namespace cli {
namespace {

struct EscapeRow {
  char character;
  std::string_view html;
};

constexpr auto kEscapes = std::to_array<EscapeRow>(
    {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&#39;"}});

// Code points that are no characters, other than the last two of each higher plane.
bool IsNoCharacter(wchar_t c) {
  const auto code = static_cast<char32_t>(c);
  return (code >= 0xFDD0 && code <= 0xFDEF) || code == 0xFFFE || code == 0xFFFF;
}

}  // namespace

HtmlWriter& HtmlWriter::Html(std::string_view html) {
  page += html;
  return *this;
}

HtmlWriter& HtmlWriter::Text(std::wstring_view text) {
  std::wstring shown = mask.Apply(text);
  std::ranges::replace_if(shown, &IsNoCharacter, L'?');
  for (const char c : Printable(shown)) {
    const auto row = std::ranges::find(kEscapes, c, &EscapeRow::character);
    if (row == kEscapes.end())
      page += c;
    else
      page += row->html;
  }
  return *this;
}

HtmlWriter& HtmlWriter::Text(std::string_view utf8) {
  return Text(common::Utf8ToWide(utf8));
}

HtmlWriter& HtmlWriter::Label(const wchar_t* id) {
  return Text(
      DuiLib::UICulture::GetInstance()->GetString(std::wstring(L"IDS_HARDWARE_REPORT_") + id));
}

}  // namespace cli
