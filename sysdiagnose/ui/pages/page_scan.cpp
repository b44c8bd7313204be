#include "sysdiagnose/ui/pages/page_scan.h"

#include <utility>

#include "platform/duilib/culture/culture.h"
#include "sysdiagnose/records/report_event.h"
#include "sysdiagnose/ui/pages/scroll_back.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::UICulture;

constexpr const wchar_t* kList = L"lstSysdiagnoseScanItems";
constexpr const wchar_t* kExecuteBar = L"lytScanExecute";
constexpr const wchar_t* kCancelBar = L"lytScanCancel";
constexpr const wchar_t* kFirstTitle = L"txtSysdiagnoseScanFirstTitle";
constexpr const wchar_t* kSecondTitle = L"txtSysdiagnoseScanSecondTitle";
constexpr const wchar_t* kBackButton = L"btnSysdiagnoseScanBack";
constexpr const wchar_t* kCancelButton = L"btnSysdiagnoseScanCancel";
constexpr const wchar_t* kStoppingText = L"txtSysdiagnoseScanStopping";
constexpr const wchar_t* kDetectButton = L"btnSysdiagnoseDetect";

constexpr std::size_t kUnfoldTimer = 4003;
constexpr std::size_t kScrollBackTimer = 4004;

}  // namespace

PageScan::PageScan() : ContentPage(L"SysdiagnosePageScan", L"layout\\sysdiagnose_scan.xml") {}

void PageScan::InitPage() {
  list = Find<DuiLib::CListUI>(kList);
}

void PageScan::EnterScan() {
  scanner.Cancel();
  run.emplace();
  isScanning = true;
  isUnfolding = false;
  ShowScanning();
  StartScanner();
}

void PageScan::ShowScanning() {
  if (list == nullptr || !ShowBar(kCancelBar, kExecuteBar)) return;
  GetPaintManager()->KillTimer(list, kUnfoldTimer);
  GetPaintManager()->KillTimer(list, kScrollBackTimer);
  current = kNoHardware;
  items.clear();
  list->RemoveAll();
  SetStopping(false);
  SetText(kFirstTitle,
          UICulture::GetInstance()->GetString(L"IDS_HARDWARE_DETECT_HARDWARE_SCANNING"));
  SetText(kSecondTitle, L"");
}

// The scanner waits inside its row callback until the page has shown the row.
void PageScan::StartScanner() {
  const PageRun::Link link = run->GetLink();
  scanner.Start(
      [this, link](enmHardwareID id, tagHardwareDetailInfo& row) {
        link.Post([this, id, row] { OnRow(id, row); });
        link.WaitForPage();
        return true;
      },
      [this, link](enmHardwareID) { link.Post([this] { OnComplete(); }); },
      [this, link] { link.Post([this] { OnEnded(); }); },
      [this, link](const std::string&) { link.Post([this] { OnEnded(); }); });
}

void PageScan::OnRow(enmHardwareID id, const tagHardwareDetailInfo& row) {
  CtlScanItem* const item = ItemOf(id);
  if (item == nullptr) return run->LetGoOn();
  if (row.kind == tagHardwareDetailInfo::kLabelledRow) {
    item->AddDetail(row.label, row.value);
    if (!row.name.empty())
      SetText(kSecondTitle,
              UICulture::GetInstance()->GetString(L"IDS_HARDWARE_DETECT_DO_SCANNING") + row.name);
  } else {
    item->AddSeparator();
  }
  isUnfolding = true;
  GetPaintManager()->SetTimer(list, kUnfoldTimer, kTickMs);
}

// The category's item, built when its first row comes. Null where a layout lacks what it takes.
CtlScanItem* PageScan::ItemOf(enmHardwareID id) {
  if (const auto found = items.find(id); found != items.end()) return &found->second;
  auto tree = list == nullptr ? nullptr : BuildContainer(GetPaintManager(), CtlScanItem::kLayout);
  if (tree == nullptr) return nullptr;
  if (const auto before = items.find(current); before != items.end()) before->second.ShowLine();
  list->Add(tree.get());
  CtlScanItem& item =
      items
          .try_emplace(id, *tree.release(), GetPaintManager(), DetectCatalogue::Instance().Find(id))
          .first->second;
  item.SetUnfoldedHook([this] { OnUnfolded(); });
  current = id;
  return &item;
}

