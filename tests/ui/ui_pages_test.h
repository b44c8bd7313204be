#pragma once

#include <gmock/gmock.h>

#include <sstream>

#include "common/protocol/ipc_serialize.h"
#include "common/protocol/message_ids.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/layout/tab_layout.h"
#include "platform/duilib/window/headless_window.h"
#include "platform/message/ipc_message_client.h"
#include "sysdiagnose/ui/host/page_index.h"
#include "tests/support/fake_clock.h"
#include "tests/support/in_force.h"

namespace orv::sysdiagnose {

/// The pump of the host's window.
class HostPump final : public DuiLib::CNotifyPump {
 public:
  HostPump() = default;
};

/// A host's window on a machine of its own, with layouts that hold no more than a test names.
class UiPagesTest : public testing::Test {
 protected:
  explicit UiPagesTest(const std::string& machineJson = "{}") : inForce(machineJson) {
    window.Manager().SetNotifyPump(&pump);
    window.Manager().SetSkinFolder(inForce.folder.path / "res");
    WriteLayout("index",
                "<Container name='SysdiagnoseUIMain'>"
                "<TabLayout name='tblSysdiagnoseContent'/></Container>");
    for (const char* page : {"archievement", "scan", "detect"})
      WriteLayout(page, "<Container name='" + std::string(page) + "'/>");
  }

  // Names are read from the machine as long as it is in force.
  ~UiPagesTest() override { concurrency::wait_until_quiet(); }

  void WriteLayout(const std::string& name, const std::string& xml) const {
    WriteText(inForce.folder.path / "res/layout" / ("sysdiagnose_" + name + ".xml"), xml);
  }
  void RemoveLayout(const std::string& name) const {
    std::filesystem::remove(inForce.folder.path / "res/layout" / ("sysdiagnose_" + name + ".xml"));
  }

  /// The ids of the events since the last call, with blanks between.
  std::string Events() {
    std::ifstream file(inForce.folder.path / "data/events.jsonl");
    std::string ids;
    std::size_t number = 0;
    for (std::string line; std::getline(file, line); ++number) {
      if (number < seenEvents) continue;
      ids += (ids.empty() ? "" : " ") + line.substr(6, 9);
    }
    seenEvents = number;
    return ids;
  }

  /// Runs the pages and their workers for so long, every worker until it waits.
  void RunFor(int milliseconds) {
    constexpr int kTick = 20;
    for (int time = 0; time <= milliseconds; time += kTick) {
      do {
        concurrency::wait_until_quiet();
      } while (DuiLib::UIMainQueue::RunPending() != 0);
      if (time < milliseconds) window.Tick(std::chrono::milliseconds(kTick));
    }
  }

  template <typename Class = DuiLib::CControlUI>
  Class& Get(const std::wstring& name) {
    auto* const control = dynamic_cast<Class*>(window.Manager().FindControl(name));
    if (control == nullptr) throw std::runtime_error("no such control");
    return *control;
  }

  InForce inForce;
  FakeClock clock{1000};
  HostPump pump;
  DuiLib::HeadlessWindow window{DuiLib::Size{1040, 664}};

 private:
  std::size_t seenEvents = 0;
};

}  // namespace orv::sysdiagnose
