#pragma once

#include <atomic>

#include "platform/concurrency/message_blocks.h"
#include "platform/plugins_manager/object.h"

// What a test and its module share: work that is under way while its module is let go of.

inline constexpr const char* kWorkClassId = "orv.test.work";
inline constexpr unsigned kWorkMessageModule = 2;
inline constexpr unsigned kWorkMessage = 1;

enum class WorkKind {
  PlainTasks,      // end by themselves, one of them by an exception of the module's own type
  PacedTask,       // with a continuation
  Detached,        // fails
  RepeatingTimer,  // into a call, whose first step stops it; both go with the module
  OneShotTimer,    // likewise, and nobody stops it
  StoppingTick,    // a tick that stops its timer
  Closure,         // waits in the UI queue
  Handler,         // of kWorkMessage; goes with the module
};

/// Lives in the test.
struct Signals {
  concurrency::unbounded_buffer<int> started;  // a value from each blocked piece of work
  concurrency::unbounded_buffer<int> gate;     // lets one of them go on
  std::atomic<int> made = 0;                   // objects of the module that work holds
  std::atomic<int> destroyed = 0;
};

class IWork : public x3::IObject {
 public:
  static constexpr const char* kInterfaceName = "IWork";

  virtual void Start(WorkKind kind, Signals& signals) = 0;
};
