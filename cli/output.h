#pragma once

// Whether what the program prints arrives.
namespace cli {

/// Sends on its way what was printed so far. Any thread.
void FlushOutput();

/// Throws std::runtime_error, with the reason, when something that was printed did not arrive. For
/// the end of the program.
void RequireOutput();

}  // namespace cli
