#pragma once

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

namespace protocol {

/// Where a category of a run stands.
enum class DisplayState : std::uint32_t { Waiting = 0, Running = 1, Normal = 2, Abnormal = 3 };

/// One category of a run as the host's main page lists it.
struct DetectListEntry {
  std::wstring icon;
  std::wstring caption;
  std::wstring description;
  DisplayState state = DisplayState::Waiting;
  std::wstring resultText;
  bool repairable = false;
  bool selected = false;
  std::int32_t category = 0;  // its id in the category list

  static auto Fields(auto& entry) {
    return std::tie(entry.icon, entry.caption, entry.description, entry.state, entry.resultText,
                    entry.repairable, entry.selected, entry.category);
  }
};

/// What the host's main page shows of a run: the versioned body of a summary message.
struct DiagnoseSummary {
  std::uint32_t moduleId = 0;
  std::wstring headline;  // a string id
  std::uint32_t abnormalCount = 0;
  std::wstring resultText;
  std::wstring detailText;
  std::vector<DetectListEntry> items;
  std::uint32_t interval = 0;  // milliseconds
  std::uint8_t flag1 = 0;      // the host's
  std::uint8_t flag2 = 0;

  static auto Fields(auto& summary) {
    return std::tie(summary.moduleId, summary.headline, summary.abnormalCount, summary.resultText,
                    summary.detailText, summary.items, summary.interval, summary.flag1,
                    summary.flag2);
  }
};

}  // namespace protocol
