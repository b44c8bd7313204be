#pragma once

#include <optional>
#include <string>
#include <thread>

#include "cli/run_printer.h"
#include "cli/verdict.h"
#include "platform/hardware_detect/answer_observer.h"

namespace cli {

/// Tells a printer about the items of a run, each with what the test libraries said about it, and
/// what became of each announcement: an item with a result, the heading of the items behind it, or
/// nothing. Observes the answers of the tests for as long as it lives. Notes what each category
/// comes to.
///
/// Words belong to the announcement that they follow. Those about a heading, a disk, go with its
/// abnormal items, or with the heading where none is abnormal.
class ItemTeller {
 public:
  ItemTeller(RunPrinter& told, RunVerdicts& noted);
  ItemTeller(const ItemTeller&) = delete;
  ItemTeller& operator=(const ItemTeller&) = delete;
  ~ItemTeller();

  void ItemStart(orv::sysdiagnose::enmHardwareID category,
                 const orv::sysdiagnose::tagHardwareDetectInfo& info);
  void ItemResult(orv::sysdiagnose::enmHardwareID category,
                  const orv::sysdiagnose::tagDetectItemDetail& detail);

  /// The category has ended, and the engine counts it as normal or not; `why` says why it could
  /// not be tested as a whole.
  void EndCategory(orv::sysdiagnose::enmHardwareID category, bool isNormal,
                   const std::wstring& why = {});

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

  void Note(Verdict verdict, const std::wstring& reason);

  void Hear(const HardwareDetect::AnswerWords& answer);
  void TakeForHeading();
  void EndHeading();

  RunPrinter& printer;
  RunVerdicts& verdicts;
  std::optional<CategoryVerdict> rows;  // of the category that goes on, if it has any
  std::thread::id runThread;            // others ask too, but not for the run
  orv::sysdiagnose::enmHardwareID current{};
  std::optional<Announcement> heading;
  std::optional<Announcement> open;  // without a result so far
};

}  // namespace cli
