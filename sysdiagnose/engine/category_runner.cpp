#include "sysdiagnose/engine/category_runner.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "platform/duilib/culture/culture.h"
#include "sysdiagnose/engine/disk_runner.h"
#include "sysdiagnose/engine/test_items.h"
#include "sysdiagnose/records/report_event.h"

namespace orv::sysdiagnose {
namespace {

enum class Gate {
  None,            // every item runs
  FirstItem,       // a failing first item ends the sequence with an offer and the unknown text
  FirstItemAlone,  // as FirstItem, but without an offer: nothing mends that item
};

struct CategoryRow {
  enmHardwareID category;
  Gate gate;
  bool repairable;
  const wchar_t* unknownText;  // string id
  const wchar_t* failureText;  // string id; goes with the first announcement
  std::optional<ReportEvent> event;
};

// One text serves all four categories.
constexpr const wchar_t* kRepairFailed = L"IDS_HARDWARE_DIAGNOSE_BLUETOOTH_DEVICE_REPAIR_FAIL";

using Category = enmHardwareID;

// By category id.
constexpr auto kCategories = std::to_array<CategoryRow>({
    {Category::Audio, Gate::FirstItem, true, L"IDS_HARDWARE_DIAGNOSE_AUDIO_UNKNOWN", kRepairFailed,
     ReportEvent::AudioTested},
    {Category::Motherboard, Gate::None, false, nullptr, nullptr, ReportEvent::MotherboardTested},
    {Category::Bluetooth, Gate::FirstItem, true, L"IDS_HARDWARE_DIAGNOSE_BLUETOOTH_UNKNOWN",
     kRepairFailed, std::nullopt},
    {Category::NetworkCard, Gate::FirstItem, true, L"IDS_HARDWARE_DIAGNOSE_WIFI_UNKNOWN",
     kRepairFailed, ReportEvent::NetworkTested},
    {Category::Processor, Gate::None, false, nullptr, nullptr, ReportEvent::ProcessorTested},
    {Category::Memory, Gate::None, false, nullptr, nullptr, ReportEvent::MemoryTested},
    {Category::Disk, Gate::None, false, nullptr, nullptr, std::nullopt},
    {Category::GraphicsCard, Gate::FirstItem, true, L"IDS_HARDWARE_DIAGNOSE_GPU_UNKNOWN",
     kRepairFailed, ReportEvent::GraphicsTested},
    {Category::Display, Gate::None, false, nullptr, nullptr, ReportEvent::DisplayTested},
    {Category::Battery, Gate::FirstItem, false, L"IDS_HARDWARE_DIAGNOSE_BATTERY_UNKNOWN", nullptr,
     ReportEvent::BatteryTested},
    {Category::Keyboard, Gate::None, true, nullptr, nullptr, std::nullopt},
    {Category::Fingerprint, Gate::FirstItemAlone, true,
     L"IDS_HARDWARE_DIAGNOSE_FINGERPRINT_UNKNOWN", nullptr, std::nullopt},
});

constexpr bool InOrder() {
  for (std::size_t i = 0; i < kCategories.size(); ++i)
    if (kCategories[i].category != static_cast<Category>(i)) return false;
  return kCategories.size() == kHardwareIdCount;
}
static_assert(InOrder());

std::wstring Resolve(const wchar_t* id) {
  return id == nullptr ? std::wstring() : DuiLib::UICulture::GetInstance()->GetString(id);
}

void Announce(const CategoryRow& row, const TestItem& item, bool first,
              const CategoryCallbacks& callbacks) {
  tagHardwareDetectInfo info;
  info.caption = CaptionText(item.announcedAs == nullptr ? item.caption : item.announcedAs);
  info.repairCommand = NameOf(item.repair);
  if (first) info.repairFailureText = Resolve(row.failureText);
  callbacks.itemStart(row.category, info);
}

// The entries say what a repair would do; the offer is made once for all of them.
void Offer(const CategoryRow& row, std::vector<tagRepairItemInfo>& repairs,
           const CategoryCallbacks& callbacks) {
  tagRepairItemInfo offer;
  offer.text = Resolve(L"IDS_HARDWARE_DETECT_ITEM_REPAIR_COMMAND");
  offer.offered = true;
  for (tagRepairItemInfo& repair : repairs) {
    repair.text = offer.text;
    repair.offered = true;
  }
  callbacks.repairOffer(static_cast<int>(row.category), row.category, offer);
}

struct SequenceResult {
  CategoryOutcome outcome;
  bool endedAtGate = false;
  std::vector<std::uint32_t> codes;  // one per item, 0 for an item that was not run
};

void NoteResult(const TestItem& item, const tagDetectItemDetail& detail, CategoryOutcome& outcome) {
  if (detail.normal) return;
  outcome.normal = false;
  if (outcome.text.empty()) outcome.text = detail.hint;
  if (item.repair != RepairCommand::None)
    outcome.repairs.push_back({{}, false, NameOf(item.repair), std::to_wstring(detail.code)});
}

SequenceResult RunItems(const CategoryRow& row, TestObjects& objects,
                        const CategoryCallbacks& callbacks) {
  const std::span<const TestItem> items = ItemsOf(row.category);
  SequenceResult result;
  result.codes.resize(items.size());
  for (std::size_t i = 0; i < items.size() && !result.endedAtGate; ++i) {
    const TestItem& item = items[i];
    if (item.supported != nullptr && !item.supported(objects)) continue;
    if (item.caption != nullptr) Announce(row, item, i == 0, callbacks);
    tagDetectItemDetail detail;
    result.codes[i] = Evaluate(item, objects, detail);
    if (item.caption != nullptr) callbacks.itemResult(row.category, detail);
    NoteResult(item, detail, result.outcome);
    result.endedAtGate = i == 0 && row.gate != Gate::None && !detail.normal;
  }
  return result;
}

void SendEvent(const CategoryRow& row, std::vector<std::uint32_t> codes) {
  if (!row.event) return;
  // The processor's report has SSSE3 before SSE3.
  if (row.category == Category::Processor) std::swap(codes[2], codes[3]);
  SendReportEvent(*row.event, JoinNumbers(codes, ','));
}

}  // namespace

CategoryOutcome RunCategory(enmHardwareID category, TestObjects& objects,
                            const CategoryCallbacks& callbacks) {
  if (!IsCategory(category)) return {};
  if (category == Category::Disk) return RunDisks(objects, callbacks);

  const CategoryRow& row = kCategories[static_cast<std::size_t>(category)];
  SequenceResult result = RunItems(row, objects, callbacks);
  CategoryOutcome& outcome = result.outcome;
  const bool offers = row.repairable && !(result.endedAtGate && row.gate == Gate::FirstItemAlone);
  if (!offers) outcome.repairs.clear();
  if (!outcome.normal && offers) Offer(row, outcome.repairs, callbacks);
  if (result.endedAtGate) callbacks.categoryUnknown(category, Resolve(row.unknownText));
  SendEvent(row, result.codes);
  return outcome;
}

}  // namespace orv::sysdiagnose
