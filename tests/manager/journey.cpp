#include "tests/manager/journey.h"

#include <ctime>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "platform/os/paths.h"
#include "platform/util/data_manager.h"
#include "tests/manager/drive.h"
#include "tests/manager/shown_window.h"
#include "tests/support/history_row.h"
#include "tests/support/temporary_folder.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kPassedCell = 12;
constexpr std::size_t kDateCell = 14;

struct Line {
  int number;
  std::string text;
};

struct Expectation {
  Line line;
  std::string what;
  std::string value;
};

struct Command {
  Line line;
  bool refused = false;
  std::vector<Expectation> expected;  // behind it
};

struct Journey {
  std::string machine;
  std::vector<std::int64_t> past;
  std::vector<Command> commands;
};

std::string Trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(" \r");
  if (begin == std::string::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \r") - begin + 1);
}

bool TakePrefix(std::string& text, const std::string& prefix) {
  if (!text.starts_with(prefix)) return false;
  text = Trimmed(text.substr(prefix.size()));
  return true;
}

class Parser {
 public:
  Journey Parse(const std::string& text) {
    std::istringstream stream(text);
    std::string raw;
    for (int number = 1; std::getline(stream, raw); ++number)
      if (const std::string line = Trimmed(raw); !line.empty() && line[0] != '#')
        Take({number, line}, raw[0] == ' ');
    return std::move(journey);
  }

 private:
  void Take(Line line, bool indented) {
    if (indented) return TakeExpectation(line);
    if (TakePrefix(line.text, "machine ")) {
      journey.machine = line.text;
    } else if (TakePrefix(line.text, "past ")) {
      std::istringstream seconds(line.text);
      for (std::int64_t each = 0; seconds >> each;) journey.past.push_back(each);
    } else if (TakePrefix(line.text, "repeat ")) {
      repeated = journey.commands.size();
      times = std::stoi(line.text);
    } else if (line.text == "end") {
      const std::vector<Command> body(
          journey.commands.begin() + static_cast<std::ptrdiff_t>(repeated), journey.commands.end());
      for (; times > 1; --times)
        journey.commands.insert(journey.commands.end(), body.begin(), body.end());
    } else {
      const bool refused = TakePrefix(line.text, "refused ");
      journey.commands.push_back({line, refused, {}});
    }
  }

  void TakeExpectation(const Line& line) {
    std::vector<Expectation>& expected = journey.commands.at(journey.commands.size() - 1).expected;
    if (line.text[0] == '|') {
      expected.at(expected.size() - 1).value += " " + line.text;
      return;
    }
    const std::size_t colon = line.text.find(':');
    if (colon == std::string::npos) throw std::runtime_error("no colon: " + line.text);
    expected.push_back({line, line.text.substr(0, colon), Trimmed(line.text.substr(colon + 1))});
  }

  Journey journey;
  std::size_t repeated = 0;
  int times = 1;
};

// The next one by the local clock.
std::int64_t Noon() {
  const std::time_t now = std::time(nullptr);
  std::tm local = *std::localtime(&now);
  if (local.tm_hour >= 12) ++local.tm_mday;
  local.tm_hour = 12;
  local.tm_min = local.tm_sec = 0;
  return std::mktime(&local);
}

std::string TimeText(std::time_t time, const char* form) {
  char text[64];
  std::strftime(text, sizeof text, form, std::localtime(&time));
  return text;
}

// The store of a process stays where it was first used.
void StorePast(const Journey& journey, const fs::path& data, std::int64_t noon) {
  if (journey.past.empty()) return;
  os::SetDataFolder(data);
  std::int64_t number = 0;
  for (const std::int64_t before : journey.past) {
    DataManager::Row row = HistoryRow(noon - before);
    row[kPassedCell] = ++number;
    row[kDateCell] = TimeText(noon - before, "%Y.%m.%d");
    row[kDateCell + 1] = TimeText(noon - before, "%Y.%m.%d.%H.%M.%S");
    DataManager::Instance().Put(kHistoryTable, row);
  }
}

std::string ScriptOf(const Journey& journey, std::int64_t noon) {
  std::string script = "tick " + std::to_string((noon - std::time(nullptr)) * 1000) + "\n";
  for (const Command& command : journey.commands) {
    script += command.line.text + "\n";
    if (!command.expected.empty()) script += "dump\nevents\nwindows\n";
  }
  return script;
}

class Comparison {
 public:
  Comparison(const Journey& ofJourney, const Drive& ofDrive, std::vector<std::string> ofRows)
      : journey(ofJourney), drive(ofDrive), rows(std::move(ofRows)) {}

  std::string Faults() {
    Next();  // to noon
    for (const Command& command : journey.commands) {
      const bool refused = Next().starts_with(R"({"ok":false)");
      if (refused != command.refused) Complain(command.line, drive.answers.at(at - 1));
      if (!command.expected.empty()) Compare(command.expected);
    }
    return faults + drive.errors;
  }

 private:
  const std::string& Next() {
    if (at == drive.answers.size())
      throw std::runtime_error("ended too early: " + drive.errors + faults);
    return drive.answers[at++];
  }

  void Compare(const std::vector<Expectation>& expected) {
    const ShownWindow window(Next());
    events.Parse(Next().c_str());
    windows.Parse(Next().c_str());
    if (const std::string found = window.Faults(); !found.empty())
      Complain(expected.front().line, found);
    for (const Expectation& each : expected)
      if (const std::string shown = Shown(each.what, window); shown != each.value)
        Complain(each.line, "shows " + shown + "\n  expected " + each.value);
  }

  std::string Shown(const std::string& what, const ShownWindow& window) {
    if (what == "event") return NextEvent();
    if (what == "windows") return OpenWindows();
    if (what == "stored") return NextRow();
    const std::size_t point = what.find('.');
    if (point == std::string::npos) return window.Tell(what, "text");
    return window.Tell(what.substr(0, point), what.substr(point + 1));
  }

  std::string NextEvent() {
    const auto& sent = events["events"];
    if (seenEvents == sent.Size()) return "none";
    const auto& event = sent[seenEvents++];
    const std::string payload = event["payload"].GetString();
    return event["id"].GetString() +
           (payload.empty() ? "" : " " + (payload[0] == '{' ? "SAMPLES" : payload));
  }

  std::string OpenWindows() {
    std::vector<std::string> names;
    for (const auto& name : windows["windows"].GetArray()) names.emplace_back(name.GetString());
    return Listed(names);
  }

  std::string NextRow() { return seenRows == rows.size() ? "none" : rows[seenRows++]; }

  void Complain(const Line& line, const std::string& what) {
    faults += std::to_string(line.number) + ": " + line.text + "\n  " + what + "\n";
  }

  const Journey& journey;
  const Drive& drive;
  const std::vector<std::string> rows;  // stored
  rapidjson::Document events;
  rapidjson::Document windows;
  unsigned seenEvents = 0;
  std::size_t seenRows = 0;
  std::size_t at = 0;
  std::string faults;
};

}  // namespace

std::string GoThrough(const fs::path& file) {
  const Journey journey = Parser().Parse(ReadText(file));
  const TemporaryFolder folder;
  const std::int64_t noon = Noon();
  StorePast(journey, folder.path / "data", noon);
  const Drive drive =
      RunDrive(MACHINE_FILES + journey.machine, folder.path, ScriptOf(journey, noon));
  return Comparison(journey, drive, StoredRows(folder.path)).Faults();
}
