#include "platform/machine/workloads/memory_tests.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

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
  const auto fault = machine::FindMemoryFault(TestCall::MemoryStuckAddress, pages.Words());
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->offset, 0U);
  EXPECT_EQ(fault->found, pages.Words().size_bytes() / 2);
  // Contents that repeat cannot show it: the address test has to.
  EXPECT_FALSE(machine::FindMemoryFault(TestCall::MemoryCheckerboard, pages.Words()));
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
