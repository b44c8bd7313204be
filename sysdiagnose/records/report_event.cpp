#include "sysdiagnose/records/report_event.h"

#include "platform/report/event_data_report.h"

namespace orv::sysdiagnose {

void SendReportEvent(ReportEvent event, const std::string& payload) {
  EventDataReport& report = EventDataReport::Instance();
  report.SendMsg(report.GetMsg(std::to_string(static_cast<std::uint32_t>(event)), payload));
}

std::string JoinNumbers(const std::vector<std::uint32_t>& numbers, char separator) {
  std::string text;
  for (const std::uint32_t number : numbers) {
    if (!text.empty()) text.push_back(separator);
    text += std::to_string(number);
  }
  return text;
}

}  // namespace orv::sysdiagnose
