#include "sysdiagnose/ui/host/page_index.h"

#include "platform/duilib/layout/tab_layout.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "sysdiagnose/records/ipc_helper.h"
#include "sysdiagnose/records/report_event.h"

namespace orv::sysdiagnose {
namespace {

constexpr const wchar_t* kTabs = L"tblSysdiagnoseContent";
constexpr const wchar_t* kHostTab = L"SysdiagnoseUIMain";

}  // namespace

PageIndex& PageIndex::Instance() {
  static PageIndex host;
  return host;
}

PageIndex::PageIndex()
    : SysdiagnosePage(L"SysdiagnosePageIndex", L"layout\\sysdiagnose_index.xml") {}

void PageIndex::InitPage() {
  auto* const tabs = Find<DuiLib::CTabLayoutUI>(kTabs);
  for (SysdiagnosePage* const page :
       std::initializer_list<SysdiagnosePage*>{&archievementPage, &scanPage, &detectPage}) {
    page->CreatePage(GetPaintManager(), GetOwnerPump());
    if (page->GetRoot() == nullptr || tabs == nullptr) continue;
    tabs->Add(page->GetRoot());
    page->InitPage();
  }
  if (tabs != nullptr) tabs->SelectItem(PAGE_ARCHIEVEMENT);
  const auto switchPage = [this](enumPageType type) { SwitchPage(type); };
  archievementPage.SetSwitchPage(switchPage);
  scanPage.SetSwitchPage(switchPage);
  scanPage.SetSelectHardware(
      [this](std::vector<enmHardwareID>& selected) { SetSelectedHardware(selected); });
  detectPage.SetSwitchPage(switchPage);
  TakeHostRequests();
}

void PageIndex::SwitchPage(enumPageType type) {
  auto* const tabs = Find<DuiLib::CTabLayoutUI>(kTabs);
  if (tabs == nullptr) return;
  if (type == PAGE_ARCHIEVEMENT) archievementPage.Refresh();
  if (type == PAGE_SCAN) scanPage.EnterScan();
  if (type == PAGE_DETECT) detectPage.StartDetect(selectedHardware);
  tabs->SelectItem(static_cast<std::size_t>(type));
}

void PageIndex::SetSelectedHardware(std::vector<enmHardwareID>& selected) {
  selectedHardware = selected;
}

void PageIndex::OnTabSelectIn(DuiLib::TNotifyUI& notification) {
  if (notification.sender == nullptr || notification.sender->GetName() != kHostTab) return;
  SendReportEvent(ReportEvent::ModuleEntered, "");
  archievementPage.Refresh();
}

// They come on the delivery thread, which is not kept.
void PageIndex::TakeHostRequests() {
  const auto post = [this, mounted = WhileMounted()](auto step) {
    DuiLib::UIMainQueue::dispatch([this, mounted, step = std::move(step)] {
      if (!mounted.expired()) step(quietRuns);
    });
  };
  IPCHelper& channel = IPCHelper::Instance();
  channel.SetDetectSlot([post](bool start) {
    post([start](QuietRuns& runs) {
      if (start)
        runs.BeginDetection({}, {}, {});
      else
        runs.RequestStop();
    });
  });
  channel.SetRepairSlot([post](const std::vector<std::int32_t>& numbers) {
    std::vector<enmHardwareID> categories;
    for (const std::int32_t number : numbers)
      categories.push_back(static_cast<enmHardwareID>(number));
    post([categories](QuietRuns& runs) { runs.BeginRepair(categories, {}, {}); });
  });
}

void PageIndex::OnGone() {
  IPCHelper::Instance().SetDetectSlot({});
  IPCHelper::Instance().SetRepairSlot({});
  quietRuns.RequestStop();
}

}  // namespace orv::sysdiagnose
