#pragma once

#include <map>

#include "platform/duilib/notify/notify.h"
#include "platform/os/export.h"

namespace DuiLib {

class CNotifyPump;
using NotifyHandler = void (CNotifyPump::*)(TNotifyUI&);

/// How a row of a message map is read.
enum class NotifySignature { kEnd, kNotify };

/// One row: notifications of this type from controls of this name, of any name if it is empty, go
/// to the handler. The row whose signature is kEnd ends the map.
struct NotifyMapRow {
  const wchar_t* type = L"";
  const wchar_t* name = L"";
  NotifySignature signature = NotifySignature::kEnd;
  NotifyHandler handler = nullptr;
};

/// A class's rows, and behind them those of its base class if there are any.
struct NotifyMap {
  const NotifyMap* base = nullptr;
  const NotifyMapRow* rows = nullptr;
};

/// A row that calls an operation of a class derived from CNotifyPump.
template <typename Receiver>
constexpr NotifyMapRow OnNotify(const wchar_t* type, const wchar_t* name,
                                void (Receiver::*handler)(TNotifyUI&)) {
  return {type, name, NotifySignature::kNotify, static_cast<NotifyHandler>(handler)};
}

/// Gives notifications to whom they concern: those of a registered virtual window to its pump, all
/// others to the handlers of its own message map. Its one virtual operation stands in the first
/// slot, so that a derived class goes on behind it; nobody deletes through this type.
/// UI thread only.
class DUILIB_API CNotifyPump {
 public:
  CNotifyPump();
  CNotifyPump(const CNotifyPump&) = delete;
  CNotifyPump& operator=(const CNotifyPump&) = delete;

  /// Gives the notifications below controls of this virtual window to `pump`, which lives until it
  /// is removed; one that was there under the name goes.
  void AddVirtualWnd(const CDuiString& name, CNotifyPump* pump);
  void RemoveVirtualWnd(const CDuiString& name);

  /// Delivers; whether a handler was found. What a handler throws is logged.
  bool Notify(TNotifyUI& notification);

 protected:
  ~CNotifyPump();
  virtual const NotifyMap* GetMessageMap() const;

 private:
  bool Handle(TNotifyUI& notification);

  std::map<CDuiString, CNotifyPump*> virtualWindows;
};

}  // namespace DuiLib
