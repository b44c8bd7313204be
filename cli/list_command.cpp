#include <algorithm>
#include <cstdio>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/terminal_text.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/catalogue/device_names.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

struct Line {
  tagDetectItem item;
  std::wstring caption;
  DeviceTexts device;
};

// Asks for the device texts itself: the catalogue's own may still be on their way.
std::vector<Line> ReadLines() {
  std::vector<Line> lines;
  const DetectCatalogue& catalogue = DetectCatalogue::Instance();
  for (const tagDetectItem& item : catalogue.items) {
    const DetectCategory* category = catalogue.Find(item.id);
    lines.push_back({item, category == nullptr ? std::wstring() : category->caption,
                     ReadDeviceTexts(item.id, HardwareInfoSource::Instance())});
  }
  return lines;
}

void PrintJson(const Line& line) {
  JsonLine()
      .Add("id", static_cast<std::int64_t>(line.item.id))
      .Add("name", line.item.name)
      .Add("description", line.item.description)
      .Add("caption", line.caption)
      .Add("deviceSummary", line.device.summary)
      .Add("deviceDetail", line.device.detail);
}

void PrintText(const Line& line, std::size_t captionWidth) {
  const std::wstring& name = line.caption.empty() ? line.item.name : line.caption;
  std::string device = Printable(line.device.summary);
  if (line.device.detail != line.device.summary && !line.device.detail.empty())
    device += (device.empty() ? "" : ", ") + Printable(line.device.detail);
  std::printf("%2d  %s  %s\n", static_cast<int>(line.item.id), Padded(name, captionWidth).c_str(),
              device.c_str());
}

}  // namespace

int RunList(const Arguments& arguments) {
  const std::vector<Line> lines = ReadLines();
  std::size_t captionWidth = 0;
  for (const Line& line : lines) captionWidth = std::max(captionWidth, Columns(line.caption));
  for (const Line& line : lines) {
    if (arguments.json)
      PrintJson(line);
    else
      PrintText(line, captionWidth);
  }
  if (lines.empty() && !arguments.json) std::puts(NothingOffered().c_str());
  return kAllNormal;
}

}  // namespace cli
