#include "sysdiagnose/catalogue/sizes.h"

#include <array>
#include <cstdio>

#include "common/text.h"

namespace orv::sysdiagnose {

std::uint64_t GigabytesOf(std::uint64_t megabytes) {
  return static_cast<std::uint64_t>(static_cast<double>(megabytes) * (1.0 / 1024) + 0.5);
}

std::wstring DiskCapacityText(std::uint64_t gigabytes) {
  if (gigabytes == 0) return {};
  if (gigabytes < 1000) return std::to_wstring(gigabytes) + L" GB";
  std::array<char, 32> terabytes{};
  std::snprintf(terabytes.data(), terabytes.size(), "%.1f",
                static_cast<double>(gigabytes / 100) / 10.0);
  return common::Utf8ToWide(terabytes.data()) + L" TB";
}

}  // namespace orv::sysdiagnose
