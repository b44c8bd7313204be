#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "tests/manager/drive.h"
#include "tests/manager/shown_window.h"
#include "tests/support/temporary_folder.h"

namespace {

using Lines = std::vector<std::string>;

/// What a run says, whoever asks for it.
struct Story {
  std::map<std::string, Lines>
      categories;   // by caption: "title: result" of each row, then the rest
  Lines events;     // "ID PAYLOAD", those of one id in their order
  Lines stored;     // rows
  Lines summaries;  // bodies
};

std::vector<rapidjson::Document> Parsed(const std::string& lines) {
  std::vector<rapidjson::Document> objects;
  std::istringstream stream(lines);
  for (std::string line; std::getline(stream, line);) objects.emplace_back().Parse(line.c_str());
  return objects;
}

std::string Text(const rapidjson::Value& object, const char* name) {
  const auto& value = object[name];
  return value.IsInt() ? std::to_string(value.GetInt()) : value.GetString();
}

// The samples of the processor differ.
std::string EventLine(const std::string& id, const std::string& payload) {
  return id + " " + (payload.starts_with('{') ? "" : payload);
}

// The rows of a category as the terminal program tells of them, one word at a time.
class ToldRows {
 public:
  explicit ToldRows(std::string failure) : failureText(std::move(failure)) {}

  void Start(const std::string& caption) {
    rows.push_back({caption, ""});
    waiting.push_back(rows.size() - 1);
  }

  // What was announced before the test with a result is its heading; what was before that, and got
  // none, could not be read.
  void Result(const rapidjson::Value& result) {
    auto& [title, text] = rows.at(waiting.back());
    title = Text(result, "caption");
    const std::string hint = Text(result, "hint");
    const bool normal = result["normal"].GetBool();
    if (!normal) text = hint.empty() ? failureText : hint;
    if (normal && title.empty()) text = "IDS_HARDWARE_DIAGNOSE_DISK_NONE";
    waiting.pop_back();
    if (!waiting.empty()) waiting.pop_back();
    CallUnreadable();
  }

  void Say(const std::string& words) { rest.push_back(words); }

  Lines End() {
    CallUnreadable();
    Lines lines;
    for (const auto& [title, text] : rows) lines.push_back(title + ": " + text);
    lines.insert(lines.end(), rest.begin(), rest.end());
    return lines;
  }

 private:
  void CallUnreadable() {
    for (const std::size_t row : waiting)
      rows[row].second = "IDS_HARDWARE_DIAGNOSE_DISK_UNREADABLE";
    waiting.clear();
  }

