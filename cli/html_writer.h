#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/machine/masking/identifier_mask.h"

namespace cli {

/// Puts an HTML page together. Texts go in masked and escaped, so that none can become markup.
class HtmlWriter {
 public:
  explicit HtmlWriter(const machine::IdentifierMask& applied) : mask(applied) {}

  /// HTML of our own, as it stands.
  HtmlWriter& Html(std::string_view html);

  /// A text; characters that a page must not hold become "?".
  HtmlWriter& Text(std::wstring_view text);
  HtmlWriter& Text(std::string_view utf8);

  HtmlWriter& Number(std::int64_t number) { return Html(std::to_string(number)); }

  /// A text of the report's own, by the end of its string id.
  HtmlWriter& Label(const wchar_t* id);

  const std::string& Page() const { return page; }

 private:
  const machine::IdentifierMask& mask;
  std::string page;
};

}  // namespace cli
