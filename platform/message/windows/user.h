#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

// The user of this process, and what is that user's own. Any thread.
namespace message {

/// The security identifier as text ("S-1-5-..."). Throws std::runtime_error when the system does
/// not tell.
std::wstring UserSid();

/// Whether the process is this user's; nothing when the system does not tell, of one that has ended
/// for example.
std::optional<bool> IsProcessOfUser(DWORD process);

/// Whether the pipe is this user's: others cannot give away what they make.
bool IsPipeOfUser(HANDLE pipe);

/// The security of an object that this user owns and that nobody else may use.
class OnlyForUser {
 public:
  /// Throws std::runtime_error when the system does not tell who the user is.
  OnlyForUser();

  SECURITY_ATTRIBUTES* Get() { return &attributes; }

 private:
  std::unique_ptr<void, decltype(&LocalFree)> descriptor;
  SECURITY_ATTRIBUTES attributes{};
};

}  // namespace message
