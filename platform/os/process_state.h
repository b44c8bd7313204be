#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <filesystem>
#include <mutex>

namespace os {

class Clock;

/// What a program or a test sets for the whole process, and what counts over all of it.
///
/// This folder's code is linked into every module that uses it, and one object serves them all:
/// that of the utility library where it is loaded, else the module's own. A module finds it by the
/// name of the function that gives it away, so that it can live with another utility library.
struct ProcessState {
  /// Made by the module that owns it.
  ProcessState();

  const void* const home;              // an address in that module
  bool (*const isWorker)() = nullptr;  // by that module's own mark of the calling thread

  std::atomic<Clock*> clock = nullptr;

  // Set at a program's start, before other threads run.
  std::filesystem::path configuration;
  std::filesystem::path data;
  std::filesystem::path systemRoot;
  bool isMachineDescribed = false;

  // Of the workers, those that work.
  std::mutex workersMutex;
  std::condition_variable noneWorks;
  std::size_t working = 0;  // guarded by workersMutex
};

/// The state of this process. Any thread.
ProcessState& State();

/// Type and name of the function by which the utility library gives its state away.
using ProcessStateFunction = ProcessState* (*)();
inline constexpr const char* kProcessStateFunction = "orvProcessState";

}  // namespace os
