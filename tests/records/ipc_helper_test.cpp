#include "sysdiagnose/records/ipc_helper.h"

#include <gmock/gmock.h>

#include <thread>

#include "common/protocol/message_ids.h"
#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t kHostModule = 0x200001;

// The host's end: posts requests to the plugin and keeps what reaches its group or itself.
class Host {
 public:
  Host() : client(kHostModule, false) {
    client.SubscribeIPCMessage(protocol::kHostGroup, 0);
    client.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) {
      received.push_back(item);
      bodies.emplace_back(item.data, item.data + item.dataLength);
    });
  }

  ~Host() { message::WaitUntilDelivered(); }  // its handler uses the members

  void Send(std::uint32_t target, std::uint32_t messageId, const Bytes& body) {
    tagIPC_MESSAGE_ITEM item;
    item.target = target;
    item.messageId = messageId;
    item.dataLength = static_cast<std::uint32_t>(body.size());
    item.data = body.data();
    client.PostIPCMessage(item);
    message::WaitUntilDelivered();
    message::WaitUntilDelivered();  // the answers, which were posted meanwhile
  }

  std::vector<tagIPC_MESSAGE_ITEM> received;
  std::vector<Bytes> bodies;

 private:
  CIPCMessageClient client;
};

std::wstring ReadText(protocol::CIPCDataIO& io) {
  std::wstring text;
  protocol::Read(io, text);
  return text;
}

TEST(IpcHelper, OneByteRequestsActOnlyAtTheirExactLength) {
  const InForce inForce;
  IPCHelper helper;
  Host host;
  std::vector<bool> starts;
  std::vector<int> answers;
  host.Send(protocol::kPluginModule, protocol::kDetectRequest, {0});  // no slot yet
  helper.SetDetectSlot([&](bool start) { starts.push_back(start); });
  helper.SetLogsAvailableSlot([&](std::uint8_t available) { answers.push_back(available); });
  for (const Bytes& body : {Bytes{}, Bytes{0, 0}, Bytes{0}, Bytes{1}, Bytes{7}})
    host.Send(protocol::kPluginModule, protocol::kDetectRequest, body);
  for (const Bytes& body : {Bytes{}, Bytes{1}, Bytes{0}})
    host.Send(protocol::kPluginModule, protocol::kLogsAvailableAnswer, body);
  EXPECT_THAT(starts, testing::ElementsAre(true, false, false));
  EXPECT_THAT(answers, testing::ElementsAre(1, 0));
}

TEST(IpcHelper, AMalformedBodyCallsNothingAndTheNextGoodOneWorks) {
  const InForce inForce;
  IPCHelper helper;
  Host host;
  std::vector<std::vector<std::int32_t>> repairs;
  helper.SetRepairSlot([&](const auto& categories) { repairs.push_back(categories); });
  for (const Bytes& body : {Bytes{}, Bytes{2, 0, 0, 0, 0, 0, 0, 0}, Bytes{1, 0, 0, 0, 1, 0, 0, 0},
                            Bytes{1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 1, 0, 0, 0}})
    host.Send(protocol::kPluginModule, protocol::kRepairRequest, body);
  EXPECT_TRUE(repairs.empty());
  host.Send(protocol::kPluginModule, protocol::kRepairRequest,
            {1, 0, 0, 0, 1, 0, 0, 0, 7, 0, 0, 0});
  EXPECT_THAT(repairs, testing::ElementsAre(testing::ElementsAre(7)));
}

TEST(IpcHelper, LogItemsReachTheirSlotUntilItIsCleared) {
  const InForce inForce;
  IPCHelper helper;
  Host host;
  int calls = 0;
  std::vector<protocol::SYSTEM_DETECT_LOG_ITEM> received;
  helper.SetLogListSlot([&](const auto& items) {
    ++calls;
    received = items;
    helper.SetLogListSlot({});  // from inside: the mutex is recursive
  });
  const Bytes body{1, 0, 0, 0, 1, 0, 0, 0, 4, 0, 0, 0, 2, 0, 0, 0, 'a', 'b'};
  host.Send(protocol::kPluginModule, protocol::kLogListAnswer, body);
  host.Send(protocol::kPluginModule, protocol::kLogListAnswer, body);
  EXPECT_EQ(calls, 1);
  EXPECT_THAT(received, testing::ElementsAre(protocol::SYSTEM_DETECT_LOG_ITEM{4, "ab"}));
}

