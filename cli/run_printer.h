#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cli/item_words.h"
#include "cli/verdict.h"
#include "platform/hardware_detect/detector.h"
#include "sysdiagnose/engine/detect_item_detail.h"
#include "sysdiagnose/records/history_record.h"

namespace cli {

/// Shows a detection run, and the repair run that may follow. The calls come on the run's thread,
/// in its order, those about items through an ItemTeller; Record is called at the end of each run,
/// by the main thread.
class RunPrinter {
 public:
  virtual ~RunPrinter() = default;

  virtual void ItemStart(orv::sysdiagnose::enmHardwareID category,
                         const orv::sysdiagnose::tagHardwareDetectInfo& info) = 0;

  /// The announcement of this name is the heading of the items whose results follow.
  virtual void Heading(orv::sysdiagnose::enmHardwareID category, const std::wstring& caption) = 0;

  virtual void ItemResult(orv::sysdiagnose::enmHardwareID category,
                          const orv::sysdiagnose::tagDetectItemDetail& detail,
                          const ItemWords& words) = 0;

  /// The announcement of this name came to nothing.
  virtual void ItemUntested(orv::sysdiagnose::enmHardwareID category, const std::wstring& caption,
                            const ItemWords& words) = 0;

  /// Was said of the last heading, none of whose items is abnormal. They have all been shown.
  virtual void HeadingWords(orv::sysdiagnose::enmHardwareID category, const std::wstring& caption,
                            const ItemWords& words) = 0;

  /// Was said by a test of the category that is no item.
  virtual void CategoryWords(orv::sysdiagnose::enmHardwareID category, const ItemWords& words) = 0;

  virtual void CategoryUnknown(orv::sysdiagnose::enmHardwareID category,
                               const std::wstring& text) = 0;
  virtual void RepairOffer(orv::sysdiagnose::enmHardwareID category,
                           const orv::sysdiagnose::tagRepairItemInfo& offer) = 0;

  /// What the category has come to. Follows its last line.
  virtual void CategoryEnd(const CategoryVerdict& ended) = 0;

  virtual void Cancelled() = 0;
  virtual void Finished(int abnormal, int firstAbnormal) = 0;
  virtual void Failed(const std::string& error) = 0;

  virtual void RepairCategoryStart(int position, orv::sysdiagnose::enmHardwareID category) = 0;
  virtual void RepairStart(int position, orv::sysdiagnose::enmHardwareID category,
                           const orv::sysdiagnose::tagRepairItemInfo& repair) = 0;
  virtual void RepairResult(int position, orv::sysdiagnose::enmHardwareID category,
                            const orv::sysdiagnose::tagRepairItemInfo& repair,
                            const HardwareDetect::tagHARDWARE_REPAIR_RESULT& result) = 0;
  virtual void RepairCategoryResult(bool repaired, orv::sysdiagnose::enmHardwareID category,
                                    int position) = 0;
  virtual void RepairFinished(bool all, bool restart, int firstFaulty) = 0;

  /// `notKept` says why the store does not have the record; it is empty when it has.
  virtual void Record(const orv::sysdiagnose::RunRecord& record, const std::string& notKept) = 0;
};

/// One JSON object per call. The verdicts are those of the run and outlive the printer, here and
/// below.
std::unique_ptr<RunPrinter> MakeJsonRunPrinter(const RunVerdicts& verdicts);

/// A list of the results, with a live line on a terminal, and a closing summary.
std::unique_ptr<RunPrinter> MakeTextRunPrinter(
    std::vector<orv::sysdiagnose::enmHardwareID> selection, const RunVerdicts& verdicts);

}  // namespace cli
