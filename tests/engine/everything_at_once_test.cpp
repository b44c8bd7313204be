#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

#include "common/protocol/message_ids.h"
#include "platform/concurrency/message_blocks.h"
#include "platform/concurrency/task.h"
#include "platform/message/ipc_message_client.h"
#include "sysdiagnose/engine/diagnose_engine.h"
#include "sysdiagnose/engine/hardware_scan.h"
#include "sysdiagnose/engine/quiet_runs.h"
#include "sysdiagnose/records/ipc_helper.h"
#include "tests/support/fake_clock.h"
#include "tests/support/in_force.h"
#include "tests/support/process_counts.h"

namespace orv::sysdiagnose {
namespace {

constexpr const char* kMachine = R"({"tests": {"CVideoCardDetect::CheckDevice": 5},
    "info": {"CMemory": {"GetPartNumberbyIndex": ["M1", "M2"]}}})";
constexpr const char* kList =
    "<sysdiagnose><DetectItem id='4' name='' description=''/>"
    "<DetectItem id='7' name='' description=''/><DetectItem id='5' name='' description=''/>"
    "</sysdiagnose>";

const std::vector<enmHardwareID> kSelection{enmHardwareID::GraphicsCard, enmHardwareID::Memory,
                                            enmHardwareID::Audio};

constexpr auto kIgnore = [](auto&&...) {};

void BeginDetection(DiagnoseEngine& engine) {
  engine.BeginDetectRun(kSelection, kIgnore, kIgnore, kIgnore, kIgnore, kIgnore, kIgnore);
}

void BeginScan(HardwareScan& scan) {
  scan.Start([](auto, auto&) { return true; }, kIgnore, kIgnore);
}

// The host, asking for descriptors and reading every summary.
class Host {
 public:
  Host() : client(0x200001, false) {
    client.SubscribeIPCMessage(protocol::kHostGroup, 0);
    client.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) {
      if (item.messageId == protocol::kDescriptorAnswer) ++descriptors;
    });
  }

  ~Host() { message::WaitUntilDelivered(); }  // its handler uses the members

  void AskForDescriptor() {
    tagIPC_MESSAGE_ITEM item;
    item.target = protocol::kHostGroup;
    item.messageId = protocol::kDescriptorRequest;
    client.PostIPCMessage(item);
  }

  std::atomic<int> descriptors = 0;

 private:
  CIPCMessageClient client;
};

// Makes the runtime's threads, more than the work below needs at once, so that their number does
// not depend on which of it meets.
void WarmUp() {
  concurrency::unbounded_buffer<int> go;
  for (int i = 0; i < 32; ++i) concurrency::create_task([&go] { go.receive(); });
  for (int i = 0; i < 32; ++i) go.send(i);
  concurrency::wait_until_idle();
}

TEST(EverythingAtOnce, AScanARunAQuietRunAndMessagesDoNotDisturbEachOther) {
  const InForce inForce(kMachine);
  inForce.WriteConfig("SysdiagnoseList.xml", kList);
  FakeClock clock(1000);
  IPCHelper::Instance();
  Host host;
  DiagnoseEngine engine;
  QuietRuns quiet;
  HardwareScan scan;
  for (int round = 0; round < 20; ++round) {
    BeginDetection(engine);
    quiet.BeginDetection({}, {}, {});
    BeginScan(scan);
    host.AskForDescriptor();
    scan.Wait();
    quiet.Wait();
    engine.Wait();
    EXPECT_EQ(engine.Record().failCount, 1);
    EXPECT_EQ(quiet.OfferedRepairs().size(), 1);
  }
  concurrency::wait_until_idle();
  message::WaitUntilDelivered();
  message::WaitUntilDelivered();
  EXPECT_EQ(host.descriptors, 20);
}

// How runs ended and what they told before. Outlives the runs.
struct Tally {
  std::atomic<int> announced = 0;
  std::atomic<int> reported = 0;
  std::atomic<int> finished = 0;
  std::atomic<int> cancelled = 0;
  std::atomic<int> scans = 0;
  std::atomic<int> quietRuns = 0;
};

// Asks for a cancel again and again while a run is begun, and once more behind that.
class Canceller {
 public:
  explicit Canceller(std::function<void()> cancel)
      : thread([this, cancel = std::move(cancel)] {
          while (!begun) cancel();
          cancel();
          asked->send(1);
        }) {}

  ~Canceller() {
    begun = true;
    thread.join();
  }
  Canceller(const Canceller&) = delete;
  Canceller& operator=(const Canceller&) = delete;

  // Filled behind the last cancel. May outlive the canceller.
  const std::shared_ptr<concurrency::unbounded_buffer<int>> asked =
      std::make_shared<concurrency::unbounded_buffer<int>>();

 private:
  std::atomic<bool> begun = false;
  std::thread thread;
};

// A run whose first item waits for the last cancel therefore ends cancelled, wherever that came.
void BeginCancelled(DiagnoseEngine& engine, Tally& tally) {
  const Canceller canceller([&engine] { engine.CancelDetect(); });
  const auto wait = [&tally, asked = canceller.asked, first = true](auto, auto&) mutable {
    ++tally.announced;
    if (std::exchange(first, false)) asked->receive();
  };
  engine.BeginDetectRun(
      kSelection, wait, [&tally](auto, auto&) { ++tally.reported; }, kIgnore, kIgnore,
      [&tally] { ++tally.cancelled; }, [&tally](int&, int&) { ++tally.finished; });
}

void BeginCounted(DiagnoseEngine& engine, Tally& tally) {
  engine.BeginDetectRun(
      kSelection, [&tally](auto, auto&) { ++tally.announced; },
      [&tally](auto, auto&) { ++tally.reported; }, kIgnore, kIgnore,
      [&tally] { ++tally.cancelled; }, [&tally](int&, int&) { ++tally.finished; });
}

TEST(EverythingAtOnce, AThousandStartsCancelledOrTornDownAtOnceEndOnceAndLeaveNothing) {
  constexpr int kRounds = 999;
  const InForce inForce(kMachine);
  inForce.WriteConfig("SysdiagnoseList.xml", kList);
  FakeClock clock(1000);
  WarmUp();
  ProcessCounts early{};
  Tally tally;
  for (int round = 0; round < kRounds; ++round) {
    {
      DiagnoseEngine engine;
      QuietRuns quiet;
      HardwareScan scan;
      std::optional<Canceller> others;
      if (round % 3 == 1) {
        others.emplace([&] {
          scan.Cancel();
          quiet.RequestStop();
        });
      }
      round % 3 == 0 ? BeginCancelled(engine, tally) : BeginCounted(engine, tally);
      quiet.BeginDetection({}, [&tally] { ++tally.quietRuns; }, {});
      scan.Start([](auto, auto&) { return true; }, [&tally](auto) { ++tally.scans; },
                 [&tally] { ++tally.scans; });
    }
    concurrency::wait_until_idle();
    message::WaitUntilDelivered();
    if (round == 10) early = ProcessCounts::Now();
  }
  EXPECT_EQ(ProcessCounts::Now(), early);
  EXPECT_EQ(tally.cancelled, kRounds / 3);
  EXPECT_EQ(tally.finished, kRounds / 3 * 2);
  EXPECT_EQ(tally.reported, tally.announced);
  EXPECT_EQ(tally.scans, kRounds);
  EXPECT_EQ(tally.quietRuns, kRounds);
}

}  // namespace
}  // namespace orv::sysdiagnose
