#pragma once

#include <chrono>
#include <functional>

// The threads that work in the background. One rests while it waits for a Wakeup: on a clock, for
// a value, for other work. Waiting for anything else counts as work.
namespace os {

/// Starts a worker, which counts as working from now on. For the utility library: a thread is known
/// as a worker to the module that keeps the process's state. Throws std::system_error when there
/// can be no more threads.
void StartWorker(std::function<void()> body);

/// Waits until every worker rests. Not on a worker.
void WaitUntilWorkersRest();

/// The same until this moment of real time; whether they rest. Not on a worker.
bool WorkersRestBefore(std::chrono::steady_clock::time_point limit);

namespace detail {
/// The calling thread is about to rest; false, and nothing is counted, when it is no worker.
bool WorkerRests();

/// Whether this module started the calling thread as a worker.
bool IsWorkerOfThisModule();

/// A worker that rested goes on. Any thread.
void WorkerGoesOn();
}  // namespace detail

}  // namespace os
