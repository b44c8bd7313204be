#include <algorithm>
#include <atomic>
#include <optional>

#include "cli/check_printer.h"
#include "cli/commands.h"
#include "cli/interruptible.h"
#include "cli/item_teller.h"
#include "cli/json_line.h"
#include "cli/left_out.h"
#include "cli/repair_choice.h"
#include "common/protocol/ipc_serialize.h"
#include "common/protocol/message_ids.h"
#include "common/text.h"
#include "platform/machine/workloads/cut_short.h"
#include "platform/message/ipc_message_client.h"
#include "sysdiagnose/engine/quiet_runs.h"
#include "sysdiagnose/records/diagnose_summary.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

// This program's own id on the message channel.
constexpr std::uint32_t kTerminalModule = 0x2F0000;

void PrintJson(std::uint32_t messageId, const DiagnoseSummary& summary) {
  JsonLine line("summary");
  line.Add("message", HexId(messageId))
      .Add("headline", summary.headline)
      .Add("abnormal", std::int64_t{summary.abnormalCount})
      .Add("result", summary.resultText)
      .Add("detail", summary.detailText);
  line.BeginArray("items");
  for (const DetectListEntry& entry : summary.items) {
    line.BeginObject()
        .Add("icon", entry.icon)
        .Add("caption", entry.caption)
        .Add("description", entry.description)
        .Add("state", static_cast<std::int64_t>(entry.state))
        .Add("resultText", entry.resultText)
        .Add("repairable", entry.repairable)
        .Add("selected", entry.selected)
        .Add("category", std::int64_t{entry.category})
        .EndObject();
  }
  line.EndArray().Add("interval", std::int64_t{summary.interval});
}

// Stands where the host's main page would: prints the summaries that are posted to its group.
class SummaryReader {
 public:
  SummaryReader() {
    client.SubscribeIPCMessage(protocol::kHostGroup, 0);
    client.RegisterMessageCallback(protocol::kQuietSummary, [](const tagIPC_MESSAGE_ITEM& item) {
      protocol::CIPCDataIO body(item.data, item.dataLength);
      DiagnoseSummary summary;
      protocol::ReadVersioned(body, summary);
      PrintJson(item.messageId, summary);
    });
  }

 private:
  CIPCMessageClient client{kTerminalModule, false};
};

// One quiet check, and quiet repairs when they are asked for.
class Check {
 public:
  Check(std::vector<enmHardwareID> offered, RunPrinter& shownBy, RunVerdicts& noted)
      : selection(std::move(offered)), printer(shownBy), verdicts(noted) {}

  void Detect() {
    runs.TestOnly(selection);
    runs.BeginDetection(
        {[this](enmHardwareID category, tagHardwareDetectInfo& info) {
           items.ItemStart(category, info);
         },
         [this](enmHardwareID category, tagDetectItemDetail& detail) {
           items.ItemResult(category, detail);
         },
         [this](enmHardwareID category, const std::wstring& text) {
           printer.CategoryUnknown(category, text);
         },
         [this](int, enmHardwareID category, tagRepairItemInfo& offer) {
           printer.RepairOffer(category, offer);
         }},
        [this](enmHardwareID category, bool normal) { items.EndCategory(category, normal); }, {},
        [this](const std::string& error) { Fail(error); });
    interruptible.Cancels([this] {
      isStopped = true;
      runs.RequestStop();
      machine::CutTestsShort(true);
    });
    runs.Wait();
  }

  void Repair(const Arguments& arguments) {
    if (hasFailed || isStopped) return;
    const std::optional<RepairMap> chosen = ChooseRepairs(arguments, runs.OfferedRepairs());
    if (!chosen) isStopped = true;
    std::vector<enmHardwareID> categories;
    for (const auto& [category, entries] : chosen.value_or(RepairMap()))
      categories.push_back(category);
    if (categories.empty()) return;
    runs.BeginRepair(categories, {}, [this](const std::string& error) { Fail(error); });
    runs.Wait();
    for (const enmHardwareID category : categories)
      if (!runs.OfferedRepairs().contains(category)) verdicts.Repair(category);
  }

  /// Says how the check ended; returns its exit status.
  ExitStatus End() {
    message::WaitUntilDelivered();
    if (hasFailed) {
      printer.Failed(fault);
      return kRunFailed;
    }
    if (isStopped) {
      printer.Cancelled();
      return kCancelled;
    }
    int first = -1;
    for (std::size_t i = selection.size(); i-- > 0;)
      if (VerdictOf(selection[i]) == Verdict::Abnormal) first = static_cast<int>(i);
    const auto abnormal = static_cast<int>(verdicts.CountOf(Verdict::Abnormal));
    printer.Finished(abnormal, first);
    return abnormal == 0 ? kAllNormal : kSomethingAbnormal;
  }

 private:
  void Fail(const std::string& error) {
    hasFailed = true;
    fault = error;
    if (const auto open = std::ranges::find(
            selection, false,
            [this](enmHardwareID category) { return verdicts.Find(category)->isReached; });
        open != selection.end())
      items.EndCategory(*open, true, common::Utf8ToWide(error));
  }

  Verdict VerdictOf(enmHardwareID category) const { return verdicts.Find(category)->verdict; }

  const std::vector<enmHardwareID> selection;
  RunPrinter& printer;
  RunVerdicts& verdicts;
  ItemTeller items{printer, verdicts};
  std::atomic<bool> isStopped = false;
  bool hasFailed = false;
  std::string fault;
  QuietRuns runs;
  Interruptible interruptible;  // after the runs that it cancels
};

}  // namespace

int RunCheck(const Arguments& arguments) {
  const std::vector<enmHardwareID> offered = CategoriesToTest(arguments);

  RunVerdicts verdicts(offered);
  const std::unique_ptr<RunPrinter> printer = MakeCheckPrinter(arguments.json, verdicts);
  if (offered.empty()) {
    printer->Failed(NothingOffered());
    return kRunFailed;
  }

  std::optional<SummaryReader> reader;
  if (arguments.json) reader.emplace();
  Check check(offered, *printer, verdicts);
  check.Detect();
  if (arguments.repair) check.Repair(arguments);
  return check.End();
}

}  // namespace cli
