#include "platform/machine/machine_files/machine_file_writer.h"

#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <algorithm>

#include "common/text.h"

namespace machine {
namespace {

using rapidjson::Value;

// Builds the sections; each is empty when there is nothing to say.
class FileBuilder {
 public:
  std::string Build(const Recording& recording);

 private:
  Value Text(std::string_view utf8);
  Value Text(const std::wstring& text) { return Text(common::WideToUtf8(text)); }
  void AddUnlessEmpty(Value& object, std::string_view name, Value member);

  Value Shelf(const std::vector<std::string>& keys);
  Value NotFitted(const std::vector<Part>& parts);
  Value Registry(const std::map<RegistryPlace, std::wstring>& values);
  Value Info(const Inventory& info);
  Value Scalar(const Inventory& info, const InfoCallRow& row, int index);
  Value List(const Inventory& info, const InfoCallRow& row);
  Value Answer(const RecordedAnswer& answer, std::uint32_t passedCode);
  Value Answers(RecordedAnswers answers, std::uint32_t passedCode);
  Value Tests(const Recording& recording);
  Value Repairs(const Recording& recording);

  rapidjson::Document file{rapidjson::kObjectType};
  rapidjson::Document::AllocatorType& allocator = file.GetAllocator();
};

bool IsDefault(const Inventory& info, const InfoCallRow& row, int index) {
  if (row.shape == InfoShape::Text) return info.Text(row.call, index).empty();
  if (row.shape == InfoShape::Flag) return !info.Flag(row.call, index);
  return info.Number(row.call, index) == 0;
}

// How many entries of an array must be written; those behind are defaults.
std::size_t LengthOf(const Inventory& info, const InfoCallRow& row) {
  std::size_t length = info.Size(row.call);
  while (length > 0 && IsDefault(info, row, static_cast<int>(length - 1))) --length;
  return length;
}

// What a reader takes for the count of a class when the file does not give it.
std::size_t ImpliedCount(const Inventory& info, const InfoCallRow& count) {
  std::size_t longest = 0;
  for (const InfoCallRow& row : kInfoCalls) {
    if (row.indexed && row.className == count.className)
      longest = std::max(longest, LengthOf(info, row));
  }
  return longest;
}

bool IsToBeWritten(const Inventory& info, const InfoCallRow& row) {
  if (row.isCount) return info.Number(row.call) != ImpliedCount(info, row);
  if (row.shape == InfoShape::List) return info.Size(row.call) > 0;
  return row.indexed ? LengthOf(info, row) > 0 : !IsDefault(info, row, 0);
}

bool operator==(const RecordedAnswer& one, const RecordedAnswer& other) {
  return one.code == other.code && one.text == other.text && one.notTested == other.notTested &&
         one.pass == other.pass && one.restart == other.restart && one.flags == other.flags &&
         one.fault == other.fault;
}

// The text goes through the wide form, which mends malformed UTF-8.
Value FileBuilder::Text(std::string_view utf8) {
  const std::string mended = common::WideToUtf8(common::Utf8ToWide(utf8));
  return Value(mended.data(), static_cast<rapidjson::SizeType>(mended.size()), allocator);
}

void FileBuilder::AddUnlessEmpty(Value& object, std::string_view name, Value member) {
  if (member.IsNull() || (member.IsObject() && member.ObjectEmpty())) return;
  object.AddMember(Text(name), std::move(member), allocator);
}

Value FileBuilder::Shelf(const std::vector<std::string>& keys) {
  Value array(rapidjson::kArrayType);
  for (const std::string& key : keys) array.PushBack(Text(key), allocator);
  return array;
}

Value FileBuilder::NotFitted(const std::vector<Part>& parts) {
  Value array(rapidjson::kArrayType);
  for (const Part part : parts) array.PushBack(Text(NameOf(part)), allocator);
  return array;
}

Value FileBuilder::Registry(const std::map<RegistryPlace, std::wstring>& values) {
  Value roots(rapidjson::kObjectType);
  const auto child = [&](Value& parent, const std::string& name) -> Value& {
    const Value key = Text(name);
    if (!parent.HasMember(key))
      parent.AddMember(Text(name), Value(rapidjson::kObjectType), allocator);
    return parent[key];
  };
  for (const auto& [place, value] : values)
    child(child(roots, place[0]), place[1]).AddMember(Text(place[2]), Text(value), allocator);
  return roots;
}

Value FileBuilder::Scalar(const Inventory& info, const InfoCallRow& row, int index) {
  if (row.shape == InfoShape::Text) return Text(info.Text(row.call, index));
  if (row.shape == InfoShape::Flag) return Value(info.Flag(row.call, index));
  return Value(info.Number(row.call, index));
}

Value FileBuilder::List(const Inventory& info, const InfoCallRow& row) {
  Value array(rapidjson::kArrayType);
  if (row.shape == InfoShape::List) {
    for (const int element : info.List(row.call)) array.PushBack(element, allocator);
    return array;
  }
  const auto length = static_cast<int>(LengthOf(info, row));
  for (int i = 0; i < length; ++i) array.PushBack(Scalar(info, row, i), allocator);
  return array;
}

Value FileBuilder::Info(const Inventory& info) {
  Value classes(rapidjson::kObjectType);
  for (auto row = kInfoCalls.begin(); row != kInfoCalls.end();) {
    const std::string_view name = row->className;
    Value calls(rapidjson::kObjectType);
    for (; row != kInfoCalls.end() && row->className == name; ++row) {
      if (!IsToBeWritten(info, *row)) continue;
      const bool isArray = row->indexed || row->shape == InfoShape::List;
      calls.AddMember(Text(row->method), isArray ? List(info, *row) : Scalar(info, *row, 0),
                      allocator);
    }
    AddUnlessEmpty(classes, name, std::move(calls));
  }
  return classes;
}

// A plain code where there is nothing else to say.
Value FileBuilder::Answer(const RecordedAnswer& answer, std::uint32_t passedCode) {
  const auto code = static_cast<std::int32_t>(answer.code);
  Value object(rapidjson::kObjectType);
  if (answer.code != passedCode) object.AddMember("code", code, allocator);
  if (!answer.text.empty()) object.AddMember("text", Text(answer.text), allocator);
  if (!answer.notTested.empty()) object.AddMember("notTested", Text(answer.notTested), allocator);
  if (!answer.pass) object.AddMember("pass", Value(false), allocator);
  if (answer.restart) object.AddMember("restart", Value(true), allocator);
  if (!answer.flags.empty()) {
    Value flags(rapidjson::kArrayType);
    for (const std::uint8_t flag : answer.flags) flags.PushBack(unsigned{flag}, allocator);
    object.AddMember("flags", flags, allocator);
  }
  if (answer.fault) object.AddMember("throws", Text(*answer.fault), allocator);
  const bool isCode =
      object.ObjectEmpty() || (object.MemberCount() == 1 && answer.code != passedCode);
  return isCode ? Value(code) : std::move(object);
}

// The last answer repeats, so that equal ones at the end need not be written.
Value FileBuilder::Answers(RecordedAnswers answers, std::uint32_t passedCode) {
  while (answers.size() > 1 && answers[answers.size() - 2] == answers.back()) answers.pop_back();
  if (answers.empty()) return {};
  RecordedAnswer passed;
  passed.code = passedCode;
  if (answers.size() == 1)
    return answers.front() == passed ? Value() : Answer(answers.front(), passedCode);
  Value array(rapidjson::kArrayType);
  for (const RecordedAnswer& answer : answers)
    array.PushBack(Answer(answer, passedCode), allocator);
  return array;
}

Value FileBuilder::Tests(const Recording& recording) {
  Value tests(rapidjson::kObjectType);
  for (std::size_t i = 0; i < kSupportCalls.size(); ++i) {
    if (!recording.supports[i].value_or(true))
      tests.AddMember(Text(kSupportCalls[i].name), Value(false), allocator);
  }
  for (std::size_t i = 0; i < kTestCalls.size(); ++i)
    AddUnlessEmpty(tests, kTestCalls[i].name,
                   Answers(recording.tests[i], PassedCode(kTestCalls[i])));
  return tests;
}

Value FileBuilder::Repairs(const Recording& recording) {
  Value repairs(rapidjson::kObjectType);
  for (std::size_t i = 0; i < kRepairCalls.size(); ++i)
    AddUnlessEmpty(repairs, kRepairCalls[i].name, Answers(recording.repairs[i], 0));
  return repairs;
}

std::string FileBuilder::Build(const Recording& recording) {
  if (!recording.product.empty()) AddUnlessEmpty(file, "product", Text(recording.product));
  if (recording.shelf) AddUnlessEmpty(file, "shelf", Shelf(*recording.shelf));
  if (!recording.notFitted.empty())
    AddUnlessEmpty(file, "notFitted", NotFitted(recording.notFitted));
  AddUnlessEmpty(file, "registry", Registry(recording.registry));
  AddUnlessEmpty(file, "info", Info(recording.info));
  AddUnlessEmpty(file, "tests", Tests(recording));
  AddUnlessEmpty(file, "repairs", Repairs(recording));

  rapidjson::StringBuffer buffer;
  rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
  writer.SetIndent(' ', 2);
  writer.SetFormatOptions(rapidjson::kFormatSingleLineArray);
  file.Accept(writer);
  return std::string(buffer.GetString(), buffer.GetSize()) + '\n';
}

}  // namespace

std::string WriteMachineFile(const Recording& recording) {
  return FileBuilder().Build(recording);
}

}  // namespace machine
