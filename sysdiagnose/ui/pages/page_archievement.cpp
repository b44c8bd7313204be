#include "sysdiagnose/ui/pages/page_archievement.h"

#include <cwchar>
#include <functional>
#include <string_view>

#include "common/text.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/controls/option.h"
#include "sysdiagnose/base/log.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/records/history_store.h"
#include "sysdiagnose/records/report_event.h"
#include "sysdiagnose/ui/history/category_tiles.h"
#include "sysdiagnose/ui/history/count_text.h"
#include "sysdiagnose/ui/history/date_entries.h"
#include "sysdiagnose/ui/history/last_verdict.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CContainerUI;
using DuiLib::COptionUI;

constexpr const wchar_t* kScan = L"btnSysdiagnoseScan";
constexpr const wchar_t* kVerdict = L"txtSysdiagnoseArchievementSecondTitle";
constexpr const wchar_t* kHistory = L"lytSysdiagnoseHistory";
constexpr const wchar_t* kInvitation = L"lytSysdiagnoseInvitation";
constexpr const wchar_t* kDates = L"lytSysdiagnoseDateItems";
constexpr const wchar_t* kTips = L"txtSysdiagnoseDateItemsTips";
constexpr const wchar_t* kCategories = L"lytSysdiagnoseDetail";
constexpr const wchar_t* kDetailDate = L"txtSysdiagnoseDetailDate";
constexpr const wchar_t* kDetailTested = L"txtSysdiagnoseDetailTested";
constexpr const wchar_t* kDetailList = L"lstSysdiagnoseArchieve";

constexpr std::size_t kLayoutTimer = 4001;
constexpr std::size_t kBarsTimer = 4002;
constexpr int kTimerPeriod = 20;  // milliseconds

// Runs a query in the background, which posts what it finds. When it throws, `failed` is posted.
template <typename Query>
void Ask(const PageRun& answers, Query query, std::function<void()> failed) {
  concurrency::create_task(
      [link = answers.GetLink(), query = std::move(query), failed = std::move(failed)] {
        try {
          query(link);
        } catch (...) {
          SYSDIAGNOSE_LOG_ERROR(
              "The history page asked in vain: " + common::DescribeCurrentException() +
              "(orv::sysdiagnose::PageArchievement)");
          link.Post(failed);
        }
      });
}

}  // namespace

PageArchievement::PageArchievement()
    : ContentPage(L"SysdiagnosePageArchievement", L"layout\\sysdiagnose_archievement.xml") {}

void PageArchievement::InitPage() {
  const DuiLib::UICulture& culture = *DuiLib::UICulture::GetInstance();
  SetText(L"txt_hardware_norm_state", culture.GetString(L"IDS_HARDWARW_DETECT_NORM_STATE"));
  SetText(L"txt_hardware_abnorm_state", culture.GetString(L"IDS_HARDWARW_DETECT_ABNORM_STATE"));
}

void PageArchievement::Refresh() {
  if (Find<DuiLib::CControlUI>(kTips) == nullptr) return;
  SetVisible(kTips, false);
  StopBars();
  auto* const categories = Find<CContainerUI>(kCategories);
  if (categories == nullptr) return;
  categories->RemoveAll();
  detailAnswers.reset();
  runAnswers.emplace();
  AskForCategories();
  AskForRuns();
}

void PageArchievement::AskForCategories() {
  Ask(
      *runAnswers,
      [this](const PageRun::Link& link) {
        link.Post([this, offered = OfferedCategories(DetectCatalogue::Instance())] {
          if (auto* const area = Find<CContainerUI>(kCategories))
            FillCategoryTiles(*area, offered, GetPaintManager());
        });
      },
      [] {});
}

// A store that does not answer is not taken for one without runs.
void PageArchievement::AskForRuns() {
  Ask(
      *runAnswers,
      [this](const PageRun::Link& link) {
        LoadDailyHistory(kDateEntries, [&](const std::vector<HistoryRecord>& runs) {
          link.Post([this, runs] { ShowRuns(runs); });
        });
        LoadDailyHistory(1, [&](const std::vector<HistoryRecord>& runs) {
          const bool isReadable = !runs.empty() || IsHistoryReadable();
          link.Post([this, verdict = isReadable ? LastVerdict(runs) : UnreadableHistory()] {
            SetText(kVerdict, verdict);
          });
        });
      },
      [this] {
        ShowRuns({});
        SetText(kVerdict, UnreadableHistory());
      });
}

