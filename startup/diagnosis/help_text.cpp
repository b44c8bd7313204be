#include "startup/diagnosis/help_text.h"

#include "common/text.h"
#include "platform/duilib/culture/culture.h"

namespace startup {

namespace {

constexpr const wchar_t* kPrefix = L"IDS_HARDWARE_HELP_";

}  // namespace

std::string HelpText(const wchar_t* id) {
  return common::WideToUtf8(
      DuiLib::UICulture::GetInstance()->GetString(std::wstring(kPrefix) + id));
}

std::string HelpText(const wchar_t* id, const std::vector<std::string>& arguments) {
  std::vector<std::wstring> wide;
  for (const std::string& argument : arguments) wide.push_back(common::Utf8ToWide(argument));
  return common::WideToUtf8(
      DuiLib::UICulture::GetInstance()->GetMultiVarStr(std::wstring(kPrefix) + id, wide));
}

}  // namespace startup
