#include <algorithm>

#include "platform/machine/machine_files/sections.h"

namespace machine {
namespace {

constexpr std::uint64_t kMaxDelayMs = 600'000;

// What the answers of one call may say.
struct AnswerShape {
  std::uint32_t passedCode = 0;
  bool isTest = false;
  std::size_t flagCount = 0;
  bool hasPass = false;
  bool hasRestart = false;
};

struct MemberRow {
  std::string_view name;
  bool (*belongs)(const AnswerShape& shape);
  void (*read)(const JsonNode& node, const AnswerShape& shape, RecordedAnswer& answer);
};

bool Always(const AnswerShape&) {
  return true;
}

void ReadFlags(const JsonNode& node, const AnswerShape& shape, RecordedAnswer& answer) {
  for (const JsonNode& flag : node.Elements(shape.flagCount))
    answer.flags.push_back(static_cast<std::uint8_t>(flag.Number(0xFF)));
}

constexpr auto kMembers = std::to_array<MemberRow>({
    {"code", Always,
     [](const JsonNode& node, const AnswerShape&, RecordedAnswer& answer) {
       answer.code = node.Code();
     }},
    {"text", Always,
     [](const JsonNode& node, const AnswerShape&, RecordedAnswer& answer) {
       answer.text = node.Text();
     }},
    {"notTested", [](const AnswerShape& shape) { return shape.isTest; },
     [](const JsonNode& node, const AnswerShape&, RecordedAnswer& answer) {
       answer.notTested = node.Text();
     }},
    {"pass", [](const AnswerShape& shape) { return shape.hasPass; },
     [](const JsonNode& node, const AnswerShape&, RecordedAnswer& answer) {
       answer.pass = node.Flag();
     }},
    {"flags", [](const AnswerShape& shape) { return shape.flagCount > 0; }, ReadFlags},
    {"restart", [](const AnswerShape& shape) { return shape.hasRestart; },
     [](const JsonNode& node, const AnswerShape&, RecordedAnswer& answer) {
       answer.restart = node.Flag();
     }},
    {"delayMs", Always,
     [](const JsonNode& node, const AnswerShape&, RecordedAnswer& answer) {
       answer.delay = std::chrono::milliseconds(node.Number(kMaxDelayMs));
     }},
    {"throws", Always,
     [](const JsonNode& node, const AnswerShape&, RecordedAnswer& answer) {
       answer.fault = node.Utf8();
     }},
});

RecordedAnswer ReadAnswer(const JsonNode& node, const AnswerShape& shape) {
  RecordedAnswer answer;
  answer.code = shape.passedCode;
  if (node.IsNumber()) {
    answer.code = node.Code();
    return answer;
  }
  if (!node.IsObject()) node.Fail("expected a code or an object");
  for (const JsonNode& member : node.Members()) {
    const auto row = std::ranges::find(kMembers, member.Key(), &MemberRow::name);
    if (row == kMembers.end()) member.Fail("unknown key");
    if (!row->belongs(shape)) member.Fail("does not belong to this call");
    row->read(member, shape, answer);
  }
  return answer;
}

RecordedAnswers ReadAnswers(const JsonNode& node, const AnswerShape& shape) {
  if (!node.IsArray()) return {ReadAnswer(node, shape)};
  RecordedAnswers answers;
  for (const JsonNode& element : node.Elements()) answers.push_back(ReadAnswer(element, shape));
  if (answers.empty()) node.Fail("expected at least one answer");
  return answers;
}

AnswerShape ShapeOf(const TestCallRow& row) {
  return {.passedCode = PassedCode(row),
          .isTest = true,
          .flagCount = row.flagCount,
          .hasPass = HasVerdict(row.call)};
}

}  // namespace

void ReadTests(const JsonNode& section, Recording& recording) {
  for (const JsonNode& node : section.Members()) {
    const auto test = std::ranges::find(kTestCalls, node.Key(), &TestCallRow::name);
    const auto check = std::ranges::find(kSupportCalls, node.Key(), &SupportCallRow::name);
    if (test != kTestCalls.end()) {
      recording.tests[static_cast<std::size_t>(test->call)] = ReadAnswers(node, ShapeOf(*test));
    } else if (check != kSupportCalls.end()) {
      recording.supports[static_cast<std::size_t>(check->call)] = node.Flag();
    } else {
      node.Fail("unknown call");
    }
  }
}

void ReadRepairs(const JsonNode& section, Recording& recording) {
  for (const JsonNode& node : section.Members()) {
    const auto row = std::ranges::find(kRepairCalls, node.Key(), &RepairCallRow::name);
    if (row == kRepairCalls.end()) node.Fail("unknown call");
    recording.repairs[static_cast<std::size_t>(row->call)] =
        ReadAnswers(node, {.hasRestart = true});
  }
}

}  // namespace machine
