#include "sysdiagnose/ui/pages/page_detect.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/duilib/culture/culture.h"
#include "sysdiagnose/records/ipc_helper.h"
#include "sysdiagnose/records/report_event.h"
#include "sysdiagnose/records/requests.h"
#include "sysdiagnose/ui/pages/scroll_back.h"
#include "sysdiagnose/ui/pages/scroll_into_sight.h"
#include "sysdiagnose/ui/windows/restart_wnd.h"
#include "sysdiagnose/ui/windows/upload_wnd.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::UICulture;

constexpr const wchar_t* kList = L"lstSysdiagnoseDetectItems";
constexpr const wchar_t* kExecuteBar = L"lytDetectExecute";
constexpr const wchar_t* kCancelBar = L"lytDetectCancel";
constexpr const wchar_t* kFirstTitle = L"txtSysdiagnosedDetectFirstTitle";
constexpr const wchar_t* kSecondTitle = L"txtSysdiagnoseDetectSecondTitle";
constexpr const wchar_t* kCompleteButton = L"btnSysdiagnoseDetectComplete";
constexpr const wchar_t* kBackButton = L"btnSysdiagnoseDetectBack";
constexpr const wchar_t* kCancelButton = L"btnSysdiagnoseDetectCancel";
constexpr const wchar_t* kStoppingText = L"txtSysdiagnoseDetectStopping";
constexpr const wchar_t* kNothingTickedHint = L"txtSysdiagnoseDetectHint";

constexpr std::size_t kUnfoldTimer = 4005;
constexpr std::size_t kScrollBackTimer = 4006;
constexpr std::size_t kSmoothTimer = 4007;
constexpr int kSmoothSteps = 15;

constexpr unsigned kWindowExtendedStyle = 0x100;

std::wstring Resolve(const wchar_t* id) {
  return UICulture::GetInstance()->GetString(id);
}

// Runs a window over the page and returns its modal result.
template <typename Window>
int RunModal(DuiLib::CPaintManagerUI* parent) {
  Window window;
  window.Create(parent, L"", 0, kWindowExtendedStyle);
  window.CenterWindow();
  return window.ShowModal();
}

}  // namespace

PageDetect::PageDetect()
    : ContentPage(L"SysdiagnosePageDetect", L"layout\\sysdiagnose_detect.xml") {}

void PageDetect::InitPage() {
  list = Find<DuiLib::CListUI>(kList);
}

void PageDetect::StartDetect(std::vector<enmHardwareID> categories) {
  engine.CancelDetect();
  run.emplace();
  selection = std::move(categories);
  abnormalCount = static_cast<int>(selection.size());
  testedCount = 0;
  isActive = true;
  isUnfolding = areLogsAvailable = needsRestart = false;
  ShowDetecting();
  StartEngine();
}

bool PageDetect::Show(DetectState value) {
  const DetectLook& look = LookOf(value, CanRepair());
  if (list == nullptr ||
      !(look.isAtWork ? ShowBar(kCancelBar, kExecuteBar) : ShowBar(kExecuteBar, kCancelBar)))
    return false;
  state = value;
  SetText(kFirstTitle, Resolve(look.firstTitle));
  if (look.complete != nullptr) {
    SetText(kCompleteButton, Resolve(look.complete));
    SetVisible(kBackButton, look.back != nullptr);
  }
  if (look.back != nullptr) SetText(kBackButton, Resolve(look.back));
  if (look.stopping != nullptr) SetText(kStoppingText, Resolve(look.stopping));
  SetStopping(false);
  SetVisible(kNothingTickedHint, false);
  for (auto& [id, item] : items) item.EnableChoices(!look.isAtWork);
  return true;
}

void PageDetect::ShowDetecting() {
  if (!Show(DetectState::Detecting)) return;
  StopTimers();
  current = kNoHardware;
  scrollTarget = nullptr;
  items.clear();
  list->RemoveAll();
  SetText(kSecondTitle, L"");
}

