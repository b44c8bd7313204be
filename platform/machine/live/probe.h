#pragma once

#include "platform/os/export.h"

namespace machine {

/// The program hardware-probe: makes one call of the live machine and prints its answer as a
/// machine file. Words: the system root and the data folder, both
/// may be empty, `test` or `repair`, the call's name, and
/// the disk or the code that it is about. Returns the exit status, 2 for words that it does not
/// know.
UTIL_API int AnswerAsProbe(int count, const char* const* words);

}  // namespace machine
