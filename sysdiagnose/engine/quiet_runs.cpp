#include "sysdiagnose/engine/quiet_runs.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/concurrency/message_blocks.h"
#include "platform/os/clock.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/engine/category_runner.h"
#include "sysdiagnose/engine/hardware_repair_helper.h"
#include "sysdiagnose/records/ipc_helper.h"

namespace orv::sysdiagnose {
namespace {

using std::chrono::milliseconds;

// The host's main page shows each step for a moment.
constexpr milliseconds kAfterCategory{200};
constexpr milliseconds kBeforeRepairs{1000};
constexpr milliseconds kAfterRepair{500};
constexpr milliseconds kBeforeLastSummary{5000};

// One value, which a quiet run has while it goes on. Whoever waits for it rests.
concurrency::unbounded_buffer<int>& FreeTurn() {
  static concurrency::unbounded_buffer<int> free;
  static const bool isFilled = (free.send(0), true);
  static_cast<void>(isFilled);
  return free;
}

class Turn {
 public:
  Turn() { FreeTurn().receive(); }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
  ~Turn() { FreeTurn().send(0); }
};

void Pause(milliseconds time) {
  os::CurrentClock().Sleep(time);
}

// Small and grey on the host's page.
std::wstring Decorated(const std::wstring& text) {
  return text.empty() ? text : L"{f 16}{c #7F7F7F}" + text + L"{/f}{/c}";
}

const CategoryCallbacks& NoCallbacks() {
  static const CategoryCallbacks callbacks{
      [](enmHardwareID, tagHardwareDetectInfo&) {}, [](enmHardwareID, tagDetectItemDetail&) {},
      [](enmHardwareID, const std::wstring&) {}, [](int, enmHardwareID, tagRepairItemInfo&) {}};
  return callbacks;
}

}  // namespace

QuietRuns::QuietRuns() : state(std::make_shared<State>()) {}

void QuietRuns::BeginDetection(CategoryResultCallback categoryResult, EndedCallback ended,
                               RunTask::FailedCallback failed) {
  BeginDetection(NoCallbacks(), std::move(categoryResult), std::move(ended), std::move(failed));
}

void QuietRuns::BeginDetection(CategoryCallbacks told, CategoryResultCallback categoryResult,
                               EndedCallback ended, RunTask::FailedCallback failed) {
  Begin([stop = stops.Begin(), told = std::move(told), categoryResult = std::move(categoryResult),
         only = chosen](State& run) { run.Detect(stop, told, categoryResult, only); },
        std::move(ended), std::move(failed));
}

void QuietRuns::BeginRepair(std::vector<enmHardwareID> categories, EndedCallback ended,
                            RunTask::FailedCallback failed) {
  Begin([categories = std::move(categories)](State& run) { run.Repair(categories); },
        std::move(ended), std::move(failed));
}

void QuietRuns::Begin(std::function<void(State&)> body, EndedCallback ended,
                      RunTask::FailedCallback failed) {
  task.Begin(
      [run = state, body = std::move(body), ended = std::move(ended)] {
        {
          const Turn turn;
          body(*run);
        }
        if (ended) ended();
      },
      [failed = std::move(failed)](const std::string& error) {
        if (failed) failed(error);
      });
}

void QuietRuns::State::Post() const {
  DiagnoseSummary summary;
  summary.items = items;
  IPCHelper::Instance().PostSummary(summary, IPCHelper::ModeQuiet);
}

void QuietRuns::State::Detect(const RunStops::Token& stop, const CategoryCallbacks& told,
                              const CategoryResultCallback& categoryResult, const Choice& only) {
  items.clear();
  repairs.clear();
  BeginRun(objects);
  const std::vector<tagDetectItem> snapshot = DetectCatalogue::Instance().items;
  for (const tagDetectItem& item : snapshot) {
    if (stop.IsRequested()) break;
    if (only && std::ranges::count(*only, item.id) == 0) continue;
    const bool normal = DetectCategory(item, told);
    if (categoryResult) categoryResult(item.id, normal);
    Pause(kAfterCategory);
  }
  Post();
}

bool QuietRuns::State::DetectCategory(const tagDetectItem& item, const CategoryCallbacks& told) {
  DetectListEntry& entry = items.emplace_back(MakeDetectListEntry(item));
  entry.description = Decorated(entry.description);
  entry.state = DisplayState::Running;
  entry.selected = true;
  Post();
  CategoryOutcome outcome = RunCategory(item.id, objects, told);
  outcome.text = Decorated(outcome.text);
  ShowOutcome(entry, outcome);
  if (!outcome.repairs.empty()) repairs[item.id] = std::move(outcome.repairs);
  return outcome.normal;
}

void QuietRuns::State::Repair(const std::vector<enmHardwareID>& categories) {
  Post();
  Pause(kBeforeRepairs);
  for (const enmHardwareID category : categories)
    if (repairs.contains(category)) RepairCategory(category);
  Post();
  Pause(kBeforeLastSummary);
  Post();
}

void QuietRuns::State::RepairCategory(enmHardwareID category) {
  const std::vector<tagRepairItemInfo> entries = repairs.at(category);
  bool repaired = true;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    tagRepairItemInfo repair = entries[i];
    HardwareDetect::tagHARDWARE_REPAIR_RESULT result;
    HardwareRepairHelper::Instance().Repair(repair.command, repair.parameter, result);
    repaired = repaired && result.code == 0;
    if (repaired && i + 1 == entries.size()) ShowRepaired(category);
    Post();
    Pause(kAfterRepair);
  }
}

void QuietRuns::State::ShowRepaired(enmHardwareID category) {
  repairs.erase(category);
  for (DetectListEntry& entry : items)
    if (IsOf(entry, category)) ShowOutcome(entry, {});
}

}  // namespace orv::sysdiagnose
