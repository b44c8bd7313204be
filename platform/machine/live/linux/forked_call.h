#pragma once

#include <chrono>
#include <functional>
#include <optional>

// Calls into the kernel that may not come back, or that must come to their end whatever becomes of
// this program, are made by a child.
namespace machine {

/// How long the child of a question may take.
inline constexpr std::chrono::seconds kQuestionLimit{3};

/// How long the child of a repair is waited for.
inline constexpr std::chrono::seconds kRepairLimit{20};

enum class AfterLimit { Kill, LetFinish };

/// What `body`, run in a child of this process, returns: 0 to 255. Nothing when there was no child
/// to be had, when a signal ended it or when it has not come to its end within `limit`; it is not
/// waited for then. A child that may finish is beyond the reach of the terminal and of requests to
/// end, and goes on after the end of this process.
///
/// Other threads may have held any lock when the child began: `body` makes system calls and nothing
/// else. It leaves results in a SharedAnswer. Any thread.
std::optional<int> RunForked(const std::function<int()>& body, AfterLimit afterLimit,
                             std::chrono::milliseconds limit);

/// Memory that a child of this process shares with it.
class SharedMemory {
 public:
  explicit SharedMemory(std::size_t bytes);
  SharedMemory(const SharedMemory&) = delete;
  SharedMemory& operator=(const SharedMemory&) = delete;
  ~SharedMemory();

  void* Get() const { return memory; }

 private:
  std::size_t size;
  void* memory;
};

/// A plain value, all zeros at first, in which a child leaves its answer. Throws std::bad_alloc.
template <typename Answer>
class SharedAnswer {
 public:
  Answer& operator*() const { return *static_cast<Answer*>(memory.Get()); }
  Answer* operator->() const { return &**this; }

 private:
  SharedMemory memory{sizeof(Answer)};
};

}  // namespace machine
