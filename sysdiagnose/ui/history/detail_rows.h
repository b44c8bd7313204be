#pragma once

#include <string>
#include <vector>

#include "platform/duilib/tree/container.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/records/history_record.h"

namespace orv::sysdiagnose {

/// What a run found in one category, as it is shown.
struct DetailRow {
  std::wstring icon;
  std::wstring name;
  std::wstring description;
  int code = 0;  // 0 not tested, 1 normal, 2 abnormal
};

/// A row for each category that the run tested or that is offered now, in the order of the stored
/// results. Any thread.
std::vector<DetailRow> MakeDetailRows(const HistoryRecord& run, const DetectCatalogue& catalogue);

/// Puts the rows into the list in place of those before, and its top into sight. UI thread only.
void FillDetailRows(DuiLib::CContainerUI& list, const std::vector<DetailRow>& rows,
                    DuiLib::CPaintManagerUI* manager);

/// Writes the descriptions of the rows that stand in the list anew. UI thread only.
void UpdateDescriptions(DuiLib::CContainerUI& list, const std::vector<DetailRow>& rows);

/// How many of the rows were tested: "5 of 12 tested"; empty when all were.
std::wstring TestedText(const std::vector<DetailRow>& rows);

}  // namespace orv::sysdiagnose
