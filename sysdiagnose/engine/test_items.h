#pragma once

#include <cstdint>
#include <span>

#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/engine/detect_item_detail.h"
#include "sysdiagnose/engine/repair_commands.h"
#include "sysdiagnose/engine/test_objects.h"

namespace orv::sysdiagnose {

/// When an item counts as normal.
enum class Normal { Always, WhenZero, WhenPassed };

/// Stands for a hint that is looked up by the code itself.
inline constexpr std::int32_t kHintFromCode = 1;

/// One test item. Captions are string ids without their common prefix.
struct TestItem {
  enmHardwareID category;
  const wchar_t* caption;           // null: neither announced nor reported
  RawResult (*test)(TestObjects&);  // null: nothing to call, code 0
  Normal normal;
  std::int32_t hint;
  RepairCommand repair = RepairCommand::None;
  bool (*supported)(TestObjects&) = nullptr;  // null: always run
  const wchar_t* announcedAs = nullptr;       // null: as its caption
};

/// The items of a category in the order they run. None for the disks, which are tested one by one.
std::span<const TestItem> ItemsOf(enmHardwareID category);

/// The resolved text of a caption id without its prefix.
std::wstring CaptionText(const wchar_t* caption);

/// Runs one item and fills its record; returns the library's code.
std::uint32_t Evaluate(const TestItem& item, TestObjects& objects, tagDetectItemDetail& detail);

}  // namespace orv::sysdiagnose
