#include <gmock/gmock.h>
#include <rapidjson/document.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>

#include <random>
#include <sstream>

#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "platform/util/text_helpers.h"
#include "tests/cli/run_program.h"
#include "tests/support/history_row.h"

namespace {

using testing::HasSubstr;
using testing::Not;

const std::string kFiles = MACHINE_FILES;

rapidjson::Document Json(const std::string& text) {
  rapidjson::Document document;
  document.Parse(text.c_str(), text.size());
  EXPECT_FALSE(document.HasParseError()) << text;
  return document;
}

// The first tag that is not closed by its own end, or nothing.
std::string UnbalancedTag(const std::string& html) {
  std::vector<std::string> open;
  for (auto at = html.find('<'); at != std::string::npos; at = html.find('<', at + 1)) {
    const std::string tag = html.substr(at + 1, html.find('>', at) - at - 1);
    const bool isEnd = tag.starts_with('/');
    const std::string name = tag.substr(isEnd ? 1 : 0, tag.find(' ') - (isEnd ? 1 : 0));
    if (name == "meta" || name == "!DOCTYPE" || tag.ends_with('/')) continue;
    if (!isEnd) {
      open.push_back(name);
    } else {
      if (open.empty() || open.back() != name) return "/" + name;
      open.pop_back();
    }
  }
  return open.empty() ? "" : open.back();
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

class Identifiers {
 public:
  std::string Serial() {
    std::string serial;
    for (int i = 0; i < 6 + static_cast<int>(random() % 10); ++i)
      serial += "ABCDEFGHJKLMNPQRSTUVWXYZ0123456789"[random() % 34];
    all.push_back(serial);
    return serial;
  }

  std::string Address(const std::string& separator) {
    std::string digits, address;
    for (int i = 0; i < 6; ++i) {
      char pair[3];
      std::snprintf(pair, sizeof pair, "%02X", static_cast<unsigned>(random() % 256));
      digits += pair;
      address += (i == 0 ? "" : separator) + pair;
    }
    all.push_back(digits);
    all.push_back(address);
    return address;
  }

  std::vector<std::string> all;

 private:
  std::mt19937 random{std::random_device()()};
};

TEST(ReportTest, NoExportHoldsASerialNumberOrAnAddress) {
  const Program program;
  Identifiers ids;
  const std::string board = ids.Serial(), module = ids.Serial(), disk = ids.Serial();
  const std::string known = ids.Address("-"), unknown = ids.Address(":");
  std::string lower = disk;
  for (char& c : lower) c = static_cast<char>(std::tolower(c));
  const std::string machine =
      program.Machine(R"({"product": "Sample )" + board + R"(", "shelf": ["orv_plugin_hardware"],
      "registry": {"HKEY_LOCAL_MACHINE": {"HARDWARE\\DESCRIPTION\\System\\Product": {"Version": "TK-)" +
                      module + R"("}}}, "info": {
      "CBaseboard": {"GetBaseboardSerialNumber": "  )" +
                      board + R"( "},
      "CMemory": {"GetSerialNumberbyIndex": [")" +
                      module + R"("], "GetPartNumberbyIndex": ["p)" + module + R"(q"]},
      "CDisk": {"GetSerialNumber": [")" +
                      disk + R"("], "GetCaption": ["Disk )" + lower + R"("], "JudgeSSd": [true]},
      "CNetworkAdapter": {"GetWireLessIndex": [0], "GetMacAddressbyIndex": [")" +
                      known + R"("],
        "GetCaptionbyIndex": ["Wireless )" +
                      unknown + R"("]},
      "CBattery": {"GetBatteryName": ")" +
                      ids.all[3] + R"("}},
      "tests": {"WifiFaultDetect::CheckWifiSignal": {"code": 3, "text": "at )" +
                      known + R"("},
        "CDiskFaultDetect::CheckSsdSmartResult": {"code": 2, "notTested": "locked )" +
                      disk + R"("},
        "CAudioDetect::CheckDevice": {"throws": "device )" +
                      unknown + " on " + board + R"("}}})");

  const auto exportAll = [&](const std::vector<std::string>& option) {
    std::string text;
    for (const std::string name : {"r.html", "r.json", "m.json"}) {
      std::vector<std::string> arguments{"run", "--report"};
      if (name == "m.json") arguments = {"record", "--tests", "--force"};
      arguments.push_back(program.Path(name));
      arguments.insert(arguments.end(), option.begin(), option.end());
      program.RunOn(machine, arguments);
      text += ReadText(program.Path(name));
    }
    return DE::UpperCase(text);
  };
  const std::string masked = exportAll({});
  for (const std::string& id : ids.all) EXPECT_THAT(masked, Not(HasSubstr(id)));
  EXPECT_GT(CountOf(masked, "#"), 20U);
  EXPECT_THAT(exportAll({"--plain"}), testing::AllOf(HasSubstr(board), HasSubstr(known)));
}

TEST(ReportTest, ThePageIsSoundWhateverTheDevicesAreCalled) {
  const Program program;
  const std::string odd = R"(<script>alert(1)</script>\"'&\u0000\u001b[2J</table>\ufffe)";
  const std::string hostile = program.Machine(
      R"({"product": ")" + odd + R"(", "info": {"CDisk": {"GetCaption": [")" + odd +
      R"("], "JudgeSSd": [true]}, "CKeyBoard": {"GetKeyBoardName": ")" + odd +
      R"("}}, "tests": {"CVideoCardDetect::CheckDevice": {"throws": ")" + odd + R"("}}})");
  const std::string file = program.Path("report.html");
  for (const std::string& machine : {hostile, kFiles + "failing.json", kFiles + "odd.json"}) {
    program.RunOn(machine, {"run", "--report", file});
    const std::string html = ReadText(file);
    EXPECT_EQ(UnbalancedTag(html), "");
    for (const char* never : {"<script", "http://", "https://", "url(", "src=", "href="})
      EXPECT_THAT(html, Not(HasSubstr(never)));
    for (const char c : html) EXPECT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= 0x20);
    if (machine == hostile) {
      EXPECT_THAT(html, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;&quot;&#39;&amp;??[2J"));
    }
  }
}

