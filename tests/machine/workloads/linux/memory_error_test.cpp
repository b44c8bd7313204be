#include "platform/machine/workloads/memory_error.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <span>
#include <thread>
#include <vector>

#include "platform/machine/workloads/memory_tests.h"

namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kPages = 4;

/// Memory whose last page the system cannot give: touching it ends in the signal by which it
/// reports lost memory too.
class LostPage {
 public:
  LostPage() {
    char name[] = "/tmp/lost-page-XXXXXX";
    const int file = mkstemp(name);
    unlink(name);
    if (ftruncate(file, kPage * (kPages - 1)) == 0)
      memory = mmap(nullptr, kPage * kPages, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    close(file);
  }
  ~LostPage() { munmap(memory, kPage * kPages); }
  LostPage(const LostPage&) = delete;
  LostPage& operator=(const LostPage&) = delete;

  std::span<volatile std::uint64_t> Words() const {
    return {static_cast<std::uint64_t*>(memory), kPage * kPages / sizeof(std::uint64_t)};
  }
  std::uintptr_t Address() const {
    return reinterpret_cast<std::uintptr_t>(memory) + kPage * (kPages - 1);
  }

 private:
  void* memory = MAP_FAILED;
};

TEST(MemoryError, IsTheTestsFailureAndNamesTheAddress) {
  const LostPage lost;
  auto words = lost.Words();
  const auto answer = machine::TestMemory(machine::TestCall::MemoryRandom, words);
  EXPECT_EQ(answer.code, 1U);
  EXPECT_NE(answer.text.find(L"uncorrectable"), std::wstring::npos);
  wchar_t address[32];
  std::swprintf(address, std::size(address), L"0x%zx", lost.Address());
  EXPECT_TRUE(answer.text.ends_with(address)) << lost.Address();
  // The next test is none the worse for it.
  auto good = lost.Words().first(lost.Words().size() / 2);
  EXPECT_EQ(machine::TestMemory(machine::TestCall::MemoryRandom, good).code, 0U);
}

TEST(MemoryError, EachThreadHasItsOwn) {
  std::vector<std::jthread> threads;
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([] {
      for (int turn = 0; turn < 20; ++turn) {
        const LostPage lost;
        const auto found = machine::CatchMemoryError([&] { lost.Words().back() = 1; });
        EXPECT_EQ(found, lost.Address() + kPage - sizeof(std::uint64_t));
      }
    });
}

// The sanitizers report the signal and exit, each with a status of its own.
bool EndedByBusError(int status) {
  return testing::KilledBySignal(SIGBUS)(status) || testing::ExitedWithCode(1)(status) ||
         testing::ExitedWithCode(66)(status);
}

TEST(MemoryErrorDeathTest, OneOfSomebodyElseEndsTheProgramAsEver) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        const LostPage lost;
        machine::CatchMemoryError([] {});
        lost.Words().back() = 1;
      },
      EndedByBusError, "");
}

}  // namespace
