#include "cli/report_file.h"

#include <algorithm>
#include <array>

#include "platform/machine/current.h"
#include "platform/os/replace_file.h"

namespace cli {
namespace {

struct KindRow {
  std::string_view ending;
  std::string (*write)(const RunReport& report, const machine::IdentifierMask& mask);
};

constexpr auto kKinds = std::to_array<KindRow>({{".html", &HtmlReport}, {".json", &JsonReport}});

const KindRow* KindOf(const std::filesystem::path& file) {
  const auto row = std::ranges::find_if(
      kKinds, [&file](const KindRow& kind) { return file.extension() == kind.ending; });
  return row == kKinds.end() ? nullptr : &*row;
}

}  // namespace

bool IsReportName(const std::filesystem::path& file) {
  return KindOf(file) != nullptr;
}

void WriteReport(RunReport& report, const Arguments& arguments) {
  AddMachineFacts(report);
  const auto mask = arguments.plain ? machine::IdentifierMask()
                                    : machine::IdentifierMask(machine::Current().Info());
  os::ReplaceFile(arguments.reportFile, KindOf(arguments.reportFile)->write(report, mask));
}

}  // namespace cli