TEST(ReportTest, TheDataTellWhatTheRunTold) {
  const Program program;
  const std::string file = program.Path("report.json");
  const auto run = program.RunOn(kFiles + "failing.json", {"--json", "run", "--report", file});
  EXPECT_EQ(run.exitStatus, 1);
  const rapidjson::Document report = Json(ReadText(file));

  std::vector<std::string> told, reported;
  const auto describe = [](int category, const rapidjson::Value& item, bool normal) {
    return std::to_string(category) + item["caption"].GetString() + (normal ? "+" : "-") +
           item["hint"].GetString() + std::to_string(item["code"].GetInt());
  };
  std::istringstream lines(run.output);
  for (std::string line; std::getline(lines, line);) {
    const rapidjson::Document event = Json(line);
    const std::string type = event["type"].GetString();
    if (type == "itemResult" && event["caption"].GetStringLength() > 0)
      told.push_back(describe(event["category"].GetInt(), event, event["normal"].GetBool()));
    if (type == "record") {
      EXPECT_EQ(report["record"]["dateTime"], event["cells"][15]);
      EXPECT_EQ(report["record"]["results"]["5"].GetInt(), event["cells"][2].GetInt());
    }
  }
  for (const rapidjson::Value& category : report["categories"].GetArray()) {
    for (const rapidjson::Value& item : category["items"].GetArray()) {
      const std::string state = item["state"].GetString();
      if (state == "normal" || state == "abnormal")
        reported.push_back(describe(category["category"].GetInt(), item, state == "normal"));
    }
  }
  EXPECT_GT(told.size(), 20U);
  EXPECT_EQ(reported, told);
  EXPECT_EQ(report["categories"].Size(), 12U);
  EXPECT_EQ(report["history"].Size(), 1U);
}