// The engine waits inside its item callback until the page has shown the row. What categories came
// out as is told with the next item, so that the count left never flashes in between.
void PageDetect::StartEngine() {
  const PageRun::Link link = run->GetLink();
  const auto verdicts = std::make_shared<Verdicts>();  // on the run's thread
  const auto endEarly = [this, link, verdicts] {
    link.Post([this, told = std::exchange(*verdicts, {})] {
      OnVerdicts(told);
      OnEndedEarly();
    });
  };
  engine.BeginDetectRun(
      selection,
      [this, link, verdicts](enmHardwareID id, tagHardwareDetectInfo& item) {
        link.Post(
            [this, id, item, told = std::exchange(*verdicts, {})] { OnItemStart(id, item, told); });
        link.WaitForPage();
      },
      [this, link](enmHardwareID id, tagDetectItemDetail& detail) {
        link.Post([this, id, detail] { OnItemResult(id, detail); });
      },
      [this, link](enmHardwareID id, const std::wstring& text) {
        link.Post([this, id, text] {
          if (CtlDetectItem* const item = ShownItem(id)) item->ShowUnknown(text);
        });
      },
      [this, link](int, enmHardwareID id, tagRepairItemInfo&) {
        link.Post([this, id] {
          if (CtlDetectItem* const item = ShownItem(id)) item->OfferRepairs();
        });
      },
      endEarly,
      [this, link, verdicts](int& abnormal, int& firstAbnormal) {
        link.Post([this, abnormal, firstAbnormal, told = std::exchange(*verdicts, {})] {
          OnVerdicts(told);
          OnFinished(abnormal, firstAbnormal);
        });
      },
      [endEarly](const std::string&) { endEarly(); },
      [verdicts](enmHardwareID id, bool normal) { verdicts->emplace_back(id, normal); });
}

void PageDetect::OnItemStart(enmHardwareID id, const tagHardwareDetectInfo& announcement,
                             const Verdicts& verdicts) {
  OnVerdicts(verdicts);
  const DetectCategory* const category = DetectCatalogue::Instance().Find(id);
  SetText(kSecondTitle,
          TestingText(category == nullptr ? L"" : category->caption, announcement.caption));
  CtlDetectItem* const item = ItemOf(id);
  if (item == nullptr) return run->LetGoOn();
  item->AddTest(announcement);
  isUnfolding = true;
  GetPaintManager()->SetTimer(list, kUnfoldTimer, kTickMs);
}

void PageDetect::OnItemResult(enmHardwareID id, const tagDetectItemDetail& detail) {
  if (CtlDetectItem* const item = ShownItem(id)) item->ShowResult(detail);
}

CtlDetectItem* PageDetect::ShownItem(enmHardwareID id) {
  const auto found = items.find(id);
  return found == items.end() ? nullptr : &found->second;
}

// The category's item, built when its first test comes. Null where a layout lacks what it takes.
CtlDetectItem* PageDetect::ItemOf(enmHardwareID id) {
  if (CtlDetectItem* const known = ShownItem(id)) return known;
  auto tree = list == nullptr ? nullptr : BuildContainer(GetPaintManager(), CtlDetectItem::kLayout);
  if (tree == nullptr) return nullptr;
  if (CtlDetectItem* const before = ShownItem(current)) before->ShowLine();
  list->Add(tree.get());
  CtlDetectItem& item = items
                            .try_emplace(id, *tree.release(), GetPaintManager(), id,
                                         [this] { SetVisible(kNothingTickedHint, false); })
                            .first->second;
  item.SetUnfoldedHook([this] { OnUnfolded(); });
  current = id;
  return &item;
}

// The row at work has unfolded, or a person's click has opened its item.
void PageDetect::OnUnfolded() {
  if (!std::exchange(isUnfolding, false)) return;
  GetPaintManager()->KillTimer(list, kUnfoldTimer);
  if (isActive) run->LetGoOn();
}

void PageDetect::OnVerdicts(const Verdicts& verdicts) {
  for (const auto& [id, normal] : verdicts) {
    ++testedCount;
    if (CtlDetectItem* const item = ShownItem(id)) item->ShowVerdict(normal);
    if (!normal) continue;
    --abnormalCount;
    ShowSummary();
  }
}

void PageDetect::OnFinished(int abnormal, int firstAbnormal) {
  isActive = false;
  abnormalCount = abnormal;
  ShowSummary();
  AskForLogs();
  if (list == nullptr) return;
  scrollTarget = ItemAt(firstAbnormal);
  scrollBackStep = ScrollBackStep(*list, TopOf(scrollTarget));
  GetPaintManager()->SetTimer(list, kScrollBackTimer, kTickMs);
}

// Cancelled, or ended by a fault of a library.
void PageDetect::OnEndedEarly() {
  isActive = false;
  StopTimers();
  for (auto& [id, item] : items) item.StopSigns();
  if (state == DetectState::Detecting)
    SetText(kSecondTitle, UICulture::GetInstance()->GetMultiVarStr(
                              L"IDS_HARDWARE_DIAGNOSE_TESTED",
                              {std::to_wstring(testedCount), std::to_wstring(selection.size())}));
  if (!AskForRestart()) return;
  SetStopping(false);
  SwitchPage(PAGE_ARCHIEVEMENT);
}

