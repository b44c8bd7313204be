#pragma once

#include <functional>
#include <string>

namespace startup {

/// Writes "<program>: <text>" to standard error, one line, control characters as "?".
void PrintError(const std::string& program, const std::string& text);

/// The body of a program's main: runs it, then waits until what it started in the background has
/// ended and its messages are delivered, and says which damaged store was set aside. Returns its
/// exit status; 2, with one line on standard error, when it throws.
int RunProgram(const std::string& name, const std::function<int()>& program);

}  // namespace startup