// A disk's words go with its abnormal tests, or with the disk where it has none.
TEST(ReportTest, WhatALibrarySaysStandsWithWhatItIsAbout) {
  const Program program;
  const std::string machine = program.Machine(R"({
      "info": {"CDisk": {"GetCaption": ["A", "B", "C", "D"], "JudgeSSd": [true, true, true, true]}},
      "tests": {"CDiskFaultDetect::CheckSsdSmartResult": [
                  {"code": 0, "text": "failing", "flags": [0, 1]}, {"code": 2, "notTested": "locked"},
                  {"text": "warm"}, 2],
                "CMemFaultDetect::CheckBoard": {"code": 1, "text": "at 0x8"},
                "CBatteryDetect::TestLoss": {"code": 4, "text": "worn"}}})");
  const std::string file = program.Path("report.json");
  const auto run =
      program.RunOn(machine, {"--json", "run", "memory", "disk", "battery", "--report", file});

  std::vector<std::string> told, reported;
  const auto note = [](std::vector<std::string>& notes, const rapidjson::Value& said,
                       const char* caption) {
    for (const char* key : {"detail", "notTested"})
      if (said.HasMember(key))
        notes.push_back(std::string(caption) + " " + key + " " + said[key].GetString());
  };
  std::istringstream lines(run.output);
  for (std::string line; std::getline(lines, line);) {
    const rapidjson::Document event = Json(line);
    note(told, event, event.HasMember("caption") ? event["caption"].GetString() : "-");
  }
  const rapidjson::Document report = Json(ReadText(file));
  for (const rapidjson::Value& category : report["categories"].GetArray()) {
    for (const rapidjson::Value& item : category["items"].GetArray())
      note(reported, item, item["caption"].GetString());
    note(reported, category, "-");
  }
  EXPECT_THAT(
      told, testing::ElementsAre("Checkerboard detail at 0x8", "Reallocated sectors detail failing",
                                 "B notTested locked", "C detail warm", "- detail worn"));
  EXPECT_EQ(reported, told);
  const auto disks = report["categories"][1]["items"].GetArray();
  EXPECT_STREQ(disks[disks.Size() - 1]["caption"].GetString(), "D");
  EXPECT_STREQ(disks[disks.Size() - 1]["state"].GetString(), "notTested");

  const std::string page = program.Path("report.html");
  program.RunOn(machine, {"run", "memory", "disk", "battery", "--report", page});
  for (const char* said : {">at 0x8<", ">failing<", ": locked<", ">warm<", ">worn<"})
    EXPECT_THAT(ReadText(page), HasSubstr(said));
}

// Everything that a report may hold, and nothing else, is in the published schema.
TEST(ReportTest, TheDataAreAsThePublishedSchemaSays) {
  const rapidjson::Document schemaText = Json(ReadText(DOCS_DIR "report.schema.json"));
  const rapidjson::SchemaDocument schema(schemaText);
  const Program program;
  const std::string repaired = program.Machine(R"({
      "info": {"CDisk": {"GetCaption": ["A", "B"]}},
      "tests": {"CDiskFaultDetect::CheckHhdSmartResult": [{"flags": [1], "text": "failing"}, 2],
                "CVideoCardDetect::CheckDevice": [5, 0], "CBatteryDetect::TestVoltage":
                {"notTested": "no right"}, "CMemFaultDetect::CheckBoard": 1,
                "CAudioDetect::CheckDevice": [0, 0, {"throws": "gone"}]},
      "repairs": {"CVideoCardDetect::RepairVIDEOCARDProblems": {"restart": true, "text": "done"}}})");
  const std::string thrown = program.Path("thrown.json");
  WriteText(thrown, R"({"tests": {"CMemFaultDetect::CheckBoard": {"throws": "library fault"}}})");
  const std::string file = program.Path("report.json");
  for (const std::string& machine : {repaired, thrown, kFiles + "failing.json"}) {
    program.RunOn(machine, {"run", "--repair", "--yes", "--report", file});
    const rapidjson::Document report = Json(ReadText(file));
    rapidjson::SchemaValidator validator(schema);
    const bool isValid = report.Accept(validator);
    rapidjson::StringBuffer place;
    validator.GetInvalidDocumentPointer().StringifyUriFragment(place);
    EXPECT_TRUE(isValid) << place.GetString() << " " << validator.GetInvalidSchemaKeyword();
    if (machine == repaired) {
      EXPECT_THAT(ReadText(file), HasSubstr("\"repaired\": true"));
      EXPECT_THAT(ReadText(file), HasSubstr("\"advice\": \""));
    }
  }
  rapidjson::SchemaValidator validator(schema);
  EXPECT_FALSE(Json(R"({"program": 1})").Accept(validator)) << "the schema checks nothing";
}

