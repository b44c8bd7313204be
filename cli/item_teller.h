#pragma once

#include <optional>
#include <string>
#include <thread>

#include "cli/run_printer.h"
#include "platform/hardware_detect/answer_observer.h"

namespace cli {

/// Tells a printer about the items of a run, each with what the test libraries said about it, and
/// what became of each announcement: an item with a result, the heading of the items behind it, or
/// nothing. Observes the answers of the tests for as long as it lives.
///
/// Words belong to the announcement that they follow. Those about a heading, a disk, go with its
/// abnormal items, or with the heading where none is abnormal.
class ItemTeller {
 public:
  explicit ItemTeller(RunPrinter& told);
  ItemTeller(const ItemTeller&) = delete;
  ItemTeller& operator=(const ItemTeller&) = delete;
  ~ItemTeller();

  void ItemStart(orv::sysdiagnose::enmHardwareID category,
                 const orv::sysdiagnose::tagHardwareDetectInfo& info);
  void ItemResult(orv::sysdiagnose::enmHardwareID category,
                  const orv::sysdiagnose::tagDetectItemDetail& detail);

  /// No item follows.
  void End();

 private:
  struct Announcement {
    orv::sysdiagnose::enmHardwareID category{};
    std::wstring caption;
    ItemWords words;
    bool hasItems = false;
    bool wordsShown = false;
  };

  void Hear(const HardwareDetect::AnswerWords& answer);
  void TakeForHeading();
  void EndHeading();

  RunPrinter& printer;
  std::thread::id runThread;  // others ask too, but not for the run
  orv::sysdiagnose::enmHardwareID current{};
  std::optional<Announcement> heading;
  std::optional<Announcement> open;  // without a result so far
};

}  // namespace cli
