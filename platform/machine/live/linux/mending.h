#pragma once

#include <functional>

#include "platform/machine/interface/machine.h"

namespace machine {

/// The outcome of a repair by the test that it was made for: makes the test again until it passes,
/// for up to ten seconds of the clock in force, for devices need time. Failed with the test's own
/// code and words.
RepairAnswer TestAgain(const std::function<TestAnswer()>& test);

/// A repair that could not be made.
RepairAnswer FailedRepair(std::wstring reason);

/// A reason in words for an error number of the system; a missing right is called so.
std::wstring ReasonOf(int error);

}  // namespace machine
