#include "platform/machine/workloads/processor_tests/processor_tests.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <random>
#include <string>

#include "platform/machine/workloads/processor_tests/expected.h"
#include "platform/os/processor.h"

namespace machine {
namespace {

constexpr int kOperandPairs = 512;
constexpr std::uint32_t kFeatureLeaf = 1;

constexpr auto kSse = std::to_array<OperationRow>({
    {"addps", Operands::Floats, SseAddPs, expected::AddPs},
    {"mulps", Operands::Floats, SseMulPs, expected::MulPs},
    {"divps", Operands::Floats, SseDivPs, expected::DivPs},
    {"sqrtps", Operands::Floats, SseSqrtPs, expected::SqrtPs},
    {"minps", Operands::Floats, SseMinPs, expected::MinPs},
    {"maxps", Operands::Floats, SseMaxPs, expected::MaxPs},
    {"cmpltps", Operands::Floats, SseCmpLtPs, expected::CmpLtPs},
});

constexpr auto kSse2 = std::to_array<OperationRow>({
    {"addpd", Operands::Doubles, Sse2AddPd, expected::AddPd},
    {"mulpd", Operands::Doubles, Sse2MulPd, expected::MulPd},
    {"sqrtpd", Operands::Doubles, Sse2SqrtPd, expected::SqrtPd},
    {"paddd", Operands::Bits, Sse2AddD, expected::AddD},
    {"psubq", Operands::Bits, Sse2SubQ, expected::SubQ},
    {"pmullw", Operands::Bits, Sse2MulLowW, expected::MulLowW},
    {"pmuludq", Operands::Bits, Sse2MulUnsignedDq, expected::MulUnsignedDq},
    {"paddsb", Operands::Bits, Sse2AddSaturatedB, expected::AddSaturatedB},
    {"pcmpgtd", Operands::Bits, Sse2CmpGtD, expected::CmpGtD},
});

constexpr auto kSse3 = std::to_array<OperationRow>({
    {"haddps", Operands::Floats, Sse3HorizontalAddPs, expected::HorizontalAddPs},
    {"hsubps", Operands::Floats, Sse3HorizontalSubPs, expected::HorizontalSubPs},
    {"haddpd", Operands::Doubles, Sse3HorizontalAddPd, expected::HorizontalAddPd},
    {"addsubps", Operands::Floats, Sse3AddSubPs, expected::AddSubPs},
});

constexpr auto kSsse3 = std::to_array<OperationRow>({
    {"pshufb", Operands::Bits, Ssse3ShuffleB, expected::ShuffleB},
    {"pabsw", Operands::Bits, Ssse3AbsW, expected::AbsW},
    {"pmaddubsw", Operands::Bits, Ssse3MulAddB, expected::MulAddB},
    {"phaddd", Operands::Bits, Ssse3HorizontalAddD, expected::HorizontalAddD},
    {"psignb", Operands::Bits, Ssse3SignB, expected::SignB},
});

constexpr auto kSse41 = std::to_array<OperationRow>({
    {"dpps", Operands::Floats, Sse41DotProductPs, expected::DotProductPs},
    {"pblendvb", Operands::Bits, Sse41BlendB, expected::BlendB},
    {"roundps", Operands::Floats, Sse41RoundPs, expected::RoundPs},
    {"pminsd", Operands::Bits, Sse41MinD, expected::MinD},
    {"pmaxud", Operands::Bits, Sse41MaxUnsignedD, expected::MaxUnsignedD},
    {"pmulld", Operands::Bits, Sse41MulLowD, expected::MulLowD},
});

constexpr auto kSse42 = std::to_array<OperationRow>({
    {"crc32", Operands::Bits, Sse42Crc32, expected::Crc32},
    {"pcmpestri", Operands::Bits, Sse42FindAnyB, expected::FindAnyB},
    {"pcmpestrm", Operands::Bits, Sse42EqualEachB, expected::EqualEachB},
    {"pcmpgtq", Operands::Bits, Sse42CmpGtQ, expected::CmpGtQ},
});

enum Register : std::size_t { kEcx = 2, kEdx = 3 };

struct InstructionSetRow {
  TestCall test;
  std::optional<SupportCall> support;
  Register featureRegister;
  unsigned featureBit;
  std::span<const OperationRow> operations;
};

constexpr auto kInstructionSets = std::to_array<InstructionSetRow>({
    {TestCall::CpuSse, SupportCall::Sse, kEdx, 25, kSse},
    {TestCall::CpuSse2, SupportCall::Sse2, kEdx, 26, kSse2},
    {TestCall::CpuSse3, std::nullopt, kEcx, 0, kSse3},
    {TestCall::CpuSsse3, SupportCall::Ssse3, kEcx, 9, kSsse3},
    {TestCall::CpuSse41, SupportCall::Sse41, kEcx, 19, kSse41},
    {TestCall::CpuSse42, SupportCall::Sse42, kEcx, 20, kSse42},
});

bool HasInstructionSet(const InstructionSetRow& row) {
  return os::Cpuid(kFeatureLeaf)[row.featureRegister] >> row.featureBit & 1;
}

/// Whole eighths from -125 to 125, never 0.
template <typename Element>
Element Eighths(std::uint64_t random) {
  const auto size = static_cast<Element>(random % 1000 + 1) / 8;
  return random >> 63 ? -size : size;
}

template <typename Element>
Block FillElements(std::mt19937_64& random) {
  std::array<Element, sizeof(Block) / sizeof(Element)> elements;
  for (Element& element : elements) element = Eighths<Element>(random());
  return std::bit_cast<Block>(elements);
}

Block FillBits(std::mt19937_64& random) {
  const std::array<std::uint64_t, 2> halves = {random(), random()};
  return std::bit_cast<Block>(halves);
}

Block Fill(Operands kind, std::mt19937_64& random) {
  static constexpr std::array<Block (*)(std::mt19937_64&), 3> kFillers = {
      FillElements<float>, FillElements<double>, FillBits};
  return kFillers.at(static_cast<std::size_t>(kind))(random);
}

std::uint32_t CountDifferences(const OperationRow& row) {
  std::mt19937_64 random;  // the same operands in every run
  std::uint32_t differences = 0;
  for (int i = 0; i < kOperandPairs; ++i) {
    const Block a = Fill(row.operands, random);
    const Block b = Fill(row.operands, random);
    const Block computed = row.computed(a, b);
    const Block wanted = row.expected(a, b);
    if (std::memcmp(&computed, &wanted, sizeof(Block)) != 0) ++differences;
  }
  return differences;
}

}  // namespace

TestAnswer CompareOperations(std::span<const OperationRow> operations) {
  TestAnswer answer;
  for (const OperationRow& row : operations) {
    const std::uint32_t differences = CountDifferences(row);
    if (differences == 0) continue;
    answer.code += differences;
    answer.pass = false;
    answer.text += answer.text.empty() ? L"wrong results: " : L", ";
    answer.text.append(row.name, row.name + std::strlen(row.name));
    answer.text += L' ' + std::to_wstring(differences);
  }
  return answer;
}

TestAnswer TestProcessor(TestCall test) {
  const auto row = std::ranges::find(kInstructionSets, test, &InstructionSetRow::test);
  if (row == kInstructionSets.end() || !HasInstructionSet(*row))
    return {1, L"", false, {}, L"the processor does not have these instructions"};
  return CompareOperations(row->operations);
}

bool ProcessorSupports(SupportCall call) {
  const auto row = std::ranges::find(kInstructionSets, call, &InstructionSetRow::support);
  return row != kInstructionSets.end() && HasInstructionSet(*row);
}

}  // namespace machine
