#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

#include "common/protocol/message_ids.h"
#include "manager/host/manager_tabs.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/duilib/window/headless_desktop.h"
#include "platform/duilib/window/headless_window.h"
#include "platform/message/ipc_message_client.h"
#include "platform/os/virtual_clock.h"
#include "platform/plugins_manager/plugin_interfaces.h"
#include "tests/plugins_manager/manager_functions.h"
#include "tests/support/in_force.h"
#include "tests/support/process_counts.h"
#include "tests/support/spare_threads.h"
#include "tests/support/test_log.h"

namespace {

constexpr const char* kClassId = "orv.plugin.sysdiagnose";
constexpr const char* kCategories =
    "<sysdiagnose><DetectItem id='4' name='' description=''/>"
    "<DetectItem id='10' name='' description=''/></sysdiagnose>";
// One test takes its time, one fails with an offer to repair it.
constexpr const char* kMachine =
    R"({"shelf": ["orv_plugin_hardware"], "info": {"CCpu": {"GetCpuName": "Sample CPU"},
    "CKeyBoard": {"GetKeyBoardName": "Keys"}},
    "tests": {"CKeyBoardDetect::DetetctFilterKey": {"code": 1, "delayMs": 700},
              "CKeyBoardDetect::DetetctHotKey": {"throws": "library fault"}}})";

// A host that shows the plugin's own pages, and takes it away while they are at work.
class PluginRoundsTest : public testing::Test {
 protected:
  PluginRoundsTest() {
    TestLog::Instance();
    inForce.WriteConfig("SysdiagnoseList.xml", kCategories);
  }

  void Load() {
    ASSERT_TRUE(pluginsManager.load(PLUGIN));
    plugin = pluginsManager.Create<IQVXUIPlugin>(kClassId);
    ASSERT_NE(plugin, nullptr);
    Mount();
  }

  void Mount() {
    PageCreationContext context;
    context.paintManager = &window.Manager();
    context.notifyPump = &tabs;
    context.AddPageCallback = [this](int, const std::wstring& title, DuiLib::CControlUI* page) {
      tabs.Add(title, page);
    };
    ASSERT_TRUE(plugin->CreateUI(&context));
    ASSERT_TRUE(tabs.Enter(0));
  }

  void StartScan() { window.Click(L"btnSysdiagnoseScan"); }

