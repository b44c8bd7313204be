#include "sysdiagnose/ui/history/count_text.h"

#include "platform/duilib/culture/culture.h"

namespace orv::sysdiagnose {

std::wstring CountText(const wchar_t* singularId, const wchar_t* pluralId, std::int64_t count) {
  return DuiLib::UICulture::GetInstance()->GetMultiVarStr(count > 1 ? pluralId : singularId,
                                                          {std::to_wstring(count)});
}

std::wstring CountText(const wchar_t* id, std::int64_t count) {
  return CountText(id, id, count);
}

}  // namespace orv::sysdiagnose
