#include "platform/duilib/notify/notify_pump.h"

#include "common/log.h"
#include "common/text.h"
#include "platform/duilib/tree/control.h"

namespace DuiLib {
namespace {

bool Concerns(const NotifyMapRow& row, const TNotifyUI& notification) {
  if (notification.type != row.type) return false;
  return *row.name == L'\0' ||
         (notification.sender != nullptr && notification.sender->GetName() == row.name);
}

const NotifyMapRow* FindRow(const NotifyMap* map, const TNotifyUI& notification) {
  for (; map != nullptr; map = map->base) {
    for (auto row = map->rows; row != nullptr && row->signature != NotifySignature::kEnd; ++row) {
      if (Concerns(*row, notification)) return row;
    }
  }
  return nullptr;
}

}  // namespace

CNotifyPump::CNotifyPump() = default;
CNotifyPump::~CNotifyPump() = default;

const NotifyMap* CNotifyPump::GetMessageMap() const {
  return nullptr;
}

void CNotifyPump::AddVirtualWnd(const CDuiString& name, CNotifyPump* pump) {
  virtualWindows[name] = pump;
}

void CNotifyPump::RemoveVirtualWnd(const CDuiString& name) {
  virtualWindows.erase(name);
}

bool CNotifyPump::Notify(TNotifyUI& notification) {
  const auto found = virtualWindows.find(notification.virtualWindow);
  CNotifyPump* const receiver = found == virtualWindows.end() ? this : found->second;
  try {
    return receiver->Handle(notification);
  } catch (...) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.duilib"),
                     "the notification " + common::WideToUtf8(notification.type) +
                         " failed: " + common::DescribeCurrentException());
    return true;
  }
}

bool CNotifyPump::Handle(TNotifyUI& notification) {
  const NotifyMapRow* const row = FindRow(GetMessageMap(), notification);
  if (row == nullptr) return false;
  (this->*row->handler)(notification);
  return true;
}

}  // namespace DuiLib
