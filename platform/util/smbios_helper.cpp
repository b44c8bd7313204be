#include "platform/util/smbios_helper.h"

#include "platform/machine/current.h"

SMBIOSHelper* SMBIOSHelper::GetInstance() {
  static auto& helper = *new SMBIOSHelper;
  return &helper;
}

std::wstring SMBIOSHelper::GetSystemProductName() {
  return machine::Current().ProductName();
}
