#pragma once

#include <cstddef>

// The terminal that a program's standard streams may be. For a program's main thread.
namespace os {

/// Output goes out byte by byte as it is written, and a terminal shows it as UTF-8; writing to a
/// reader that has gone away fails. For the start of a program, before it writes.
void PrepareOutput();

/// Whether standard output is a terminal that a person watches and that knows escape sequences.
bool OutputIsTerminal();

/// Columns of the terminal that standard output is; 0 when nobody knows.
std::size_t OutputColumns();

/// Whether standard input is a terminal, where a person can answer.
bool InputIsTerminal();

}  // namespace os
