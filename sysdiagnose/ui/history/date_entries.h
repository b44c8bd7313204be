#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/duilib/tree/container.h"
#include "sysdiagnose/records/history_record.h"

// The column of past runs. UI thread only.
namespace orv::sysdiagnose {

/// How many entries the column always holds; those without a run keep their place unseen.
inline constexpr int kDateEntries = 12;

// What the names of an entry's controls begin with; the number of its run follows.
inline constexpr std::wstring_view kDateOption = L"optSysdiagnoseDateItem";
inline constexpr std::wstring_view kDateButton = L"btnSysdiagnoseDateItem";

/// The name of the option that chooses the run of that number.
std::wstring DateOptionName(std::size_t run);

/// Puts an entry for each run into the column, the last of them first, in place of those before,
/// and behind them entries without a run. The option and the text carry the number of the run as
/// their user data, the button the name of the option.
void FillDateEntries(DuiLib::CContainerUI& column, const std::vector<HistoryRecord>& runs,
                     DuiLib::CPaintManagerUI* manager);

/// Shows which entry is chosen.
void MarkChosenEntry(DuiLib::CContainerUI& column);

}  // namespace orv::sysdiagnose
