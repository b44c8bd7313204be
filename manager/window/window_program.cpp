#include "manager/window/window_program.h"

#include <chrono>
#include <optional>
#include <thread>

#include "manager/host/message_hub.h"
#include "manager/host/plugin.h"
#include "manager/window/single_instance.h"
#include "manager/window/window_manager.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/os/interrupt.h"
#include "platform/os/process_end.h"
#include "startup/interruptible.h"
#include "startup/program.h"

namespace manager {
namespace {

using namespace std::chrono_literals;
using DuiLib::UIMainQueue;

constexpr const char* kProgram = "laptop-manager";
constexpr int kEndedAtOnce = 3;
constexpr auto kForService = 20s;  // to answer
constexpr auto kForWork = 4s;      // of the plugin, to end
constexpr auto kForAll = 4800ms;   // from the closing of the window to the end of the process

int RaiseOther() {
  if (RaiseRunningManager()) return kWindowClosed;
  startup::PrintError(kProgram, "another manager has this data folder and shows no window");
  return kManagerSilent;
}

// What a library does may keep any thread, this one included.
void EndWithin(std::chrono::milliseconds limit, int status) {
  std::thread([limit, status] {
    std::this_thread::sleep_for(limit);
    os::EndProcess(status);
  }).detach();
}

void QuitWhenInterrupted(DuiLib::Desktop& desktop) {
  std::thread([&desktop] {
    os::WaitForInterrupt();
    UIMainQueue::dispatch([&desktop] { desktop.Quit(); });
  }).detach();
}

// It was cancelled; closures that it waits for go on.
bool DoesWorkEnd() {
  const auto end = std::chrono::steady_clock::now() + kForWork;
  while (!concurrency::is_idle()) {
    if (std::chrono::steady_clock::now() > end) return false;
    UIMainQueue::RunPending();
    std::this_thread::sleep_for(5ms);
  }
  UIMainQueue::RunPending();
  return true;
}

void Leave(Manager& manager) {
  EndWithin(kForAll, kWindowClosed);
  const std::unique_ptr<Plugin> plugin = manager.TakePlugin();
  UIMainQueue::RunPending();
  if (!DoesWorkEnd()) os::EndProcess(kWindowClosed);
}

}  // namespace

int RunWindow(const ManagerOptions& options, Settings settings, const std::string& language) {
  std::string reason;
  DuiLib::Desktop* const desktop = DuiLib::Desktop::Load(reason);
  if (desktop == nullptr) {
    startup::PrintError(kProgram, "no window can be shown: " + reason);
    return kNoDisplay;
  }
  std::optional<MessageHub> hub;
  try {
    hub.emplace(options, std::chrono::steady_clock::now() + kForService);
  } catch (const message::BrokerRuns&) {
    return RaiseOther();
  }
  startup::Interruptible interruptible(kEndedAtOnce);
  QuitWhenInterrupted(*desktop);
  DuiLib::WindowSystem::SetInForce(desktop);
  WindowManager window(*desktop, settings, language, options.allowRestart);
  UIMainQueue::dispatch(
      [&window, file = Plugin::FileOf(options.plugin)] { window.LoadPlugin(file); });
  desktop->Run();
  WriteSettings(settings);
  Leave(window.GetManager());
  return kWindowClosed;
}

}  // namespace manager
