#include "platform/machine/live/category.h"

#include <array>

#include "platform/machine/live/linux/driver_binding.h"

namespace machine {
namespace {

constexpr auto kCategories = std::to_array<CategoryOf>({
    UnfinishedBinding,
    ProcessorCategory,
    MotherboardCategory,
    MemoryCategory,
    DiskCategory,
    GraphicsCategory,
    DisplayCategory,
    NetworkCategory,
    BatteryCategory,
    SoundCategory,
    KeyboardCategory,
    BluetoothCategory,
    FingerprintCategory,
});

}  // namespace

std::span<const CategoryOf> Categories() {
  return kCategories;
}

}  // namespace machine
