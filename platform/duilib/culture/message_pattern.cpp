#include "platform/duilib/culture/message_pattern.h"

#include <unicode/fmtable.h>
#include <unicode/messagepattern.h>
#include <unicode/msgfmt.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>

#include "common/text.h"
#include "platform/duilib/culture/icu_data.h"

namespace DuiLib {
namespace {

icu::UnicodeString ToIcu(const std::wstring& text) {
  const std::u16string units = common::WideToUtf16(text);
  return {units.data(), static_cast<std::int32_t>(units.size())};
}

}  // namespace

std::wstring FillPattern(const std::wstring& pattern, const std::vector<std::wstring>& arguments) {
  std::vector<icu::Formattable> values;
  values.reserve(arguments.size());
  for (const std::wstring& argument : arguments) values.emplace_back(ToIcu(argument));

  ProvideIcuData();
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString filled;
  icu::MessageFormat::format(ToIcu(pattern), values.data(),
                             static_cast<std::int32_t>(values.size()), filled, status);
  if (U_FAILURE(status)) return {};
  return common::Utf16ToWide({filled.getBuffer(), static_cast<std::size_t>(filled.length())});
}

int PatternArguments(const std::wstring& pattern) {
  ProvideIcuData();
  UErrorCode status = U_ZERO_ERROR;
  const icu::MessagePattern parsed(ToIcu(pattern), nullptr, status);
  if (U_FAILURE(status)) return 0;

  int count = 0;
  for (std::int32_t index = 0; index < parsed.countParts(); ++index) {
    const auto& part = parsed.getPart(index);
    if (part.getType() == UMSGPAT_PART_TYPE_ARG_NUMBER) {
      count = std::max(count, part.getValue() + 1);
    }
  }
  return count;
}

}  // namespace DuiLib
