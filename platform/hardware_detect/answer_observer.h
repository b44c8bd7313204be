#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/os/export.h"

// For programs. A plugin has no part in it: what a library says in words stays out of its records.
namespace HardwareDetect {

/// What the answer of a test says in words.
struct AnswerWords {
  std::string_view call;   // as machine files name it
  std::wstring text;       // what was found
  std::wstring notTested;  // why the test could not be made; empty when it was
  int disk = -1;           // index of the disk that it was about, or -1
};

using AnswerObserver = std::function<void(const AnswerWords&)>;

/// Sets who hears each answer of a test, before the call returns and on the thread that made it.
/// An empty one ends that: once this returns, the one before is not called any more. An observer
/// must not ask or set one itself.
UTIL_API void SetAnswerObserver(AnswerObserver observer);

}  // namespace HardwareDetect
