#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

#include "sysdiagnose/catalogue/detect_item.h"

namespace orv::sysdiagnose {

/// Reads config\SysdiagnoseList.xml beside the running program.
class XmlHelper {
 public:
  static constexpr std::string_view kListFile = "config\\SysdiagnoseList.xml";

  /// Where the list lies; empty when the system does not tell.
  static std::filesystem::path ListPath();

  /// Replaces `items` by those the device supports, in file order. Without the file, or without its
  /// root, there are none. Throws std::runtime_error "cannot open file <path>" for a file that
  /// cannot be read, common::XmlError for one that is not well formed.
  static void GetDetectItems(std::vector<tagDetectItem>& items);

  /// Appends the supported items of a list; `name` stands in error messages. Throws as above.
  static void ParseDetectItems(std::string_view xml, std::string_view name,
                               std::vector<tagDetectItem>& items);
};

}  // namespace orv::sysdiagnose
