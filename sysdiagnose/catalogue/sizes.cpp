#include "sysdiagnose/catalogue/sizes.h"

namespace orv::sysdiagnose {

std::uint64_t GigabytesOf(std::uint64_t megabytes) {
  return static_cast<std::uint64_t>(static_cast<double>(megabytes) * (1.0 / 1024) + 0.5);
}

std::wstring DiskCapacityText(std::uint64_t gigabytes) {
  if (gigabytes == 0) return {};
  if (gigabytes < 1000) return std::to_wstring(gigabytes) + L" GB";
  return std::to_wstring(gigabytes / 1000) + L'.' + std::to_wstring(gigabytes % 1000 / 100) +
         L" TB";
}

}  // namespace orv::sysdiagnose
