#include "sysdiagnose/ui/history/date_label.h"

#include "platform/duilib/culture/culture.h"
#include "platform/os/clock.h"
#include "sysdiagnose/ui/history/count_text.h"

namespace orv::sysdiagnose {
namespace {

constexpr std::int64_t kSecondsPerDay = 86400;

std::wstring Text(const wchar_t* id) {
  return DuiLib::UICulture::GetInstance()->GetString(id);
}

}  // namespace

std::int32_t LastMidnight() {
  const os::LocalTime local = os::CurrentClock().Local();
  const std::int64_t now = os::CurrentClock().SecondsSinceEpoch();
  return static_cast<std::int32_t>(now - ((local.hour * 60 + local.minute) * 60 + local.second));
}

std::wstring DateLabel(std::int64_t time, std::int32_t midnight) {
  if (time > midnight) return Text(L"IDS_HARDWARE_DETECT_MAIN_TODAY");
  if (time < midnight && time >= midnight - kSecondsPerDay)
    return Text(L"IDS_HARDWARE_DETECT_MAIN_YESTERDAY");
  const std::int64_t days = (midnight - time) / kSecondsPerDay + 1;
  return CountText(L"IDS_HARDWARE_DETECT_MAIN_BEFORE_DAY", days);
}

}  // namespace orv::sysdiagnose
