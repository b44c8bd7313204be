#pragma once

#include <cstdint>
#include <string>
#include <tuple>

namespace protocol {

/// How a module describes itself to the host's main page: the versioned body of its answer.
struct ModuleDescriptor {
  std::wstring mainIcon;
  std::wstring moduleIcon;
  std::wstring title;  // a string id
  std::uint32_t moduleId = 0xFFFFFFFF;
  std::uint32_t detectRequest = 0xFFFFFFFF;
  std::uint32_t repairRequest = 0xFFFFFFFF;
  std::uint16_t interval = 5000;  // milliseconds

  static auto Fields(auto& descriptor) {
    return std::tie(descriptor.mainIcon, descriptor.moduleIcon, descriptor.title,
                    descriptor.moduleId, descriptor.detectRequest, descriptor.repairRequest,
                    descriptor.interval);
  }
};

}  // namespace protocol
