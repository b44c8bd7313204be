#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "sysdiagnose/records/history_record.h"
#include "sysdiagnose/ui/history/count_bars.h"
#include "sysdiagnose/ui/history/detail_rows.h"
#include "sysdiagnose/ui/page/page_run.h"
#include "sysdiagnose/ui/pages/content_page.h"

namespace orv::sysdiagnose {

/// The history page: the past diagnoses by day, and what the chosen one found in each category;
/// before the first one, what will be tested. UI thread only.
class PageArchievement final : public ContentPage {
 public:
  PageArchievement();
  ~PageArchievement() = default;

  void InitPage() override;

  /// Reads the history anew and shows it, with its newest run chosen.
  void Refresh();

 private:
  /// The background's way back to the page; it ends when something newer is asked for.
  using Answers = std::optional<PageRun>;

  void OnClick(DuiLib::TNotifyUI& notification) override;
  void OnTimer(DuiLib::TNotifyUI& notification) override;
  void OnSelectChanged(DuiLib::TNotifyUI& notification) override;
  void OnGone() override;

  void AskForCategories();
  void AskForRuns();
  void AskForDetail(std::int32_t secondTime);

  void ShowRuns(const std::vector<HistoryRecord>& runs);
  void ShowDetail(const HistoryRecord& run, const std::vector<DetailRow>& rows);
  /// Shows no run, and a line in place of its date.
  void ClearDetail(const std::wstring& heading);
  void StopBars();

  std::vector<HistoryRecord> dateRecords;  // newest first
  CountBars countBars;
  Answers runAnswers;
  Answers detailAnswers;
};

}  // namespace orv::sysdiagnose
