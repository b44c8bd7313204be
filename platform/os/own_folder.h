#pragma once

#include <filesystem>

// Places to write to that nobody else leads astray. Every refusal is a std::runtime_error
// "<path>: <reason>". Any thread.
namespace os {

/// Makes a folder for files of this user where it is missing, and those above it, for the user
/// alone. Refuses one that somebody else could replace or fill: behind a link of another user or
/// with one in it, behind or as a folder in a sticky one (such as /tmp) that others own or may
/// write to, or sticky itself and open to others. The system's administrator is nobody else.
void MakeOwnFolder(const std::filesystem::path& folder);

/// The place that a file's name leads to, all links followed; the file itself may be missing.
/// Refuses a link of another user.
std::filesystem::path FollowOwnLinks(const std::filesystem::path& file);

}  // namespace os