TEST(IpcHelper, TheDescriptorGoesToWhoAskedForIt) {
  const InForce inForce;
  IPCHelper helper;
  Host host;
  host.Send(protocol::kHostGroup, 0x200008, {});
  EXPECT_TRUE(host.received.empty());
  host.Send(protocol::kHostGroup, protocol::kDescriptorRequest, {});
  ASSERT_EQ(host.received.size(), 1);
  EXPECT_EQ(host.received[0].target, kHostModule);
  EXPECT_EQ(host.received[0].source, protocol::kPluginModule);
  EXPECT_EQ(host.received[0].messageId, protocol::kDescriptorAnswer);
  EXPECT_EQ(host.received[0].replyId, protocol::kNone);

  protocol::CIPCDataIO io(host.bodies[0].data(), static_cast<std::uint32_t>(host.bodies[0].size()));
  EXPECT_EQ(io.ReadUInt32(), 1);
  EXPECT_EQ(ReadText(io), L"file='drawable/hardware/index_hardware.png'");
  EXPECT_EQ(ReadText(io), L"file='drawable/hardware/doctor_module.png'");
  EXPECT_EQ(ReadText(io), L"IDS_HARDWARE_DETECT");
  EXPECT_EQ(io.ReadUInt32(), 0x390000);
  EXPECT_EQ(io.ReadUInt32(), 0x390020);
  EXPECT_EQ(io.ReadUInt32(), 0x390021);
  std::uint16_t interval = 0;
  protocol::Read(io, interval);
  EXPECT_EQ(interval, 60000);
  EXPECT_THROW(io.RequireBytes(1), std::runtime_error);
}

TEST(IpcHelper, SummariesCountAbnormalEntriesAndFollowTheMode) {
  const InForce inForce;
  IPCHelper helper;
  Host host;
  DiagnoseSummary summary;
  summary.items.resize(3);
  summary.items[1].state = DisplayState::Normal;
  helper.PostSummary(summary, IPCHelper::ModeNone);
  EXPECT_EQ(summary.headline, L"IDS_HARDWARE_DETECT_DOCTOR_INDEX_DESCRIPTION_OK");
  EXPECT_EQ(summary.resultText, L"IDS_HARDWARE_DETECT_DOCTOR_ABNORMAL_RESULT");
  summary.items[0].state = summary.items[2].state = DisplayState::Abnormal;
  helper.PostSummary(summary, IPCHelper::ModeQuiet);
  helper.PostSummary(summary, IPCHelper::ModeRun);
  message::WaitUntilDelivered();
  EXPECT_EQ(summary.abnormalCount, 2);
  EXPECT_EQ(summary.headline, L"IDS_HARDWARE_DETECT_DOCTOR_ABNORMAL_NUM");
  EXPECT_EQ(summary.resultText, L"IDS_HARDWARE_DETECT_DOCTOR_ABNORMAL_NUM(2)");
  ASSERT_EQ(host.received.size(), 2);
  EXPECT_EQ(host.received[0].messageId, protocol::kQuietSummary);
  EXPECT_EQ(host.received[1].messageId, protocol::kRunSummary);
}

TEST(IpcHelper, SlotsMayChangeWhileMessagesArrive) {
  const InForce inForce;
  IPCHelper helper;
  Host host;
  std::thread setter([&helper] {
    for (int i = 0; i < 500; ++i)
      helper.SetDetectSlot(i % 2 == 0 ? IPCHelper::DetectSlot([](bool) {}) : nullptr);
  });
  for (int i = 0; i < 500; ++i) host.Send(protocol::kPluginModule, protocol::kDetectRequest, {0});
  setter.join();
  int calls = 0;
  helper.SetDetectSlot([&calls](bool) { ++calls; });
  host.Send(protocol::kPluginModule, protocol::kDetectRequest, {0});
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace orv::sysdiagnose
