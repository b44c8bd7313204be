#include <gmock/gmock.h>

#include <thread>

#include "platform/concurrency/task.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/message/ipc_message_client.h"
#include "platform/plugins_manager/plugin_interfaces.h"
#include "tests/plugins_manager/manager_functions.h"
#include "tests/plugins_manager/work.h"
#include "tests/support/process_counts.h"
#include "tests/support/spare_threads.h"
#include "tests/support/test_log.h"

namespace {

constexpr const char* kPluginClassId = "orv.plugin.sysdiagnose";

struct WorkRow {
  WorkKind kind;
  bool blocks;  // until the gate lets it go on
};

constexpr WorkRow kWork[] = {{WorkKind::PlainTasks, false},  {WorkKind::PacedTask, true},
                             {WorkKind::Detached, true},     {WorkKind::RepeatingTimer, true},
                             {WorkKind::OneShotTimer, true}, {WorkKind::StoppingTick, true},
                             {WorkKind::Closure, false},     {WorkKind::Handler, true}};

bool IsLoaded(const char* file) {
  return os::FindLoadedModule(file) != nullptr;
}

// A pin may be given up on a thread that nobody can wait for.
bool LeavesTheProcess(const char* file) {
  const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (IsLoaded(file)) {
    if (std::chrono::steady_clock::now() > limit) return false;
    std::this_thread::yield();
  }
  return true;
}

class UnloadTest : public testing::Test {
 protected:
  UnloadTest() { TestLog::Instance(); }

  // Loads the module, starts the work, waits until it is under way.
  void LoadAndStart(const WorkRow& row) {
    ASSERT_TRUE(manager.load(WORK_MODULE));
    ++loads;
    auto* const work = manager.Create<IWork>(kWorkClassId);
    ASSERT_NE(work, nullptr);
    work->Start(row.kind, signals);
    work->Release();
    if (row.kind == WorkKind::Handler) Post();
    if (!row.blocks) return;
    signals.started.receive();
    ++blocked;
  }

  void Unload() {
    for (; loads > 0; --loads) EXPECT_TRUE(manager.unload(WORK_MODULE));
  }

  void LetWorkEnd() {
    for (; blocked > 0; --blocked) signals.gate.send(0);
    DuiLib::UIMainQueue::RunPending();
    EXPECT_TRUE(LeavesTheProcess(WORK_MODULE));
    EXPECT_EQ(signals.destroyed, signals.made);
    concurrency::wait_until_idle();
    message::WaitUntilDelivered();
  }

  void Post() {
    tagIPC_MESSAGE_ITEM item;
    item.target = kWorkMessageModule;
    item.messageId = kWorkMessage;
    EXPECT_TRUE(sender.PostIPCMessage(item));
  }

  void UsePlugin() {
    ASSERT_TRUE(manager.load(PLUGIN));
    auto* const plugin = manager.Create<IQVXUIPlugin>(kPluginClassId);
    ASSERT_NE(plugin, nullptr);
    PageCreationContext context;
    context.AddPageCallback = [](int, const std::wstring&, DuiLib::CControlUI*) {};
    EXPECT_TRUE(plugin->CreateUI(&context));
    EXPECT_TRUE(plugin->MountPage(nullptr, nullptr, &context));
    EXPECT_EQ(plugin->Release(), 0);
    EXPECT_TRUE(manager.unload(PLUGIN));
  }

  // Attached `times` times, and detached as often.
  void ExpectCounts(const char* classId, std::uint32_t times) {
    const x3::RegistrationCounts counts = manager.counts(classId);
    EXPECT_EQ(counts.registered, times);
    EXPECT_EQ(counts.unregistered, times);
  }

  const ManagerFunctions manager{os::LoadModule("PluginsManager.dll")};
  Signals signals;
  CIPCMessageClient sender{1, false};
  int loads = 0;
  int blocked = 0;
};

// Each kind alone, so that nothing else keeps the module for it.
TEST_F(UnloadTest, AModuleLeavesWhenItsLastWorkHasEndedAndWasDestroyed) {
  for (const WorkRow& row : kWork) {
    SCOPED_TRACE(static_cast<int>(row.kind));
    ASSERT_NO_FATAL_FAILURE(LoadAndStart(row));
    Unload();
    const bool underWay = row.blocks || row.kind == WorkKind::Closure;
    if (underWay) {
      EXPECT_TRUE(IsLoaded(WORK_MODULE));
    }
    LetWorkEnd();
    EXPECT_GT(signals.made, 0);
  }
}

TEST_F(UnloadTest, AThousandRoundsWithWorkUnderWayLoseNothing) {
  constexpr std::uint32_t kRounds = 1000;
  const std::uint32_t before = manager.counts(kWorkClassId).registered;
  StartSpareThreads();
  ProcessCounts early{};
  for (std::uint32_t round = 1; round <= kRounds; ++round) {
    SCOPED_TRACE(round);
    for (const WorkRow& row : kWork) ASSERT_NO_FATAL_FAILURE(LoadAndStart(row));
    ASSERT_NO_FATAL_FAILURE(UsePlugin());
    Unload();
    LetWorkEnd();
    EXPECT_TRUE(LeavesTheProcess(PLUGIN));
    ExpectCounts(kWorkClassId, before + round);
    ExpectCounts(kPluginClassId, round);
    if (round == 10) early = ProcessCounts::Now();
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_EQ(ProcessCounts::Now(), early);
}

// A plugin that was loaded twice stays until both are given back.
TEST_F(UnloadTest, EachLoadIsGivenBackOnce) {
  EXPECT_FALSE(manager.load("/nowhere/libNone.so"));
  ASSERT_TRUE(manager.load(PLUGIN));
  ASSERT_TRUE(manager.load(PLUGIN));
  EXPECT_TRUE(manager.unload(PLUGIN));
  EXPECT_TRUE(IsLoaded(PLUGIN));
  EXPECT_TRUE(manager.unload(PLUGIN));
  EXPECT_FALSE(IsLoaded(PLUGIN));
  EXPECT_FALSE(manager.unload(PLUGIN));
}

}  // namespace
