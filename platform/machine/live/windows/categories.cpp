#include "platform/machine/live/category.h"

#include <array>

namespace machine {
namespace {

constexpr auto kCategories = std::to_array<CategoryOf>({
    ProcessorCategory,
    MotherboardCategory,
    MemoryCategory,
    DiskCategory,
    KeyboardCategory,
});

}  // namespace

std::span<const CategoryOf> Categories() {
  return kCategories;
}

}  // namespace machine
