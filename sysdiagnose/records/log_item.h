#pragma once

#include <cstdint>
#include <string>

#include "sysdiagnose/records/ipc_serialize.h"

namespace orv::sysdiagnose {

/// One log file that is offered for upload. Narrow text is UTF-8.
struct SYSTEM_DETECT_LOG_ITEM {
  std::int32_t module = 0;
  std::string file;

  bool operator==(const SYSTEM_DETECT_LOG_ITEM&) const = default;
};

// Found by their argument.
inline std::size_t SizeOf(const SYSTEM_DETECT_LOG_ITEM& item) {
  return ipc::SizeOf(item.module) + ipc::SizeOf(item.file);
}
inline void Write(IIPCDataIO& io, const SYSTEM_DETECT_LOG_ITEM& item) {
  ipc::Write(io, item.module);
  ipc::Write(io, item.file);
}
inline void Read(IIPCDataIO& io, SYSTEM_DETECT_LOG_ITEM& item) {
  ipc::Read(io, item.module);
  ipc::Read(io, item.file);
}

}  // namespace orv::sysdiagnose
