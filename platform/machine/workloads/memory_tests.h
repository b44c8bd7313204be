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

/// Runs one of the memory tests: in every pass writes all words, lets some tests work on them in
/// place, then reads all back. The first fault ends it. `beforeVerify` is called in every pass
/// before the words are read back.
std::optional<MemoryFault> FindMemoryFault(TestCall test, std::span<volatile std::uint64_t> words,
                                           const std::function<void()>& beforeVerify = {});

/// The same as a test library answers it: code 0 or, with a text that names the place, 1. Memory
/// that has lost its content beyond repair, by the system's report, is such a place too.
TestAnswer TestMemory(TestCall test, std::span<volatile std::uint64_t> words,
                      const std::function<void()>& beforeVerify = {});

}  // namespace machine
