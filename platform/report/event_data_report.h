#pragma once

#include <string>

#include "platform/os/export.h"

/// One numbered event, ready to be sent.
struct tagLogInfo {
  std::string id;
  std::string payload;
};

/// The usage-reporting service. This one appends each event as one JSON line to events.jsonl in the
/// data folder: {"id": number, "payload": text, "time": seconds since 1970}. Any thread; lines of
/// several processes do not mix.
class UTIL_API EventDataReport {
 public:
  static EventDataReport& Instance();

  tagLogInfo GetMsg(const std::string& id, const std::string& payload);

  /// False when the line could not be written.
  bool SendMsg(const tagLogInfo& message);
};
