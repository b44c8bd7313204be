#include "platform/machine/live/apart.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <initializer_list>

namespace machine {

int WorkApart(int (*work)(const void* context), const void* context) {
  const pid_t worker = fork();
  if (worker < 0) return 1;
  if (worker == 0) {
    setsid();
    for (const int ending : {SIGHUP, SIGINT, SIGTERM, SIGPIPE}) std::signal(ending, SIG_IGN);
    _exit(work(context));
  }
  int status = 0;
  while (waitpid(worker, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

}  // namespace machine
