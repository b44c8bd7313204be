#include "platform/message/uplink.h"

#include <mutex>
#include <stdexcept>
#include <utility>

namespace message {
namespace {

struct Holder {
  std::mutex mutex;
  std::shared_ptr<Uplink> uplink;
};

Holder& TheHolder() {
  static auto& holder = *new Holder;
  return holder;
}

}  // namespace

std::shared_ptr<Uplink> CurrentUplink() {
  Holder& holder = TheHolder();
  const std::lock_guard lock(holder.mutex);
  return holder.uplink;
}

void SetUplink(std::shared_ptr<Uplink> uplink) {
  Holder& holder = TheHolder();
  const std::lock_guard lock(holder.mutex);
  if (holder.uplink) throw std::logic_error("this process already has a broker or a connection");
  holder.uplink = std::move(uplink);
}

void ClearUplink() {
  std::shared_ptr<Uplink> cleared;
  Holder& holder = TheHolder();
  const std::lock_guard lock(holder.mutex);
  cleared.swap(holder.uplink);
}

}  // namespace message
