#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "platform/machine/interface/calls.h"
#include "platform/machine/interface/machine.h"

namespace machine {

/// A word that does not read as it was left.
struct MemoryFault {
  std::size_t offset = 0;  // bytes from the start of the tested memory
  std::uint64_t expected = 0;
  std::uint64_t found = 0;
};

/// As much memory as is tested still when tests are cut short, in bytes.
inline constexpr std::size_t kCutShortSize = std::size_t{4} << 20;

/// Runs one of the memory tests: in every pass writes all words, lets some tests work on them in
/// place, then reads all back. The first fault ends it. `beforeVerify` is called in every pass
/// before the words are read back. When tests are cut short meanwhile, the rest is done of the
/// first kCutShortSize bytes alone; `words` are those that went through all of it.
std::optional<MemoryFault> FindMemoryFault(TestCall test, std::span<volatile std::uint64_t>& words,
                                           const std::function<void()>& beforeVerify = {});

/// The same as a test library answers it: code 0 or, with a text that names the place, 1. Memory
/// that has lost its content beyond repair, by the system's report, is such a place too.
TestAnswer TestMemory(TestCall test, std::span<volatile std::uint64_t>& words,
                      const std::function<void()>& beforeVerify = {});

/// Tests as much memory as fits the machine, or kCutShortSize bytes when tests are cut short; the
/// answer says so then, or that the system gives none.
TestAnswer TestFittingMemory(TestCall test, const std::function<void()>& beforeVerify = {});

}  // namespace machine
