#pragma once

#include <cstddef>
#include <string>

// What the detect page says in each state.
namespace orv::sysdiagnose {

/// The states of the page; published numbers.
enum class DetectState { Detecting = 0, Result = 1, Repairing = 2, Repaired = 3, RepairFailed = 4 };

/// Texts are string ids.
struct DetectLook {
  bool isAtWork;  // the cancel bar shows, else the other one
  const wchar_t* firstTitle;
  const wchar_t* complete;  // null where its bar does not show
  const wchar_t* back;      // null where the button does not show
  const wchar_t* stopping;  // null where nothing can be cancelled
};

/// A result looks otherwise when something can be repaired.
const DetectLook& LookOf(DetectState state, bool canRepair);

/// The second title while a test runs.
std::wstring TestingText(const std::wstring& category, const std::wstring& test);
/// How many problems are left.
std::wstring SummaryText(int abnormal);

}  // namespace orv::sysdiagnose
