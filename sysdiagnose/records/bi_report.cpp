#include "sysdiagnose/records/bi_report.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <string>

#include "sysdiagnose/base/log.h"
#include "sysdiagnose/records/report_event.h"

namespace orv::sysdiagnose {
namespace {

constexpr unsigned kPeriodMs = 200;

}  // namespace

std::uint32_t LoadPercent(const os::SystemTimes& before, const os::SystemTimes& now) {
  const auto total =
      static_cast<std::int64_t>((now.user - before.user) + (now.kernel - before.kernel));
  const auto busy = total - static_cast<std::int64_t>(now.idle - before.idle);
  if (total <= 0 || busy < 1 || now.idle < before.idle) return 0;
  const float load = static_cast<float>(busy) / static_cast<float>(total) * 100.0F;
  return std::min(static_cast<std::uint32_t>(load), 100U);
}

void BIReport::Start() {
  previous = os::GetSystemTimes();
  loads.clear();
  clocks.clear();
  temperatures.clear();
  target.emplace([](BIReport* report) { report->Sample(); });
  timer.emplace(kPeriodMs, this, &*target, true);
  timer->start();
}

void BIReport::StopAndReport() {
  timer.reset();
  target.reset();

  rapidjson::StringBuffer text;
  rapidjson::Writer writer(text);
  const auto member = [&writer](const char* name, const std::vector<std::uint32_t>& samples) {
    writer.Key(name);
    writer.String(JoinNumbers(samples, '|').c_str());
  };
  writer.StartObject();
  member("CpuUsage", loads);
  member("CpuClock", clocks);
  member("DeviceTemper", temperatures);
  writer.EndObject();
  SendReportEvent(ReportEvent::LoopBackLoad, text.GetString());
}

void BIReport::Sample() {
  const os::SystemTimes now = os::GetSystemTimes();
  const std::uint32_t load = LoadPercent(previous, now);
  previous = now;
  const std::uint32_t clock = os::ProcessorCount() == 0 ? 0 : os::CurrentClockMhz();
  SYSDIAGNOSE_LOG_INFO("cpu_load_percent " + std::to_string(load) + " cpu_cur_clock " +
                       std::to_string(clock) + " device_temper0");
  loads.push_back(load);
  clocks.push_back(clock);
  temperatures.push_back(0);
}

}  // namespace orv::sysdiagnose
