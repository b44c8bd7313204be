#include "startup/program.h"

#include <cstdio>
#include <exception>

#include "common/printable.h"
#include "common/text.h"
#include "platform/concurrency/task.h"
#include "platform/message/ipc_message_client.h"
#include "platform/os/console.h"
#include "platform/util/process_store.h"

namespace startup {
namespace {

constexpr int kCannotRun = 2;

}  // namespace

void PrintError(const std::string& program, const std::string& text) {
  const std::string line = common::Printable(common::Utf8ToWide(text));
  std::fprintf(stderr, "%s: %s\n", program.c_str(), line.c_str());
}

int RunProgram(const std::string& name, const std::function<int()>& program) {
  os::PrepareOutput();
  int status = kCannotRun;
  try {
    status = program();
  } catch (const std::exception& error) {
    PrintError(name, error.what());
  }
  concurrency::wait_until_idle();
  message::WaitUntilDelivered();
  for (const std::string& notice : util::StoreNotices()) PrintError(name, notice);
  return status;
}

}  // namespace startup
