#pragma once

#include <string>

namespace os {

enum class InputEnd {
  Line,       // a line was read, or what stood before the end of the input
  NoMore,     // the input ends, or cannot be read
  Interrupt,  // an interrupt came since OnInterrupt was last called
};

/// Reads one line of standard input, without its end, and no byte behind it. An interrupt ends the
/// wait at once. For a program's main thread, when nothing else reads standard input.
InputEnd ReadInputLine(std::string& line);

}  // namespace os
