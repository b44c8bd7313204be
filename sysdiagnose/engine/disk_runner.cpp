#include "sysdiagnose/engine/disk_runner.h"

#include <string>
#include <vector>

#include "sysdiagnose/catalogue/hardware_info_source.h"
#include "sysdiagnose/engine/smart_evaluation.h"
#include "sysdiagnose/records/report_event.h"

namespace orv::sysdiagnose {
namespace {

constexpr enmHardwareID kDisk = enmHardwareID::Disk;

void Announce(const std::wstring& caption, const CategoryCallbacks& callbacks) {
  tagHardwareDetectInfo info;
  info.caption = caption;
  callbacks.itemStart(kDisk, info);
}

// Reports one disk and returns its SMART result. A disk that cannot be read is left at its
// announcement.
std::uint32_t RunDisk(int disk, HardwareSdk::CDisk& source,
                      HardwareDetect::CDiskFaultDetect& diagnose,
                      const CategoryCallbacks& callbacks) {
  Announce(source.GetCaption(disk), callbacks);
  bool isSolidState = false;
  source.JudgeSSd(disk, isSolidState);
  const auto evaluate = isSolidState ? &EvaluateSsdSmart : &EvaluateHddSmart;
  const auto event = isSolidState ? ReportEvent::SolidStateDiskTested : ReportEvent::HardDiskTested;

  std::vector<tagDetectItemDetail> records;
  std::string csv;
  const std::uint32_t result = evaluate(diagnose, disk, records, csv);
  SendReportEvent(event, csv);
  if (result == kUnreadableDisk) return result;
  for (tagDetectItemDetail& record : records) {
    Announce(record.caption, callbacks);
    callbacks.itemResult(kDisk, record);
  }
  return result;
}

}  // namespace

CategoryOutcome RunDisks(TestObjects& objects, const CategoryCallbacks& callbacks) {
  HardwareSdk::CDisk& source = HardwareInfoSource::Instance().disk;
  auto& diagnose = ObjectOf<HardwareDetect::CDiskFaultDetect>(objects);
  const int count = source.GetPhysicDiskNumbers();
  if (count == 0) {
    Announce({}, callbacks);
    tagDetectItemDetail nothing;
    callbacks.itemResult(kDisk, nothing);
  }
  int faulty = 0;
  for (int disk = 0; disk < count; ++disk) {
    const std::uint32_t result = RunDisk(disk, source, diagnose, callbacks);
    if (result != kUnreadableDisk && result != kHealthyDisk) ++faulty;
  }
  SendReportEvent(ReportEvent::DisksTested, std::to_string(faulty));
  return {};
}

}  // namespace orv::sysdiagnose
