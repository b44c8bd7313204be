#include "platform/machine/workloads/memory_tests.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "platform/machine/workloads/cut_short.h"
#include "platform/machine/workloads/memory_buffer.h"
#include "tests/machine/workloads/aliased_pages.h"

namespace {

using machine::MemoryBuffer;
using machine::TestCall;

constexpr TestCall kPatterns[] = {
    TestCall::MemoryStuckAddress, TestCall::MemoryLineSequence, TestCall::MemoryBlockSequence,
    TestCall::MemoryWalkingBit,   TestCall::MemoryRandom,       TestCall::MemoryCheckerboard,
    TestCall::MemoryBitFlip,
};
// Their contents follow from the operation.
constexpr TestCall kOperations[] = {TestCall::MemoryArithmetic, TestCall::MemoryLogic};

class MemoryTests : public testing::TestWithParam<TestCall> {
 protected:
  std::vector<std::uint64_t> words = std::vector<std::uint64_t>(4096);
  std::span<volatile std::uint64_t> all{words.data(), words.size()};
};

class MemoryPatterns : public MemoryTests {};

TEST_P(MemoryTests, PassOnGoodMemory) {
  const machine::TestAnswer answer = machine::TestMemory(GetParam(), all);
  EXPECT_EQ(answer.code, 0U);
  EXPECT_EQ(answer.text, L"");
}

TEST_P(MemoryTests, FindABitThatFlipsInTheLastPassAndNameItsPlace) {
  unsigned passes = 0;
  ASSERT_FALSE(machine::FindMemoryFault(GetParam(), all, [&] { ++passes; }));
  ASSERT_GE(passes, 2U);

  const auto flip = [&] {
    if (--passes == 0) words[1000] ^= 0x10;
  };
  const machine::TestAnswer answer = machine::TestMemory(GetParam(), all, flip);
  EXPECT_EQ(answer.code, 1U);
  EXPECT_NE(answer.text.find(L"offset 0x1f40 "), std::wstring::npos);
}

// A cell that cannot change is found only by a pass that wants the other value.
TEST_P(MemoryPatterns, WantEveryBitClearInOnePassAndSetInAnother) {
  std::vector<std::uint64_t> wasSet(words.size()), wasClear(words.size());
  const auto collect = [&] {
    for (std::size_t i = 0; i < words.size(); ++i) {
      wasSet[i] |= words[i];
      wasClear[i] |= ~words[i];
    }
  };
  ASSERT_FALSE(machine::FindMemoryFault(GetParam(), all, collect));
  EXPECT_EQ(wasSet, std::vector<std::uint64_t>(words.size(), ~std::uint64_t{0}));
  EXPECT_EQ(wasClear, wasSet);
}

INSTANTIATE_TEST_SUITE_P(Patterns, MemoryTests, testing::ValuesIn(kPatterns));
INSTANTIATE_TEST_SUITE_P(Operations, MemoryTests, testing::ValuesIn(kOperations));
INSTANTIATE_TEST_SUITE_P(Patterns, MemoryPatterns, testing::ValuesIn(kPatterns));

TEST(StuckAddress, SeesThatTwoAddressesAreOnePlace) {
  const AliasedPages pages;
  ASSERT_TRUE(pages.IsMapped());
  auto words = pages.Words();
  const auto fault = machine::FindMemoryFault(TestCall::MemoryStuckAddress, words);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->offset, 0U);
  EXPECT_EQ(fault->found, words.size_bytes() / 2);
  // Contents that repeat cannot show it: the address test has to.
  EXPECT_FALSE(machine::FindMemoryFault(TestCall::MemoryCheckerboard, words));
}

class MemoryCutShort : public testing::Test {
 protected:
  void TearDown() override { machine::CutTestsShort(false); }
};

// The person does not wait for the rest, and is not told that it was good.
TEST_F(MemoryCutShort, EndsWithAFewMegabytesAndSaysSo) {
  std::vector<std::uint64_t> words(3 * machine::kCutShortSize / sizeof(std::uint64_t));
  std::span<volatile std::uint64_t> tested{words.data(), words.size()};
  unsigned passes = 0;
  const auto interrupt = [&] {
    if (passes++ != 0) return;
    words.back() ^= 1;  // what is not looked at any more
    machine::CutTestsShort(true);
  };
  EXPECT_FALSE(machine::FindMemoryFault(TestCall::MemoryWalkingBit, tested, interrupt));
  EXPECT_EQ(passes, 16U) << "what is left runs over all passes";
  EXPECT_EQ(tested.size_bytes(), machine::kCutShortSize);

  const machine::TestAnswer next = machine::TestFittingMemory(TestCall::MemoryRandom);
  EXPECT_EQ(next.code, 0U);
  EXPECT_TRUE(next.notTested.starts_with(L"cut short: only ")) << next.notTested.c_str();
}

TEST_F(MemoryCutShort, SaysSoOfTheTestUnderWayToo) {
  if (MemoryBuffer::FittingSize() <= machine::kCutShortSize) FAIL() << "too little memory here";
  const auto answer = machine::TestFittingMemory(TestCall::MemoryCheckerboard,
                                                 [] { machine::CutTestsShort(true); });
  EXPECT_EQ(answer.code, 0U);
  EXPECT_TRUE(answer.notTested.starts_with(L"cut short: only 4 MB ")) << answer.notTested.c_str();
}

TEST_F(MemoryCutShort, StillFindsAFaultInThem) {
  machine::CutTestsShort(true);
  std::vector<std::uint64_t> words(2 * machine::kCutShortSize / sizeof(std::uint64_t));
  std::span<volatile std::uint64_t> tested{words.data(), words.size()};
  const auto answer = machine::TestMemory(TestCall::MemoryRandom, tested,
                                          [&] { words[machine::kCutShortSize / 8 - 1] ^= 4; });
  EXPECT_EQ(answer.code, 1U);
}

TEST(MemoryBuffer, HandsItsMemoryOnAndRefusesTheImpossible) {
  EXPECT_FALSE(MemoryBuffer::Allocate(std::size_t{1} << 60));
  auto buffer = MemoryBuffer::Allocate(MemoryBuffer::kSmallest);
  ASSERT_TRUE(buffer);
  const MemoryBuffer moved = std::move(*buffer);
  EXPECT_EQ(moved.Words().size_bytes(), MemoryBuffer::kSmallest);
  EXPECT_TRUE(buffer->Words().empty());
  moved.Words().back() = 1;
  EXPECT_EQ(moved.Words().back(), 1U);
}

}  // namespace
