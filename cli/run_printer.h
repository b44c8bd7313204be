#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sysdiagnose/engine/detect_item_detail.h"
#include "sysdiagnose/records/history_record.h"

namespace cli {

/// Shows a run. The first group of calls comes on the run's thread, in the run's order; Record is
/// called last, by the main thread.
class RunPrinter {
 public:
  virtual ~RunPrinter() = default;

  virtual void ItemStart(orv::sysdiagnose::enmHardwareID category,
                         const orv::sysdiagnose::tagHardwareDetectInfo& info) = 0;
  virtual void ItemResult(orv::sysdiagnose::enmHardwareID category,
                          const orv::sysdiagnose::tagDetectItemDetail& detail) = 0;
  virtual void CategoryUnknown(orv::sysdiagnose::enmHardwareID category,
                               const std::wstring& text) = 0;
  virtual void RepairOffer(orv::sysdiagnose::enmHardwareID category,
                           const orv::sysdiagnose::tagRepairItemInfo& offer) = 0;
  virtual void Cancelled() = 0;
  virtual void Finished(int abnormal, int firstAbnormal) = 0;
  virtual void Failed(const std::string& error) = 0;

  virtual void Record(const orv::sysdiagnose::RunRecord& record) = 0;
};

/// One JSON object per call.
std::unique_ptr<RunPrinter> MakeJsonRunPrinter();

/// A list of the results, with a live line on a terminal, and a closing summary.
std::unique_ptr<RunPrinter> MakeTextRunPrinter(
    std::vector<orv::sysdiagnose::enmHardwareID> selection);

}  // namespace cli
