#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <array>

#include "cli/report_file.h"
#include "common/text.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

// By RunEnd, ItemState and CategoryResult.
constexpr auto kEnds = std::to_array<const char*>({"finished", "cancelled", "failed"});
constexpr auto kItemStates =
    std::to_array<const char*>({"notTested", "heading", "normal", "abnormal"});
constexpr auto kResults = std::to_array<const char*>({"notTested", "normal", "abnormal"});

class JsonReportWriter {
 public:
  JsonReportWriter(const RunReport& shown, const machine::IdentifierMask& applied)
      : report(shown), mask(applied) {
    writer.SetIndent(' ', 1);
  }

  std::string Write() {
    writer.StartObject();
    Add("program", std::string("sysdiagnose " SYSDIAGNOSE_VERSION));
    Add("product", report.product);
    Add("written", TimeText(report.written));
    Add("end", std::string(kEnds[static_cast<std::size_t>(report.end)]));
    Add("verdict", std::string(NameOf(report.verdicts.Worst())));
    if (!report.error.empty()) Add("error", report.error);
    AddList("categories", report.categories, &JsonReportWriter::Category);
    AddRecord();
    if (!report.notKept.empty()) Add("notKept", report.notKept);
    AddList("history", report.history, &JsonReportWriter::Day);
    if (!report.historyFault.empty()) Add("historyFault", report.historyFault);
    writer.EndObject();
    return std::string(buffer.GetString(), buffer.GetSize()) + '\n';
  }

 private:
  void Text(const std::wstring& text) {
    const std::string utf8 = common::WideToUtf8(mask.Apply(text));
    writer.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
  }

  void Add(const char* name, const std::wstring& text) {
    writer.Key(name);
    Text(text);
  }

  void Add(const char* name, const std::string& utf8) { Add(name, common::Utf8ToWide(utf8)); }

  void AddFlag(const char* name, bool flag) {
    writer.Key(name);
    writer.Bool(flag);
  }

  void Add(const char* name, std::int64_t number) {
    writer.Key(name);
    writer.Int64(number);
  }

  template <typename Element>
  void AddList(const char* name, const std::vector<Element>& elements,
               void (JsonReportWriter::*write)(const Element&)) {
    writer.Key(name);
    writer.StartArray();
    for (const Element& element : elements) (this->*write)(element);
    writer.EndArray();
  }

  void Category(const ReportCategory& category) {
    writer.StartObject();
    Add("category", static_cast<std::int64_t>(category.id));
    Add("caption", category.caption);
    Add("result", std::string(kResults[static_cast<std::size_t>(ResultOf(report, category))]));
    AddVerdict(category.id);
    AddList("information", category.information, &JsonReportWriter::InformationRow);
    if (!category.informationFault.empty()) Add("informationFault", category.informationFault);
    AddList("items", category.items, &JsonReportWriter::Item);
    AddWords(category.words);
    AddList("unknown", category.unknown, &JsonReportWriter::Text);
    if (!category.repairOffer.empty()) Add("repairOffer", category.repairOffer);
    AddList("repairs", category.repairs, &JsonReportWriter::Repair);
    AddFlag("repaired", category.repaired);
    writer.EndObject();
  }

  void AddVerdict(enmHardwareID category) {
    Add("verdict", std::string(NameOf(VerdictOf(report, category))));
    const CategoryVerdict* verdict = report.verdicts.Find(category);
    if (verdict != nullptr && !verdict->reason.empty()) Add("reason", verdict->reason);
  }

  void Repair(const ReportRepair& repair) {
    writer.StartObject();
    Add("command", repair.command);
    AddFlag("succeeded", repair.succeeded);
    AddFlag("restart", repair.restart);
    Add("text", repair.text);
    writer.EndObject();
  }

  void InformationRow(const HardwareInfoRow& row) {
    writer.StartObject();
    Add("label", row.label);
    Add("value", row.value);
    writer.EndObject();
  }

  void Item(const ReportItem& item) {
    writer.StartObject();
    Add("caption", item.caption);
    Add("state", std::string(kItemStates[static_cast<std::size_t>(item.state)]));
    if (item.state == ItemState::Normal || item.state == ItemState::Abnormal) {
      Add("hint", item.hint);
      Add("code", item.code);
    }
    AddWords(item.words);
    if (item.state != ItemState::Heading) Add("verdict", std::string(NameOf(VerdictOf(item))));
    if (!item.advice.empty()) Add("advice", item.advice);
    writer.EndObject();
  }

  void AddWords(const ItemWords& words) {
    if (!words.detail.empty()) Add("detail", words.detail);
    if (!words.notTested.empty()) Add("notTested", words.notTested);
  }

  void AddRecord() {
    writer.Key("record");
    if (!report.record) {
      writer.Null();
      return;
    }
    writer.StartObject();
    writer.Key("results");
    writer.StartObject();
    for (std::size_t i = 0; i < kRecordOrder.size(); ++i)
      Add(std::to_string(static_cast<int>(kRecordOrder[i])).c_str(), report.record->results[i]);
    writer.EndObject();
    AddTotals(*report.record);
    writer.EndObject();
  }

  template <typename Integer>
  void AddTotals(const BasicHistoryRecord<Integer>& record) {
    Add("normal", record.passCount);
    Add("abnormal", record.failCount);
    Add("date", record.date);
    Add("dateTime", record.dateTime);
    Add("secondTime", record.secondTime);
  }

  void Day(const ReportDay& day) {
    writer.StartObject();
    AddTotals(day.record);
    writer.EndObject();
  }

  const RunReport& report;
  const machine::IdentifierMask& mask;
  rapidjson::StringBuffer buffer;
  rapidjson::PrettyWriter<rapidjson::StringBuffer> writer{buffer};
};

}  // namespace

std::string JsonReport(const RunReport& report, const machine::IdentifierMask& mask) {
  return JsonReportWriter(report, mask).Write();
}

}  // namespace cli
