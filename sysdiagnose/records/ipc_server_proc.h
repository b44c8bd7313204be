#pragma once

#include <cstdint>

#include "common/protocol/ipc_data_io.h"
#include "common/protocol/ipc_serialize.h"
#include "platform/message/message_item.h"

namespace orv::sysdiagnose {

/// Decodes the versioned body of one message id and hands it on.
class CIPCServerProcBase {
 public:
  explicit CIPCServerProcBase(std::uint32_t servedId) : id(servedId) {}
  virtual ~CIPCServerProcBase() = default;

  std::uint32_t Id() const { return id; }

  /// Throws what reading the body throws; nothing is handed on then.
  virtual void Dispatch(const tagIPC_MESSAGE_ITEM& item) = 0;

 private:
  std::uint32_t id;
};

/// Calls a member of `Helper` with the body's one argument.
template <typename Helper, typename Result, typename Argument>
class CIPCServerProc final : public CIPCServerProcBase {
 public:
  using Member = Result (Helper::*)(Argument&);

  CIPCServerProc(std::uint32_t servedId, Helper* servedHelper, Member calledMember)
      : CIPCServerProcBase(servedId), helper(servedHelper), member(calledMember) {}

  void Dispatch(const tagIPC_MESSAGE_ITEM& item) override {
    protocol::CIPCDataIO io(item.data, item.dataLength);
    Argument argument;
    protocol::ReadVersioned(io, argument);
    (helper->*member)(argument);
  }

 private:
  Helper* helper;
  Member member;
};

}  // namespace orv::sysdiagnose