  const std::string failureText;
  std::vector<std::pair<std::string, std::string>> rows;
  std::vector<std::size_t> waiting;
  Lines rest;
};

std::string FailureText(const std::string& caption) {
  if (caption == "IDS_HARDWARE_DETECT_MEM") return "IDS_HARDWARE_DIAGNOSE_MEM_FAILED";
  if (caption == "IDS_HARDWARE_DETECT_DISK") return "IDS_HARDWARE_DIAGNOSE_DISK_FAILED";
  return "IDS_HARDWARE_DIAGNOSE_TEST_FAILED";
}

std::map<std::string, Lines> CategoriesOf(const std::string& listed, const std::string& run) {
  std::map<int, std::string> captions;
  for (const auto& category : Parsed(listed))
    captions[category["id"].GetInt()] = Text(category, "caption");
  std::map<std::string, ToldRows> told;
  for (const auto& line : Parsed(run)) {
    if (!line.HasMember("category")) continue;
    const std::string& caption = captions.at(line["category"].GetInt());
    ToldRows& rows = told.try_emplace(caption, FailureText(caption)).first->second;
    const std::string type = Text(line, "type");
    if (type == "itemStart") rows.Start(Text(line, "caption"));
    if (type == "itemResult") rows.Result(line);
    if (type == "categoryUnknown") rows.Say(Text(line, "text"));
    if (type == "repairOffer") rows.Say("can be repaired");
  }
  std::map<std::string, Lines> categories;
  for (auto& [caption, rows] : told) categories[caption] = rows.End();
  return categories;
}

Story TellByTerminal(const std::string& machine, const std::filesystem::path& folder) {
  Story story;
  const std::string listed = RunTerminal({"--machine", machine, "list"}, folder);
  story.categories =
      CategoriesOf(listed, RunTerminal({"--machine", machine, "--capture", "run"}, folder));
  for (const auto& event : Parsed(ReadText(folder / "data/events.jsonl")))
    story.events.push_back(EventLine(Text(event, "id"), Text(event, "payload")));
  story.stored = StoredRows(folder);
  for (const auto& message : Parsed(ReadText(folder / "data/messages.jsonl")))
    if (Text(message, "message") == "0x20000D") story.summaries.push_back(Text(message, "body"));
  return story;
}

Lines RowsOf(const ShownWindow& window, const std::string& item) {
  const auto titles = window.Find(item + "/txtTitle");
  const auto results = window.Find(item + "/txtResult");
  Lines lines;
  for (std::size_t row = 0; row < titles.size(); ++row)
    lines.push_back(Text(*titles[row], "text") + ": " + Text(*results.at(row), "text"));
  if (!window.Find(item + "/optChoose").empty()) lines.emplace_back("can be repaired");
  for (const auto* const text : window.Find(item + "/txtAbnormalType"))
    lines.push_back(Text(*text, "text"));
  return lines;
}

Story TellByPages(const std::string& machine, const std::filesystem::path& folder) {
  const Drive drive =
      RunDrive(machine, folder,
               "enter\nclick btnSysdiagnoseScan\nwait idle\nclick btnSysdiagnoseDetect\n"
               "wait txtSysdiagnosedDetectFirstTitle IDS_HARDWARE_DIAGNOSE_RESULT\n"
               "dump lstSysdiagnoseDetectItems\nevents\nposted\n");
  EXPECT_EQ(drive.exitStatus, 0) << drive.errors;
  Story story;
  const ShownWindow window(drive.answers.at(5));
  const auto names = window.Find("txtName");
  for (std::size_t item = 0; item < names.size(); ++item)
    story.categories[Text(*names[item], "text")] =
        RowsOf(window, "lytHardware[" + std::to_string(item) + "]");
  const auto answers = Parsed(drive.answers.at(6) + "\n" + drive.answers.at(7));
  for (const auto& event : answers[0]["events"].GetArray())
    if (Text(event, "id") >= "620000020")
      story.events.push_back(EventLine(Text(event, "id"), Text(event, "payload")));
  story.stored = StoredRows(folder);
  for (const auto& message : answers[1]["posted"].GetArray())
    if (Text(message, "message") == "0x20000D") story.summaries.push_back(Text(message, "body"));
  return story;
}

class SameStoryTest : public testing::TestWithParam<const char*> {};

// The terminal program tests in the order of the catalogue, the pages in that of the numbers.
TEST_P(SameStoryTest, IsToldByTheTerminalProgramAndThePages) {
  const std::string machine = std::string(MACHINE_FILES) + GetParam() + ".json";
  const TemporaryFolder folder;
  Story terminal = TellByTerminal(machine, folder.path / "terminal");
  Story pages = TellByPages(machine, folder.path / "pages");
  EXPECT_FALSE(terminal.categories.empty());
  EXPECT_EQ(terminal.categories, pages.categories);
  const auto byId = [](const std::string& one, const std::string& other) {
    return one.substr(0, 9) < other.substr(0, 9);
  };
  std::stable_sort(terminal.events.begin(), terminal.events.end(), byId);
  std::stable_sort(pages.events.begin(), pages.events.end(), byId);
  EXPECT_EQ(terminal.events, pages.events);
  EXPECT_EQ(terminal.stored.size(), 1u);
  EXPECT_EQ(terminal.stored, pages.stored);
  EXPECT_EQ(terminal.summaries.size(), 1u);
  EXPECT_EQ(terminal.summaries, pages.summaries);
}

INSTANTIATE_TEST_SUITE_P(Machines, SameStoryTest,
                         testing::Values("healthy", "failing", "odd", "odd-disks", "hundred-disks"),
                         [](const auto& machine) {
                           std::string name = machine.param;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
