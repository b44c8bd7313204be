#include "platform/machine/memory_tests.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <utility>
#include <vector>

#include "platform/machine/linux/memory_buffer.h"
#include "tests/machine/live/fake_system.h"

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

/// Pages that show up at two places, as with a broken address line.
class AliasedPages {
 public:
  AliasedPages() {
    const int file = memfd_create("aliased", MFD_CLOEXEC);
    if (file < 0 || ftruncate(file, kPart) != 0) return;
    void* const room = mmap(nullptr, 2 * kPart, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (room != MAP_FAILED) first = static_cast<char*>(room);
    for (char* at = first; first != nullptr && at < first + 2 * kPart; at += kPart)
      isMapped = mmap(at, kPart, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0) == at;
    close(file);
  }
  ~AliasedPages() {
    if (first != nullptr) munmap(first, 2 * kPart);
  }
  AliasedPages(const AliasedPages&) = delete;
  AliasedPages& operator=(const AliasedPages&) = delete;

  bool IsMapped() const { return isMapped; }
  std::span<volatile std::uint64_t> Words() const {
    return {reinterpret_cast<volatile std::uint64_t*>(first), 2 * kPart / sizeof(std::uint64_t)};
  }

 private:
  static constexpr std::size_t kPart = std::size_t{64} * 1024;
  char* first = nullptr;
  bool isMapped = false;
};

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

TEST(MemoryBuffer, TakesAnEighthOfWhatIsAvailableWithinItsBounds) {
  const FakeSystem system;
  const struct {
    const char* meminfo;
    std::size_t size;
  } cases[] = {{"MemTotal: 99999999 kB\nMemAvailable:  80000 kB\n", std::size_t{10000} * 1024},
               {"MemAvailable: 99999999 kB\n", MemoryBuffer::kLargest},
               {"MemAvailable: 18446744073709551615 kB\n", MemoryBuffer::kLargest},
               {"MemAvailable: 100 kB\n", MemoryBuffer::kSmallest},
               {"MemTotal: oops\nMemAvailable: 99999999 kB\n", MemoryBuffer::kSmallest},
               {"", MemoryBuffer::kSmallest}};
  for (const auto& each : cases) {
    system.Write("/proc/meminfo", each.meminfo);
    EXPECT_EQ(MemoryBuffer::FittingSize(), each.size) << each.meminfo;
  }
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
