#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sstream>

#include "common/text.h"
#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

// Reads the body of a message, written as hexadecimal digits.
class BodyReader {
 public:
  explicit BodyReader(std::string_view text) {
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
      bytes.push_back(static_cast<char>(std::stoi(std::string(text.substr(i, 2)), nullptr, 16)));
  }

  std::uint32_t Number(std::size_t width = 4) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < width; ++i)
      number |= std::uint32_t{static_cast<std::uint8_t>(bytes.at(at++))} << (8 * i);
    return number;
  }

  std::string Text() {
    std::u16string units(Number(), u'\0');
    for (char16_t& unit : units) unit = static_cast<char16_t>(Number(2));
    return common::WideToUtf8(common::Utf16ToWide(units));
  }

  std::size_t Left() const { return bytes.size() - at; }

 private:
  std::string bytes;
  std::size_t at = 0;
};

// One line of a decoded message.
class Line {
 public:
  Line() : writer(buffer) { writer.StartObject(); }

  Line& Add(const char* name, const std::string& text) {
    writer.Key(name);
    writer.String(text.c_str());
    return *this;
  }
  Line& Add(const char* name, std::uint32_t number) {
    writer.Key(name);
    writer.Uint(number);
    return *this;
  }
  std::string End() {
    writer.EndObject();
    return buffer.GetString() + std::string("\n");
  }

 private:
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer;
};

std::string DecodeSummary(BodyReader body) {
  Line head;
  head.Add("version", body.Number()).Add("module", body.Number()).Add("headline", body.Text());
  head.Add("abnormal", body.Number()).Add("result", body.Text()).Add("detail", body.Text());
  const std::uint32_t entries = body.Number();
  std::string text = head.Add("entries", entries).End();
  for (std::uint32_t i = 0; i < entries; ++i) {
    Line entry;
    entry.Add("icon", body.Text()).Add("caption", body.Text()).Add("description", body.Text());
    entry.Add("state", body.Number()).Add("result", body.Text());
    entry.Add("repairable", body.Number(1)).Add("selected", body.Number(1));
    text += entry.Add("category", body.Number()).End();
  }
  Line tail;
  tail.Add("interval", body.Number()).Add("flag1", body.Number(1)).Add("flag2", body.Number(1));
  EXPECT_EQ(body.Left(), 0u);
  return text + tail.End();
}

std::string DecodeMessages(const std::string& captured) {
  std::string text;
  std::istringstream lines(captured);
  for (std::string line; std::getline(lines, line);) {
    rapidjson::Document message;
    message.Parse(line.c_str());
    const std::string body = message["body"].GetString();
    text += line.substr(0, line.find(R"(,"body":)")) + "}\n";
    text += DecodeSummary(BodyReader(body));
  }
  return text;
}

std::string LocalTime(std::time_t seconds) {
  char text[64];
  std::strftime(text, sizeof text, "%Y.%m.%d.%H.%M.%S", std::localtime(&seconds));
  return text;
}

// The times of a row fit each other; a second may begin between two looks at the clock.
void MaskRowTimes(std::string& line) {
  const std::size_t at = line.find(",\"", line.find('['));
  char day[16];
  char dateTime[32];
  long long seconds = 0;
  if (at == std::string::npos ||
      std::sscanf(line.c_str() + at, R"(,"%10[0-9.]","%19[0-9.]",%lld]})", day, dateTime,
                  &seconds) != 3)
    return;
  EXPECT_TRUE(std::string(dateTime).starts_with(day)) << line;
  EXPECT_TRUE(dateTime == LocalTime(seconds) || dateTime == LocalTime(seconds - 1)) << line;
  EXPECT_LE(std::abs(std::time(nullptr) - seconds), 60) << line;
  line.replace(at, std::string::npos, R"(,"DATE","DATE-TIME","TIME"]})");
}

void MaskEventTime(std::string& line) {
  const std::size_t at = line.find(R"("time":)");
  long long seconds = 0;
  if (at == std::string::npos || std::sscanf(line.c_str() + at, "\"time\":%lld}", &seconds) != 1)
    return;
  EXPECT_LE(std::abs(std::time(nullptr) - seconds), 60) << line;
  line.replace(at, std::string::npos, R"("time":"TIME"})");
}

// Of each of the three there are as many.
void MaskSamples(std::string& line) {
  const std::size_t at = line.find(R"("{\")");
  char loads[64];
  char clocks[64];
  char temperatures[64];
  int length = 0;
  if (at == std::string::npos ||
      std::sscanf(line.c_str() + at,
                  R"("{\"CpuUsage\":\"%63[0-9|]\",\"CpuClock\":\"%63[0-9|]\",)"
                  R"(\"DeviceTemper\":\"%63[0|]\"}"%n)",
                  loads, clocks, temperatures, &length) != 3 ||
      length == 0)
    return;
  const auto count = [](const std::string& list) {
    return std::count(list.begin(), list.end(), '|');
  };
  EXPECT_EQ(count(loads), count(clocks)) << line;
  EXPECT_EQ(count(loads), count(temperatures)) << line;
  line.replace(at, static_cast<std::size_t>(length), R"("SAMPLES")");
}

// Puts words in the place of what differs from run to run.
std::string Masked(const std::string& text) {
  std::string masked;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line); masked += "\n") {
    MaskRowTimes(line);
    MaskSamples(line);
    MaskEventTime(line);
    masked += line;
  }
  return masked;
}

