#pragma once

#include <cstdint>
#include <string>

namespace orv::sysdiagnose {

/// The text of the plural id for a count above 1, else of the singular id, with the count in its
/// place; empty when that text is not a message pattern. Any thread.
std::wstring CountText(const wchar_t* singularId, const wchar_t* pluralId, std::int64_t count);

/// The same for a text that has one form.
std::wstring CountText(const wchar_t* id, std::int64_t count);

}  // namespace orv::sysdiagnose
