#pragma once

#include <string>

#include "platform/os/export.h"

/// The firmware's system record. Any thread.
class UTIL_API SMBIOSHelper {
 public:
  static SMBIOSHelper* GetInstance();

  /// Product name of the system; empty when the firmware does not give one.
  std::wstring GetSystemProductName();
};