void PageScan::OnTimer(DuiLib::TNotifyUI& notification) {
  if (list == nullptr || notification.sender != list) return;
  if (notification.value == kUnfoldTimer) {
    const auto item = items.find(current);
    const bool isOpen = item == items.end() || item->second.Unfold();
    list->SetScrollPos(list->GetScrollRange());
    if (isOpen) OnUnfolded();
  } else if (notification.value == kScrollBackTimer) {
    list->SetScrollPos(list->GetScrollPos() - scrollBackStep);
    if (list->GetScrollPos() > 0) return;
    GetPaintManager()->KillTimer(list, kScrollBackTimer);
    ShowScanned();
  }
}

// The row at work has unfolded, or a person's click has opened its item.
void PageScan::OnUnfolded() {
  if (!std::exchange(isUnfolding, false)) return;
  GetPaintManager()->KillTimer(list, kUnfoldTimer);
  run->LetGoOn();
}

void PageScan::OnComplete() {
  isScanning = false;
  if (list == nullptr) return;
  scrollBackStep = ScrollBackStep(*list, 0);
  GetPaintManager()->SetTimer(list, kScrollBackTimer, kTickMs);
}

void PageScan::ShowScanned() {
  if (!ShowBar(kExecuteBar, kCancelBar)) return;
  SetText(kFirstTitle, UICulture::GetInstance()->GetString(L"IDS_HARDWARE_DIAGNOSE_ALL"));
  for (auto& [id, item] : items) item.OfferChoice();
  ShowChosen();
}

// Cancelled, or ended by a fault of a library.
void PageScan::OnEnded() {
  isScanning = false;
  if (list != nullptr) {
    GetPaintManager()->KillTimer(list, kUnfoldTimer);
    GetPaintManager()->KillTimer(list, kScrollBackTimer);
  }
  SetStopping(false);
  SwitchPage(PAGE_ARCHIEVEMENT);
}

void PageScan::OnSelectChanged(DuiLib::TNotifyUI&) {
  ShowChosen();
}

void PageScan::ShowChosen() {
  const std::size_t count = Chosen().size();
  SetText(kSecondTitle, UICulture::GetInstance()->GetMultiVarStr(L"IDS_HARDWARE_DETECT_SELECTED",
                                                                 {std::to_wstring(count)}));
  SetEnabled(kDetectButton, count != 0);
}

std::vector<enmHardwareID> PageScan::Chosen() const {
  std::vector<enmHardwareID> ids;
  for (const auto& [id, item] : items)
    if (item.IsChosen()) ids.push_back(id);
  return ids;
}

void PageScan::OnClick(DuiLib::TNotifyUI& notification) {
  const std::wstring& name = notification.sender->GetName();
  if (name == kBackButton) {
    SendReportEvent(ReportEvent::ScanLeft, "");
    SwitchPage(PAGE_ARCHIEVEMENT);
  } else if (name == kCancelButton) {
    SendReportEvent(ReportEvent::ScanCancelled, "");
    Cancel();
  } else if (name == kDetectButton) {
    SendReportEvent(ReportEvent::DetectionAsked, "");
    Detect();
  }
}

void PageScan::Cancel() {
  SetStopping(true);
  scanner.Cancel();
  if (run) run->StopPacing();
  if (!isScanning) OnEnded();
}

void PageScan::SetStopping(bool isStopping) {
  SetEnabled(kCancelButton, !isStopping);
  SetVisible(kStoppingText, isStopping);
}

void PageScan::Detect() {
  std::vector<enmHardwareID> chosen = Chosen();
  if (selectHardware) selectHardware(chosen);
  SwitchPage(PAGE_DETECT);
}

void PageScan::OnGone() {
  scanner.Cancel();
  run.reset();
  items.clear();
  list = nullptr;
  isScanning = false;
}

}  // namespace orv::sysdiagnose