void PageDetect::AskForLogs() {
  IPCHelper::Instance().SetLogsAvailableSlot([this, link = run->GetLink()](std::uint8_t available) {
    link.Post([this, available] { OnLogsAvailable(available != 0); });
  });
  PostRequest(Request::LogsAvailable);
}

// One answer; the title may tell of an upload when another one comes.
void PageDetect::OnLogsAvailable(bool available) {
  IPCHelper::Instance().SetLogsAvailableSlot({});
  areLogsAvailable = available;
  ShowSummary();
}

void PageDetect::ShowSummary() {
  SetText(kSecondTitle,
          SummaryText(abnormalCount) +
              (areLogsAvailable ? Resolve(L"IDS_HARDWARE_DIAGNOSE_RESULT_SEND_LOG") : L""));
}

void PageDetect::OnTimer(DuiLib::TNotifyUI& notification) {
  if (list == nullptr || notification.sender != list) return;
  if (notification.value == kUnfoldTimer) Unfold();
  if (notification.value == kScrollBackTimer) ScrollBack();
  if (notification.value == kSmoothTimer) ScrollSmoothly();
}

void PageDetect::Unfold() {
  CtlDetectItem* const item = ShownItem(current);
  const bool isOpen = item == nullptr || item->Unfold();
  if (isActive) list->SetScrollPos(list->GetScrollRange());
  if (isOpen) OnUnfolded();
}

void PageDetect::ScrollBack() {
  const int target = TopOf(scrollTarget);
  list->SetScrollPos(std::max(list->GetScrollPos() - scrollBackStep, target));
  if (list->GetScrollPos() > target) return;
  GetPaintManager()->KillTimer(list, kScrollBackTimer);
  Show(DetectState::Result);
}

void PageDetect::ScrollSmoothly() {
  const int position = list->GetScrollPos();
  list->SetScrollPos(position + (TopOf(scrollTarget) - position) / smoothStepsLeft);
  if (--smoothStepsLeft == 0) GetPaintManager()->KillTimer(list, kSmoothTimer);
}

int PageDetect::TopOf(const CtlDetectItem* item) {
  const DuiLib::CControlUI* const first = list->GetItemAt(0);
  if (item == nullptr || first == nullptr) return 0;
  const int range = list->GetScrollRange();  // lays out what has changed
  return std::min(item->GetTree().GetPos().top - first->GetPos().top, range);
}

CtlDetectItem* PageDetect::ItemAt(int position) {
  return position < 0 ? nullptr : ShownItem(selection.at(static_cast<std::size_t>(position)));
}

void PageDetect::StopTimers() {
  if (list == nullptr) return;
  for (const std::size_t timer : {kUnfoldTimer, kScrollBackTimer, kSmoothTimer})
    GetPaintManager()->KillTimer(list, timer);
}

void PageDetect::OnClick(DuiLib::TNotifyUI& notification) {
  const std::wstring& name = notification.sender->GetName();
  if (name == kCompleteButton) {
    if (state == DetectState::Result && CanRepair()) return Repair();
    if (state == DetectState::Result) SendReportEvent(ReportEvent::ResultClosed, "");
    SwitchPage(PAGE_ARCHIEVEMENT);
  } else if (name == kBackButton) {
    if (state == DetectState::RepairFailed) return Repair();
    SwitchPage(PAGE_ARCHIEVEMENT);
  } else if (name == kCancelButton) {
    if (state == DetectState::Detecting) SendReportEvent(ReportEvent::DetectionCancelled, "");
    Cancel();
  }
}

void PageDetect::Cancel() {
  SetStopping(true);
  engine.CancelDetect();
  if (run) run->StopPacing();
  if (!isActive) OnEndedEarly();
}

void PageDetect::SetStopping(bool isStopping) {
  SetEnabled(kCancelButton, !isStopping);
  SetVisible(kStoppingText, isStopping);
}

void PageDetect::OnLink(DuiLib::TNotifyUI& notification) {
  if (notification.sender->GetName() != kSecondTitle || !areLogsAvailable) return;
  const PageRun::Link link = run->GetLink();
  const bool uploads = RunModal<UploadWnd>(GetPaintManager()) == 1;
  if (link.IsOver()) return;
  SetText(kSecondTitle, SummaryText(abnormalCount) +
                            Resolve(uploads ? L"IDS_HARDWARE_DIAGNOSE_RESULT_UPLOAD_LOG"
                                            : L"IDS_HARDWARE_DIAGNOSE_RESULT_CANCEL_UPLOAD"));
}

