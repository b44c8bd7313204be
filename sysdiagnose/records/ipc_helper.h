#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "common/protocol/log_item.h"
#include "platform/message/ipc_message_client.h"
#include "sysdiagnose/records/diagnose_summary.h"
#include "sysdiagnose/records/ipc_server_proc.h"

namespace orv::sysdiagnose {

/// The plugin's end of the message channel: answers the host's request for a descriptor, hands
/// decoded requests to the slots that other parts set, and posts summaries.
///
/// Slots are called on the delivery thread with the helper's recursive mutex held; an empty slot
/// drops its message. All functions may be called from any thread.
class IPCHelper {
 public:
  using DetectSlot = std::function<void(bool start)>;
  using RepairSlot = std::function<void(const std::vector<std::int32_t>& categories)>;
  using LogsAvailableSlot = std::function<void(std::uint8_t available)>;
  using LogItems = std::vector<protocol::SYSTEM_DETECT_LOG_ITEM>;
  using LogListSlot = std::function<void(const LogItems& items)>;

  /// Which summary message is posted; ModeNone posts nothing.
  enum SummaryMode { ModeQuiet = 0, ModeNone = 1, ModeRun = 2 };

  /// The helper of this process, made on first use and shut down when the module goes.
  static IPCHelper& Instance();

  IPCHelper();
  ~IPCHelper();
  IPCHelper(const IPCHelper&) = delete;
  IPCHelper& operator=(const IPCHelper&) = delete;

  void SetDetectSlot(DetectSlot slot);
  void SetRepairSlot(RepairSlot slot);
  void SetLogsAvailableSlot(LogsAvailableSlot slot);
  void SetLogListSlot(LogListSlot slot);

  /// Fills the summary by its items and posts it to the host's group.
  void PostSummary(DiagnoseSummary& summary, SummaryMode mode);

  /// For messages of other parts; its posts go out as this plugin's.
  CIPCMessageClient& Client() { return client; }

 private:
  void Register(std::unique_ptr<CIPCServerProcBase> procedure);
  void OnAnyMessage(const tagIPC_MESSAGE_ITEM& item);
  void OnDetectRequest(const tagIPC_MESSAGE_ITEM& item);
  void OnLogsAvailable(const tagIPC_MESSAGE_ITEM& item);
  void OnRepairRequest(std::vector<std::int32_t>& categories);
  void OnLogList(LogItems& items);

  std::recursive_mutex mutex;
  DetectSlot detectSlot;
  RepairSlot repairSlot;
  LogsAvailableSlot logsAvailableSlot;
  LogListSlot logListSlot;
  std::vector<std::unique_ptr<CIPCServerProcBase>> procedures;
  CIPCMessageClient client;  // last: its end comes before that of what its handlers use
};

}  // namespace orv::sysdiagnose
