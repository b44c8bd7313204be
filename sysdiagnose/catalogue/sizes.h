#pragma once

#include <cstdint>
#include <string>

namespace orv::sysdiagnose {

/// Megabytes as whole gigabytes, rounded half up.
std::uint64_t GigabytesOf(std::uint64_t megabytes);

/// A disk's vendor gigabytes as text: "512 GB", from 1000 on in terabytes with the tenths cut off,
/// "1.9 TB" for 1999. Empty for 0. The same in every locale.
std::wstring DiskCapacityText(std::uint64_t gigabytes);

}  // namespace orv::sysdiagnose