  void StartRun() {
    StartScan();
    const DuiLib::CControlUI* const button = window.Manager().FindControl(L"btnSysdiagnoseDetect");
    ASSERT_NE(button, nullptr);
    for (int step = 0; !button->IsUsable(); ++step) {
      ASSERT_LT(step, 10'000);
      Step();
    }
    window.Click(L"btnSysdiagnoseDetect");
  }

  // A start, what asks for repairs in between, and the answer that the host waits for.
  void StartQuietRun() { Post(protocol::kDetectRequest, {0}); }

  void PostMessages() {
    for (int i = 0; i < 10; ++i) {
      Post(protocol::kDescriptorRequest, {});
      Post(protocol::kLogsAvailableAnswer, {1});
      Post(protocol::kRepairRequest, {1, 0, 0, 0, 10, 0, 0, 0});
    }
  }

  // Everything at once: the second pages are mounted while the run of the first ends.
  void StartAll() {
    ASSERT_NO_FATAL_FAILURE(StartRun());
    StartQuietRun();
    tabs.KeepFirst(0);
    ASSERT_NO_FATAL_FAILURE(Mount());
    StartScan();
    StartQuietRun();
    PostMessages();
  }

  void Unload() {
    tabs.KeepFirst(0);
    EXPECT_EQ(plugin->Release(), 0);
    EXPECT_TRUE(pluginsManager.unload(PLUGIN));
  }

  // A pin may be given up on a thread that nobody can wait for.
  void ExpectThatItLeaves() {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (os::FindLoadedModule(PLUGIN) != nullptr) {
      ASSERT_LT(std::chrono::steady_clock::now(), limit) << "the plugin stays in the process";
      Step();
    }
    message::WaitUntilDelivered();
    concurrency::wait_until_idle();
    EXPECT_EQ(DuiLib::UIMainQueue::RunPending(), 0u) << "a closure was left behind";
    EXPECT_EQ(clock.NextDue(), std::nullopt) << "work still waits";
  }

  // What is to be done now, then on to the next moment that something waits for.
  void Step() {
    do {
      message::WaitUntilDelivered();
      concurrency::wait_until_quiet();
    } while (DuiLib::HeadlessDesktop::Instance().RunWhatIsDue() != 0);
    constexpr auto kNever = std::chrono::nanoseconds::max();
    const auto due = std::min(DuiLib::HeadlessDesktop::Instance().NextDue().value_or(kNever),
                              clock.NextDue().value_or(kNever));
    if (due != kNever) clock.WakeNext(due);
  }

  void Post(std::uint32_t id, const std::vector<std::uint8_t>& body) {
    tagIPC_MESSAGE_ITEM item;
    item.target = protocol::kPluginModule;
    item.messageId = id;
    item.dataLength = static_cast<std::uint32_t>(body.size());
    item.data = body.data();
    EXPECT_TRUE(host.PostIPCMessage(item));
  }

  void Round(const std::function<void()>& start, int stepsBefore) {
    ASSERT_NO_FATAL_FAILURE(Load());
    ASSERT_NO_FATAL_FAILURE(start());
    for (int step = 0; step < stepsBefore; ++step) Step();
    Unload();
    if (os::FindLoadedModule(PLUGIN) != nullptr) ++kept;
    ASSERT_NO_FATAL_FAILURE(ExpectThatItLeaves());
    const x3::RegistrationCounts counts = pluginsManager.counts(kClassId);
    EXPECT_EQ(counts.registered, ++rounds);
    EXPECT_EQ(counts.unregistered, rounds);
    ASSERT_FALSE(HasFailure());
  }

  InForce inForce{kMachine};
  os::VirtualClock clock{1'700'000'000};
  const ManagerFunctions pluginsManager{os::LoadModule("PluginsManager.dll")};
  DuiLib::HeadlessWindow window{DuiLib::Size{1040, 720}};
  manager::ManagerTabs tabs{window.Manager()};
  CIPCMessageClient host{protocol::kHostModule, false};
  IQVXUIPlugin* plugin = nullptr;
  std::uint32_t rounds = pluginsManager.counts(kClassId).registered;
  int kept = 0;  // rounds in which its work kept the plugin for a while
};

// Each kind alone, so that nothing else keeps the plugin for it.
TEST_F(PluginRoundsTest, ThePluginLeavesAtEveryMomentOfItsWork) {
  const struct {
    const char* name;
    std::function<void()> start;
  } kinds[] = {{"nothing", [] {}},
               {"a scan", [this] { StartScan(); }},
               {"a run", [this] { StartRun(); }},
               {"a quiet run", [this] { StartQuietRun(); }},
               {"messages", [this] { PostMessages(); }}};
  constexpr int kMoments = 12;
  for (const auto& kind : kinds)
    for (int steps = 0; steps < kMoments; ++steps) {
      SCOPED_TRACE(testing::Message() << kind.name << " after " << steps << " steps");
      ASSERT_NO_FATAL_FAILURE(Round(kind.start, steps));
    }
}

TEST_F(PluginRoundsTest, AThousandRoundsWithPagesAtWorkLoseNothing) {
  constexpr int kEarly = 10;
  StartSpareThreads();
  ProcessCounts early{};
  for (int round = 1; round <= ROUNDS; ++round) {
    SCOPED_TRACE(round);
    ASSERT_NO_FATAL_FAILURE(Round([this] { StartAll(); }, 0));
    if (round == kEarly) early = ProcessCounts::Now();
  }
  EXPECT_EQ(ProcessCounts::Now(), early);
  EXPECT_EQ(kept, ROUNDS);
}

}  // namespace
