#include "tests/manager/shown_window.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace {

using Control = ShownWindow::Control;
using Controls = std::vector<const Control*>;

constexpr int kRow = 32;
constexpr int kLeastRows = 64;
constexpr int kFoldedRest = 17;
constexpr int kBar = 140;

void ForEachShown(const Control& control, const std::function<void(const Control&)>& visit) {
  if (!control["visible"].GetBool()) return;
  visit(control);
  for (const Control& child : control["children"].GetArray()) ForEachShown(child, visit);
}

Controls FindBelow(const Controls& above, std::string name) {
  std::size_t number = std::string::npos;
  if (const std::size_t bracket = name.find('['); bracket != std::string::npos) {
    number = std::stoul(name.substr(bracket + 1));
    name.resize(bracket);
  }
  Controls found;
  for (const Control* const root : above)
    ForEachShown(*root, [&](const Control& control) {
      if (&control != root && control["name"].GetString() == name) found.push_back(&control);
    });
  if (number == std::string::npos) return found;
  return number < found.size() ? Controls{found[number]} : Controls{};
}

const Control* First(const Control& above, const std::string& name) {
  const Controls found = FindBelow({&above}, name);
  return found.empty() ? nullptr : found.front();
}

int HeightOf(const Control& control) {
  return control["h"].GetInt();
}

std::string ValueOf(const Control& control, const std::string& property) {
  if (property == "text") {
    const std::string text = control["text"].GetString();
    return text.empty() ? "\"\"" : text;
  }
  if (property == "height") return std::to_string(HeightOf(control));
  return control[property.c_str()].GetBool() ? "on" : "off";
}

// An item is as high as its title and 17 points, or as title and content, and in between while it
// unfolds; its rows have 32 points each and 64 at least.
void CheckItem(const Control& item, std::string& faults) {
  const Control* const title = First(item, "lytTitle");
  const Control* const content = First(item, "lytContent");
  if (title == nullptr) return;
  const auto complain = [&](const std::string& what) {
    const Control* const name = First(item, "txtName");
    faults += (name == nullptr ? "an item" : name->FindMember("text")->value.GetString()) +
              std::string(" ") + what + "\n";
  };
  const int folded = HeightOf(*title) + kFoldedRest;
  if (content == nullptr) {
    if (HeightOf(item) != folded) complain("folded is " + std::to_string(HeightOf(item)));
    return;
  }
  const Control* const rows = First(*content, "lytItems");
  if (rows == nullptr) return;
  const int count = static_cast<int>((*rows)["children"].Size());
  if (HeightOf(*rows) != std::max(count * kRow, kLeastRows))
    complain("has " + std::to_string(count) + " rows in " + std::to_string(HeightOf(*rows)));
  if (HeightOf(item) < folded || HeightOf(item) > HeightOf(*title) + HeightOf(*content))
    complain("is " + std::to_string(HeightOf(item)) + " high");
}

}  // namespace

ShownWindow::ShownWindow(const std::string& line) {
  answer.Parse<rapidjson::kParseIterativeFlag>(line.c_str());
  if (answer.HasParseError() || !answer.HasMember("tree"))
    throw std::runtime_error("no tree: " + line);
}

Controls ShownWindow::Find(const std::string& path) const {
  Controls found{&answer["tree"]};
  for (std::size_t begin = 0; begin <= path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    found = FindBelow(found, path.substr(begin, end - begin));
    begin = end + 1;
  }
  return found;
}

std::string ShownWindow::Tell(const std::string& path, const std::string& property) const {
  std::vector<std::string> values;
  for (const Control* const control : Find(path)) values.push_back(ValueOf(*control, property));
  return Listed(values);
}

std::string ShownWindow::Faults() const {
  std::string faults;
  for (const Control* const item : Find("lytHardware")) CheckItem(*item, faults);
  for (const char* page : {"lytScan", "lytDetect"}) {
    Controls bars = Find(std::string(page) + "Execute");
    const Controls others = Find(std::string(page) + "Cancel");
    bars.insert(bars.end(), others.begin(), others.end());
    if (bars.size() > 1) faults += "both bars show\n";
    for (const Control* const bar : bars)
      if (HeightOf(*bar) != kBar) faults += "a bar is " + std::to_string(HeightOf(*bar)) + "\n";
  }
  return faults;
}

std::string Listed(const std::vector<std::string>& values) {
  std::string list;
  for (auto value = values.begin(); value != values.end();) {
    const auto next =
        std::find_if(value, values.end(), [&](const auto& other) { return other != *value; });
    list += (list.empty() && value == values.begin() ? "" : " | ") + *value;
    if (next - value > 1) list += " x" + std::to_string(next - value);
    value = next;
  }
  return values.empty() ? "-" : list;
}
