#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "cli/item_words.h"
#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/engine/detect_item_detail.h"

namespace cli {

/// What people are told of a test, a category or a run; the worst comes last.
enum class Verdict {
  NotThere,   // left out: the machine is built without it
  Normal,     // tested
  NotTested,  // could not be tested, or has not been reached
  Abnormal,
  Count
};

/// As JSON has it: "notThere", "normal", "notTested", "abnormal".
const char* NameOf(Verdict verdict);

/// In the language in force.
std::wstring WordsOf(Verdict verdict);

/// An item without a caption stands for a device that is not there: nothing was tested.
Verdict VerdictOf(const orv::sysdiagnose::tagDetectItemDetail& detail, const ItemWords& words);

struct CategoryVerdict {
  orv::sysdiagnose::enmHardwareID category{};
  Verdict verdict = Verdict::NotTested;
  std::wstring reason{};                 // why it is not normal, as far as that is known
  Verdict ifRepaired = Verdict::Normal;  // worst of the rows that a repair leaves as they are
  bool isReached = false;
  std::chrono::milliseconds took{0};
};

/// What the categories of a run came to, each once. Belongs to the run's thread, and to the one
/// that waits for it afterwards.
class RunVerdicts {
 public:
  explicit RunVerdicts(const std::vector<orv::sysdiagnose::enmHardwareID>& selection);

  /// Notes what a category has come to. The worse one counts of a category that ran twice.
  void Reach(const CategoryVerdict& reached);

  void Took(orv::sysdiagnose::enmHardwareID category, std::chrono::milliseconds time);

  void Repair(orv::sysdiagnose::enmHardwareID category);

  /// Null for a category that is not selected.
  const CategoryVerdict* Find(orv::sysdiagnose::enmHardwareID category) const;

  /// In the order of the selection.
  const std::vector<CategoryVerdict>& All() const { return categories; }

  /// That of the whole run: never better than a category's, and "not tested" if none is selected.
  Verdict Worst() const;

  std::size_t CountOf(Verdict verdict) const;
  std::size_t CountOfReached() const;

  /// Of those that were reached, the ones that could be tested.
  std::size_t CountOfTested() const;

 private:
  std::vector<CategoryVerdict> categories;
};

}  // namespace cli