bool PageDetect::CanRepair() const {
  return std::any_of(items.begin(), items.end(),
                     [](const auto& entry) { return entry.second.HasOffers(); });
}

RepairMap PageDetect::ChosenRepairs() const {
  RepairMap repairs;
  for (const auto& [id, item] : items) {
    auto chosen = item.ChosenRepairs();
    if (!chosen.empty()) repairs.emplace(id, std::move(chosen));
  }
  return repairs;
}

void PageDetect::Repair() {
  RepairMap repairs = ChosenRepairs();
  if (repairs.empty()) return SetVisible(kNothingTickedHint, true);
  StopTimers();
  run.emplace();  // what is told of the run before comes too late now
  areLogsAvailable = needsRestart = false;
  failedRepairs = 0;
  isActive = true;
  Show(DetectState::Repairing);
  ShowSummary();
  for (const auto& [id, chosen] : repairs) ShownItem(id)->BeginRepairs();
  engine.BeginRepairRun(
      std::move(repairs), TellRepairs(),
      [this, link = run->GetLink()](const auto&) { link.Post([this] { OnEndedEarly(); }); });
}

RepairCallbacks PageDetect::TellRepairs() {
  const PageRun::Link link = run->GetLink();
  return {[](int, enmHardwareID) {},
          [this, link](int, enmHardwareID id, tagRepairItemInfo&) {
            link.Post([this, id] { OnRepairStart(id); });
          },
          [this, link](int, enmHardwareID id, tagRepairItemInfo&,
                       HardwareDetect::tagHARDWARE_REPAIR_RESULT& result) {
            link.Post([this, id, repaired = result.code == 0, restart = result.restart != 0] {
              OnRepairResult(id, repaired, restart);
            });
          },
          [this, link](bool repaired, enmHardwareID id, int) {
            link.Post([this, repaired, id] { OnRepairVerdict(id, repaired); });
          },
          [this, link] { link.Post([this] { OnEndedEarly(); }); },
          [this, link](bool all, bool, int firstFaulty) {
            link.Post([this, all, firstFaulty] { OnRepaired(all, firstFaulty); });
          }};
}

void PageDetect::OnRepairStart(enmHardwareID id) {
  CtlDetectItem* const item = ShownItem(id);
  const DuiLib::CControlUI* const row = item == nullptr ? nullptr : item->ShowNextRepair();
  if (row == nullptr) return;
  list->EnsureVisible(list->GetItemIndex(&item->GetTree()));
  if (!item->IsFolded()) ScrollIntoSight(*list, *row);
}

void PageDetect::OnRepairResult(enmHardwareID id, bool repaired, bool restart) {
  if (restart) needsRestart = true;
  if (!repaired) ++failedRepairs;
  if (CtlDetectItem* const item = ShownItem(id)) item->ShowRepairResult(repaired);
}

void PageDetect::OnRepairVerdict(enmHardwareID id, bool repaired) {
  if (CtlDetectItem* const item = ShownItem(id)) item->ShowRepairVerdict(repaired);
  if (!repaired) return;
  --abnormalCount;
  ShowSummary();
}

void PageDetect::OnRepaired(bool all, int firstFaulty) {
  isActive = false;
  if (!AskForRestart()) return;
  if (all) {
    Show(DetectState::Repaired);
    return;
  }
  Show(DetectState::RepairFailed);
  SetText(kSecondTitle,
          UICulture::GetInstance()->GetMultiVarStr(L"IDS_HARDWARE_DIAGNOSE_ABNORM_RESULT_NUM",
                                                   {std::to_wstring(failedRepairs)}));
  if (list == nullptr) return;
  scrollTarget = ItemAt(firstFaulty);
  smoothStepsLeft = kSmoothSteps;
  GetPaintManager()->SetTimer(list, kSmoothTimer, kTickMs);
}

bool PageDetect::AskForRestart() {
  if (!std::exchange(needsRestart, false)) return true;
  const PageRun::Link link = run->GetLink();
  RunModal<RestartWnd>(GetPaintManager());
  return !link.IsOver();
}

void PageDetect::OnGone() {
  IPCHelper::Instance().SetLogsAvailableSlot({});
  engine.CancelDetect();
  run.reset();
  items.clear();
  list = nullptr;
  scrollTarget = nullptr;
  isActive = false;
}

}  // namespace orv::sysdiagnose
