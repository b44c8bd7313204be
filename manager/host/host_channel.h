#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "common/protocol/module_descriptor.h"
#include "common/protocol/summary.h"
#include "platform/message/ipc_message_client.h"

namespace manager {

/// Whose run a summary tells of.
enum class SummaryOf { kQuietRun, kRunOfPages };

/// What modules tell the manager. Called on the UI thread; what is empty is not told.
struct HostChannelHooks {
  std::function<void(const protocol::ModuleDescriptor&)> descriptor;
  std::function<void(const protocol::DiagnoseSummary&, SummaryOf)> summary;
  std::function<void()> restart;  // the user wants the computer restarted
  std::function<bool()> raise;    // the user started it once more: whether its window was raised
};

/// The manager's end of the messages with its modules. UI thread only.
class HostChannel {
 public:
  explicit HostChannel(HostChannelHooks hooks);
  /// No hook is called afterwards.
  ~HostChannel();
  HostChannel(const HostChannel&) = delete;
  HostChannel& operator=(const HostChannel&) = delete;

  /// Each module answers with its descriptor.
  void AskForDescriptors();
  void StartCheck(const protocol::ModuleDescriptor& module);
  /// The check ends before its next category.
  void StopCheck(const protocol::ModuleDescriptor& module);
  void StartRepair(const protocol::ModuleDescriptor& module,
                   const std::vector<std::int32_t>& categories);

 private:
  template <typename Body>
  void TellBodiesOf(std::uint32_t messageId, std::function<void(const Body&)> tell);
  void TellRestarts();
  void AnswerRaises();
  void Post(std::uint32_t target, std::uint32_t messageId, const std::uint8_t* data,
            std::uint32_t length);

  const std::shared_ptr<const HostChannelHooks> hooks;
  CIPCMessageClient client;
};

}  // namespace manager
