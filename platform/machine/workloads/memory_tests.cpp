#include "platform/machine/workloads/memory_tests.h"

#include <algorithm>
#include <array>
#include <locale>
#include <sstream>
#include <string>

#include "platform/machine/workloads/cut_short.h"
#include "platform/machine/workloads/memory_buffer.h"
#include "platform/machine/workloads/memory_error.h"

namespace machine {
namespace {

using Words = std::span<volatile std::uint64_t>;

constexpr std::uint64_t kEveryByte = 0x0101010101010101;
constexpr std::uint64_t kOddMultiplier = 0x9E3779B97F4A7C15;

std::uint64_t Scramble(std::uint64_t value) {
  value = (value ^ value >> 30) * 0xBF58476D1CE4E5B9;
  value = (value ^ value >> 27) * 0x94D049BB133111EB;
  return value ^ value >> 31;
}

// Every second pass writes the complement, so that each bit has to read back as both.
std::uint64_t Alternate(std::uint64_t value, unsigned pass) {
  return pass % 2 == 0 ? value : ~value;
}

std::uint64_t OwnAddress(std::size_t index, unsigned pass) {
  return Alternate(index * sizeof(std::uint64_t), pass);
}

// Words count up, from another start in every second pass.
std::uint64_t LineSequence(std::size_t index, unsigned pass) {
  return Alternate(index + pass / 2 * kOddMultiplier, pass);
}

// Each 4 KiB block holds one byte value, one more than the block before.
std::uint64_t BlockSequence(std::size_t index, unsigned pass) {
  constexpr std::size_t kWordsPerBlock = 512;
  return Alternate((index / kWordsPerBlock & 0xFF) * kEveryByte, pass);
}

// One bit of every byte is clear, in turn; then one is set.
std::uint64_t WalkingBit(std::size_t index, unsigned pass) {
  return Alternate(~(kEveryByte << (index + pass / 2) % 8), pass);
}

std::uint64_t Random(std::size_t index, unsigned pass) {
  return Alternate(Scramble((index + 1) * kOddMultiplier + pass / 2), pass);
}

std::uint64_t Checkerboard(std::size_t index, unsigned pass) {
  return Alternate(index % 2 == 0 ? 0xAAAAAAAAAAAAAAAA : 0x5555555555555555, pass);
}

std::uint64_t Arithmetic(std::uint64_t value, std::size_t index) {
  return (value + index) * 5 - (value >> 3);
}

std::uint64_t Logic(std::uint64_t value, std::size_t index) {
  return ((value & ~index) | (~value & 0x00FF00FF00FF00FF)) ^ value << 1;
}

std::uint64_t Flip(std::uint64_t value, std::size_t) {
  return ~value;
}

struct MemoryTestRow {
  TestCall call;
  unsigned passes;
  std::uint64_t (*written)(std::size_t index, unsigned pass);
  std::uint64_t (*operation)(std::uint64_t value, std::size_t index) = nullptr;
};

constexpr TestCall kFirst = TestCall::MemoryStuckAddress;

constexpr auto kMemoryTests = std::to_array<MemoryTestRow>({
    {TestCall::MemoryStuckAddress, 2, OwnAddress},
    {TestCall::MemoryLineSequence, 4, LineSequence},
    {TestCall::MemoryBlockSequence, 2, BlockSequence},
    {TestCall::MemoryWalkingBit, 16, WalkingBit},
    {TestCall::MemoryRandom, 4, Random},
    {TestCall::MemoryCheckerboard, 2, Checkerboard},
    {TestCall::MemoryArithmetic, 2, Random, Arithmetic},
    {TestCall::MemoryLogic, 2, Random, Logic},
    {TestCall::MemoryBitFlip, 2, Checkerboard, Flip},
});

constexpr std::size_t RowIndex(TestCall test) {
  return static_cast<std::size_t>(test) - static_cast<std::size_t>(kFirst);
}

constexpr bool RowsInOrder() {
  for (std::size_t i = 0; i < kMemoryTests.size(); ++i)
    if (RowIndex(kMemoryTests[i].call) != i) return false;
  return true;
}
static_assert(RowsInOrder());

std::uint64_t Expected(const MemoryTestRow& row, std::size_t index, unsigned pass) {
  const std::uint64_t written = row.written(index, pass);
  return row.operation == nullptr ? written : row.operation(written, index);
}

constexpr std::size_t kCutShortWords = kCutShortSize / sizeof(std::uint64_t);

// From the start on, so that the work may end behind any block.
template <typename Work>
void ForEachBlock(Words& words, Work work) {
  for (std::size_t begin = 0; begin < words.size(); begin += kCutShortWords) {
    if (begin != 0 && AreTestsCutShort()) words = words.first(kCutShortWords);
    work(begin, std::min(begin + kCutShortWords, words.size()));
  }
}

std::optional<MemoryBuffer> AllocateUpTo(std::size_t size) {
  std::optional<MemoryBuffer> buffer;
  for (; !buffer && size >= MemoryBuffer::kSmallest; size /= 2)
    buffer = MemoryBuffer::Allocate(size);
  return buffer;
}

}  // namespace

std::optional<MemoryFault> FindMemoryFault(TestCall test, Words& words,
                                           const std::function<void()>& beforeVerify) {
  const MemoryTestRow& row = kMemoryTests.at(RowIndex(test));
  std::optional<MemoryFault> fault;
  for (unsigned pass = 0; pass < row.passes && !fault; ++pass) {
    ForEachBlock(words, [&](std::size_t i, std::size_t end) {
      for (; i < end; ++i) words[i] = row.written(i, pass);
    });
    if (row.operation != nullptr)
      ForEachBlock(words, [&](std::size_t i, std::size_t end) {
        for (; i < end; ++i) words[i] = row.operation(words[i], i);
      });
    if (beforeVerify) beforeVerify();
    ForEachBlock(words, [&](std::size_t i, std::size_t end) {
      for (; i < end && !fault; ++i) {
        const std::uint64_t expected = Expected(row, i, pass);
        const std::uint64_t found = words[i];
        if (found != expected) fault = MemoryFault{i * sizeof(std::uint64_t), expected, found};
      }
    });
  }
  return fault;
}

TestAnswer TestMemory(TestCall test, Words& words, const std::function<void()>& beforeVerify) {
  std::optional<MemoryFault> fault;
  const std::optional<std::uintptr_t> lost =
      CatchMemoryError([&] { fault = FindMemoryFault(test, words, beforeVerify); });
  std::wostringstream text;
  text.imbue(std::locale::classic());
  if (lost) {
    text << std::hex << L"the system reports an uncorrectable error of the memory at address 0x"
         << *lost;
    return {1, text.str(), false, {}};
  }
  if (!fault) return {};
  text << std::hex << L"memory at offset 0x" << fault->offset << L" reads 0x" << fault->found
       << L" instead of 0x" << fault->expected;
  return {1, text.str(), false, {}};
}

TestAnswer TestFittingMemory(TestCall test, const std::function<void()>& beforeVerify) {
  const bool isCutShort = AreTestsCutShort();
  const std::size_t fitting = MemoryBuffer::FittingSize();
  const auto buffer = AllocateUpTo(isCutShort ? std::min(fitting, kCutShortSize) : fitting);
  if (!buffer) return {.notTested = L"the system gives no memory to test"};
  Words words = buffer->Words();
  const std::size_t whole = words.size();
  TestAnswer answer = TestMemory(test, words, beforeVerify);
  if (answer.code == 0 && (isCutShort || words.size() < whole))
    answer.notTested = L"cut short: only " + std::to_wstring(words.size_bytes() >> 20) +
                       L" MB of memory were tested, without an error";
  return answer;
}

}  // namespace machine
