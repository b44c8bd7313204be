#include <atomic>
#include <cstdio>
#include <iterator>
#include <mutex>
#include <optional>

#include "cli/commands.h"
#include "cli/interruptible.h"
#include "cli/json_line.h"
#include "cli/left_out.h"
#include "cli/repair_choice.h"
#include "cli/terminal_text.h"
#include "common/protocol/ipc_serialize.h"
#include "common/protocol/message_ids.h"
#include "common/text.h"
#include "platform/concurrency/task.h"
#include "platform/message/ipc_message_client.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
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

// Any program may post a summary, with any number for a state.
std::string StateText(DisplayState state) {
  constexpr const char* kStates[] = {"waiting", "testing...", "normal", "ABNORMAL"};
  const auto number = static_cast<std::uint32_t>(state);
  return number < std::size(kStates) ? kStates[number] : "state " + std::to_string(number);
}

void PrintText(const DiagnoseSummary& summary) {
  std::printf("%s\n", Coloured(Colour::Bold, Printable(summary.resultText)).c_str());
  for (const DetectListEntry& entry : summary.items)
    std::printf("  %s  %s\n", Padded(entry.caption, 16).c_str(), StateText(entry.state).c_str());
}

// Stands where the host's main page would: prints the summaries that are posted to its group.
class SummaryReader {
 public:
  explicit SummaryReader(bool printsJson) : json(printsJson), client(kTerminalModule, false) {
    client.SubscribeIPCMessage(protocol::kHostGroup, 0);
    client.RegisterMessageCallback(protocol::kQuietSummary,
                                   [this](const tagIPC_MESSAGE_ITEM& item) {
                                     protocol::CIPCDataIO body(item.data, item.dataLength);
                                     DiagnoseSummary summary;
                                     protocol::ReadVersioned(body, summary);
                                     if (json)
                                       PrintJson(item.messageId, summary);
                                     else
                                       PrintText(summary);
                                     const std::lock_guard lock(mutex);
                                     abnormal = summary.abnormalCount > 0;
                                   });
  }

  /// Whether the last summary had an abnormal category.
  bool FoundAbnormal() {
    message::WaitUntilDelivered();
    const std::lock_guard lock(mutex);
    return abnormal;
  }

 private:
  const bool json;
  std::mutex mutex;
  bool abnormal = false;
  CIPCMessageClient client;  // last: its handler uses the members above
};

}  // namespace

int RunCheck(const Arguments& arguments) {
  DetectCatalogue::Instance();
  concurrency::wait_until_idle();  // the summaries then carry the device texts

  SummaryReader reader(arguments.json);
  std::atomic<int> status = kAllNormal;
  std::atomic<bool> stopped = false;
  const auto failed = [&](const std::string& error) {
    status = kRunFailed;
    std::fprintf(stderr, "sysdiagnose: the check failed: %s\n",
                 Printable(common::Utf8ToWide(error)).c_str());
  };
  QuietRuns runs;
  runs.TestOnly(CategoriesToTest(arguments));
  Interruptible interruptible;
  runs.BeginDetection({}, {}, failed);
  interruptible.Cancels([&] {
    stopped = true;
    runs.RequestStop();
  });
  runs.Wait();
  if (arguments.repair && status == kAllNormal && !stopped) {
    const std::optional<RepairMap> chosen = ChooseRepairs(arguments, runs.OfferedRepairs());
    std::vector<enmHardwareID> categories;
    for (const auto& [category, entries] : chosen.value_or(RepairMap()))
      categories.push_back(category);
    if (!categories.empty()) runs.BeginRepair(std::move(categories), {}, failed);
    runs.Wait();
    if (!chosen) stopped = true;
  }
  const bool abnormal = reader.FoundAbnormal();
  if (status != kAllNormal) return status;
  if (stopped) return kCancelled;
  return abnormal ? kSomethingAbnormal : kAllNormal;
}

}  // namespace cli