std::string LastLine(const std::string& text) {
  return text.substr(text.rfind('\n', text.size() - 2) + 1);
}

// Where the first line that differs stands, and both forms of it; empty when none does.
std::string Difference(const std::string& shown, const std::string& expected) {
  const auto [left, right] =
      std::mismatch(shown.begin(), shown.end(), expected.begin(), expected.end());
  if (left == shown.end() && right == expected.end()) return {};
  const auto start = static_cast<std::size_t>(left - shown.begin());
  const std::size_t line = start == 0 ? 0 : shown.rfind('\n', start - 1) + 1;
  std::ostringstream text;
  text << "line " << 1 + std::count(shown.begin(), left, '\n') << ", shown and expected:\n"
       << shown.substr(line, shown.find('\n', line) - line) << "\n"
       << expected.substr(line, expected.find('\n', line) - line);
  return text.str();
}

struct Scenario {
  const char* name;  // of the file with what is expected
  const char* machine;
  std::vector<std::string> commands;
  std::vector<std::string> categories;
};

void PrintTo(const Scenario& scenario, std::ostream* out) {
  *out << scenario.name;
}

std::vector<std::string> Repeated(
    const std::vector<std::pair<std::string, std::size_t>>& categories) {
  std::vector<std::string> words;
  for (const auto& [category, times] : categories) words.insert(words.end(), times, category);
  return words;
}

// Of the failing machine's processor, one test fails in the first run and another one in each run
// after it, until all pass; of its other devices likewise.
const Scenario kScenarios[] = {
    {"healthy", "healthy.json", {"list", "info", "run"}, {}},
    {"failing", "failing.json", {"list", "info", "run"}, {}},
    {"failing-in-turn",
     "failing.json",
     {"run"},
     Repeated({{"processor", 7},
               {"motherboard", 1},
               {"memory", 10},
               {"disk", 4},
               {"graphics", 3},
               {"display", 1},
               {"audio", 3},
               {"network", 5},
               {"battery", 4},
               {"keyboard", 3},
               {"bluetooth", 3},
               {"fingerprint", 4}})},
    {"selection", "failing.json", {"info", "run"}, {"display", "graphics", "5", "disk"}},
    {"odd", "odd.json", {"list", "info", "run"}, {}},
    {"odd-disks", "odd-disks.json", {"list", "info", "run"}, {}},
};

class WholeRunTest : public testing::TestWithParam<Scenario> {
 protected:
  // What a command prints, under a line that tells the command and its exit status.
  std::string Show(const std::string& command, const std::vector<std::string>& categories) {
    std::vector<std::string> arguments{"--lang",     "ids",
                                       "--json",     "--capture",
                                       "--machine",  TEST_DATA_DIR "/../machine/files/" + machine,
                                       "--data-dir", folder.path.string(),
                                       command};
    arguments.insert(arguments.end(), categories.begin(), categories.end());
    const Outcome outcome = RunProgram(arguments);
    EXPECT_EQ(outcome.errors, "");
    printed = outcome.output;
    return R"({"show":")" + command + R"(","exit":)" +
           std::to_string(outcome.exitStatus.value_or(-1)) + "}\n" + printed;
  }

  std::string machine = GetParam().machine;
  TemporaryFolder folder;
  std::string printed;
};

TEST_P(WholeRunTest, ShowsRunsStoresAndReportsWhatTheMachineAnswers) {
  std::string shown;
  for (const std::string& command : GetParam().commands)
    shown += Show(command, command == "list" ? std::vector<std::string>() : GetParam().categories);
  const std::string record = LastLine(printed);
  shown += "{\"show\":\"events\"}\n" + ReadText(folder.path / "events.jsonl");
  shown += Show("history", {});
  EXPECT_EQ(record, R"({"type":"record",)" + printed.substr(1)) << "stored another row than shown";
  shown += "{\"show\":\"messages\"}\n" + DecodeMessages(ReadText(folder.path / "messages.jsonl"));

  const std::string expected =
      ReadText(std::string(TEST_DATA_DIR "/expected/") + GetParam().name + ".jsonl");
  EXPECT_EQ(Difference(Masked(shown), expected), "");
}

INSTANTIATE_TEST_SUITE_P(Machines, WholeRunTest, testing::ValuesIn(kScenarios),
                         [](const auto& scenario) {
                           std::string name = scenario.param.name;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