void PageArchievement::ShowRuns(const std::vector<HistoryRecord>& runs) {
  dateRecords = runs;
  SetVisible(kHistory, !runs.empty());
  SetVisible(kInvitation, runs.empty());
  if (auto* const dates = Find<CContainerUI>(kDates))
    FillDateEntries(*dates, dateRecords, GetPaintManager());
  if (auto* const list = Find<CContainerUI>(kDetailList))
    GetPaintManager()->SetTimer(list, kLayoutTimer, kTimerPeriod);
  if (runs.empty()) return ClearDetail({});
  if (auto* const newest = Find<COptionUI>(DateOptionName(0).c_str())) newest->Selected(true);
}

void PageArchievement::OnClick(DuiLib::TNotifyUI& notification) {
  const std::wstring& name = notification.sender->GetName();
  if (name == kScan) {
    SendReportEvent(ReportEvent::DiagnosisAsked, "");
    SwitchPage(PAGE_SCAN);
  } else if (name.starts_with(kDateButton)) {
    if (auto* const option = Find<COptionUI>(notification.sender->GetUserData().c_str()))
      option->Selected(true);
  }
}

void PageArchievement::OnSelectChanged(DuiLib::TNotifyUI& notification) {
  const DuiLib::CControlUI& sender = *notification.sender;
  if (!sender.GetName().starts_with(kDateOption) || !sender.IsSelected()) return;
  const long index = std::wcstol(sender.GetUserData().c_str(), nullptr, 10);
  if (index >= 0 && static_cast<std::size_t>(index) < dateRecords.size())
    AskForDetail(dateRecords[static_cast<std::size_t>(index)].secondTime);
  if (auto* const dates = Find<CContainerUI>(kDates)) MarkChosenEntry(*dates);
}

// What the catalogue has not read yet is shown when it has.
void PageArchievement::AskForDetail(std::int32_t secondTime) {
  detailAnswers.emplace();
  Ask(
      *detailAnswers,
      [this, secondTime](const PageRun::Link& link) {
        LoadHistoryRecord(secondTime, [&](bool found, const HistoryRecord& run) {
          if (!found) return link.Post([this] { ClearDetail(UnreadableHistory()); });
          const DetectCatalogue& catalogue = DetectCatalogue::Instance();
          link.Post([this, run, rows = MakeDetailRows(run, catalogue)] { ShowDetail(run, rows); });
          catalogue.WaitUntilFilled();
          link.Post([this, rows = MakeDetailRows(run, catalogue)] {
            if (auto* const list = Find<CContainerUI>(kDetailList)) UpdateDescriptions(*list, rows);
          });
        });
      },
      [this] { ClearDetail(UnreadableHistory()); });
}

void PageArchievement::ShowDetail(const HistoryRecord& run, const std::vector<DetailRow>& rows) {
  if (auto* const list = Find<CContainerUI>(kDetailList))
    FillDetailRows(*list, rows, GetPaintManager());
  SetText(kDetailDate, common::Utf8ToWide(run.date));
  SetText(kDetailTested, TestedText(rows));
  SetText(kTips, CountText(L"IDS_HARDWARE_DIAGNOSE_NUM_NORMAL", run.passCount));
  SetVisible(kTips, true);
  countBars.Reset(run.passCount, run.failCount);
  countBars.Draw(GetRoot());
  GetPaintManager()->SetTimer(GetRoot(), kBarsTimer, kTimerPeriod);
}

void PageArchievement::ClearDetail(const std::wstring& heading) {
  if (auto* const list = Find<CContainerUI>(kDetailList)) list->RemoveAll();
  SetText(kDetailDate, heading);
  SetText(kDetailTested, L"");
  SetVisible(kTips, false);
  StopBars();
}

void PageArchievement::StopBars() {
  GetPaintManager()->KillTimer(GetRoot(), kBarsTimer);
  countBars.Reset(0, 0);
  countBars.Draw(GetRoot());
}

void PageArchievement::OnTimer(DuiLib::TNotifyUI& notification) {
  if (notification.value == kLayoutTimer) {
    GetPaintManager()->KillTimer(notification.sender, kLayoutTimer);
    notification.sender->NeedLayout();
  } else if (notification.value == kBarsTimer) {
    const bool goesOn = countBars.Grow();
    countBars.Draw(GetRoot());
    if (!goesOn) GetPaintManager()->KillTimer(GetRoot(), kBarsTimer);
  }
}

void PageArchievement::OnGone() {
  runAnswers.reset();
  detailAnswers.reset();
  dateRecords.clear();
}

}  // namespace orv::sysdiagnose
