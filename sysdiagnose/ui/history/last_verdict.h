#pragma once

#include <string>
#include <vector>

#include "sysdiagnose/records/history_record.h"

namespace orv::sysdiagnose {

/// One line about the first of these runs, the most recent one; an invitation if there is none.
std::wstring LastVerdict(const std::vector<HistoryRecord>& runs);

/// The line for a history that cannot be read.
std::wstring UnreadableHistory();

}  // namespace orv::sysdiagnose
