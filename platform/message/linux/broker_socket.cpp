#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>

#include "common/path_text.h"
#include "platform/message/broker_connection.h"

namespace message {
namespace {

namespace fs = std::filesystem;

bool IsOwnFolder(const fs::path& folder) {
  struct stat status {};
  return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         status.st_uid == geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

// The folder for the sockets of this user, which nobody else can enter: the session's runtime
// folder, else one made in the temporary folder.
fs::path RuntimeFolder() {
  const char* session = std::getenv("XDG_RUNTIME_DIR");
  if (session != nullptr && *session == '/' && IsOwnFolder(session)) return session;
  fs::path folder = "/tmp/sysdiagnose-" + std::to_string(geteuid());
  if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
    throw std::runtime_error(common::PathText(folder) + ": the folder cannot be made: " +
                             std::generic_category().message(errno));
  if (!IsOwnFolder(folder))
    throw std::runtime_error(common::PathText(folder) +
                             ": the folder does not belong to this user alone");
  return folder;
}

}  // namespace

fs::path DefaultBrokerSocket() {
  return RuntimeFolder() / "sysdiagnose.sock";
}

}  // namespace message
