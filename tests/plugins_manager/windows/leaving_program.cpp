// leaving_program: loads a plugin whose work of every kind is under way, keeps logging and posting
// on other threads, and returns from main.

#include <thread>

#include "common/log.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/message/ipc_message_client.h"
#include "tests/plugins_manager/manager_functions.h"
#include "tests/plugins_manager/work.h"
#include "tests/support/test_log.h"

namespace {

constexpr int kBusyTasks = 3;

void LogAndPostForever() {
  CIPCMessageClient client(1, false);
  tagIPC_MESSAGE_ITEM item;
  item.target = kWorkMessageModule;
  item.messageId = kWorkMessage + 1;
  for (;;) {
    client.PostIPCMessage(item);
    concurrency::create_task([] {});
    COMMON_LOG_INFO(log4cxx::Logger::getLogger("orv.test"), "posted");
  }
}

void Start(IWork& work, WorkKind kind, Signals& signals) {
  work.Start(kind, signals);
  if (kind == WorkKind::PlainTasks || kind == WorkKind::Closure || kind == WorkKind::Handler)
    return;
  signals.started.receive();
}

}  // namespace

int main() {
  TestLog::Instance();
  static Signals& signals = *new Signals;
  const ManagerFunctions manager(os::LoadModule("PluginsManager.dll"));
  if (!manager.load(WORK_MODULE) || !manager.load(PLUGIN)) return 1;
  auto* const work = manager.Create<IWork>(kWorkClassId);
  if (work == nullptr) return 2;
  for (int kind = 0; kind <= static_cast<int>(WorkKind::Handler); ++kind)
    Start(*work, static_cast<WorkKind>(kind), signals);
  for (int i = 0; i < kBusyTasks; ++i) concurrency::create_task(&LogAndPostForever);
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  return 0;
}
