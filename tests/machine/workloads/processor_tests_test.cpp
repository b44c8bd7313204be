#include "platform/machine/workloads/processor_tests/processor_tests.h"

#include <gtest/gtest.h>

namespace {

machine::Block First(const machine::Block& a, const machine::Block&) {
  return a;
}

machine::Block FirstButSometimesWrong(const machine::Block& a, const machine::Block&) {
  machine::Block wrong = a;
  if (a.bytes[15] == 0x11) wrong.bytes[0] ^= 1;
  return wrong;
}

TEST(ProcessorTests, CountResultsThatDifferByASingleBit) {
  using machine::Operands;
  const auto rows = std::to_array<machine::OperationRow>(
      {{"good", Operands::Bits, First, First},
       {"bad", Operands::Bits, FirstButSometimesWrong, First}});
  const machine::TestAnswer answer = machine::CompareOperations(rows);
  EXPECT_GT(answer.code, 0U);
  EXPECT_LT(answer.code, 50U);
  EXPECT_EQ(answer.text, L"wrong results: bad " + std::to_wstring(answer.code));
}

TEST(ProcessorTests, PassOnThisProcessor) {
  using machine::SupportCall, machine::TestCall;
  const std::pair<SupportCall, TestCall> sets[] = {{SupportCall::Sse, TestCall::CpuSse},
                                                   {SupportCall::Sse2, TestCall::CpuSse2},
                                                   {SupportCall::Ssse3, TestCall::CpuSsse3},
                                                   {SupportCall::Sse41, TestCall::CpuSse41},
                                                   {SupportCall::Sse42, TestCall::CpuSse42}};
  for (const auto& [support, test] : sets) {
    const machine::TestAnswer answer = machine::TestProcessor(test);
    EXPECT_EQ(answer.code, machine::ProcessorSupports(support) ? 0U : 1U);
    EXPECT_EQ(answer.notTested.empty(), machine::ProcessorSupports(support));
  }
  EXPECT_EQ(machine::TestProcessor(TestCall::CpuSse3).code, 0U);
  EXPECT_FALSE(machine::ProcessorSupports(SupportCall::Bluetooth));
}

}  // namespace
