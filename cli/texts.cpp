#include "cli/texts.h"

#include "common/printable.h"
#include "common/text.h"
#include "platform/duilib/culture/culture.h"

namespace cli {
namespace {

std::wstring IdOf(const wchar_t* end) {
  return std::wstring(L"IDS_HARDWARE_TERMINAL_") + end;
}

}  // namespace

std::wstring Text(const wchar_t* id) {
  return DuiLib::UICulture::GetInstance()->GetString(IdOf(id));
}

std::wstring Text(const wchar_t* id, const std::vector<std::wstring>& arguments) {
  return DuiLib::UICulture::GetInstance()->GetMultiVarStr(IdOf(id), arguments);
}

std::string Line(const wchar_t* id) {
  return common::Printable(Text(id));
}

std::string Line(const wchar_t* id, const std::vector<std::wstring>& arguments) {
  return common::Printable(Text(id, arguments));
}

std::string Message(const wchar_t* id, const std::vector<std::string>& arguments) {
  std::vector<std::wstring> wide;
  for (const std::string& argument : arguments) wide.push_back(common::Utf8ToWide(argument));
  return common::WideToUtf8(Text(id, wide));
}

}  // namespace cli