TEST(ReportTest, ThePictureShowsADayForEachOfTheLastNinetyWithARun) {
  const Program program;
  os::SetDataFolder(program.Path("data"));
  const std::int64_t now = os::CurrentClock().SecondsSinceEpoch();
  for (const std::int64_t daysBack : {40, 41, 95})
    DataManager::Instance().Put(kHistoryTable, HistoryRow(now - daysBack * 86400));
  const std::string file = program.Path("report.html");
  program.RunOn(kFiles + "failing.json", {"run", "--report", file});
  const std::string html = ReadText(file);
  EXPECT_EQ(CountOf(html, "<g>"), 3U);
  EXPECT_EQ(CountOf(html, "<rect class=\"normal\""), 3U);
  EXPECT_EQ(CountOf(html, "<rect class=\"abnormal\""), 1U);
}

// The store knows two verdicts only: there a disk that cannot be read counts as normal.
TEST(ReportTest, ThePictureCountsARunAsItsReportDoes) {
  const Program program;
  const std::string machine = program.Machine(R"({"info": {"CDisk": {"GetCaption": ["A"]}},
      "tests": {"CDiskFaultDetect::CheckHhdSmartResult": 2}})");
  const std::string file = program.Path("report.html");
  program.RunOn(machine, {"run", "disk", "display", "--report", file});
  const std::string html = ReadText(file);
  EXPECT_THAT(html, HasSubstr("· Normal 1 · Abnormal 0 · Could not be tested 1<"));
  EXPECT_THAT(html, HasSubstr(": Normal 1, Abnormal 0, Could not be tested 1</title>"));
  EXPECT_EQ(CountOf(html, "<rect class=\"untested\""), 1U);
}

TEST(ReportTest, ARunThatFailsIsReportedWithItsReason) {
  const Program program;
  const std::string machine =
      program.Machine(R"({"tests": {"CMemFaultDetect::CheckBoard": {"throws": "library fault"}}})");
  const std::string file = program.Path("report.json");
  EXPECT_EQ(program.RunOn(machine, {"run", "memory", "--report", file}).exitStatus, 4);
  const rapidjson::Document report = Json(ReadText(file));
  EXPECT_STREQ(report["end"].GetString(), "failed");
  EXPECT_STREQ(report["error"].GetString(), "library fault");
  EXPECT_TRUE(report["record"].IsNull());
  const auto items = report["categories"][0]["items"].GetArray();
  EXPECT_STREQ(items[items.Size() - 1]["state"].GetString(), "notTested");
}

TEST(ReportTest, AReportThatCannotBeWrittenFailsBeforeTheRun) {
  const Program program;
  const std::string machine = kFiles + "healthy.json";
  const auto kept = [&] { return program.Run({"history", "--json"}).output; };
  for (const char* name : {"report.pdf", "report", "html"})
    EXPECT_EQ(program.RunOn(machine, {"run", "--report", program.Path(name)}).exitStatus, 2);
  EXPECT_EQ(program.RunOn(machine, {"run", "--report", program.Path("no/r.html")}).exitStatus, 2);
  std::filesystem::create_directory(program.Path("folder.html"));
  EXPECT_EQ(program.RunOn(machine, {"run", "--report", program.Path("folder.html")}).exitStatus, 2);
  EXPECT_EQ(kept(), "");
}

}  // namespace
