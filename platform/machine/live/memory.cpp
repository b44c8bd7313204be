#include <array>

#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/firmware_text.h"
#include "platform/machine/workloads/memory_tests.h"
#include "platform/machine/workloads/system_memory.h"

namespace machine {
namespace {

std::wstring Wide(const std::string& text) {
  return common::Utf8ToWide(FirmwareText(text));
}

// The slots, or without any the size alone that the system manages.
void ReadMemory(Devices& devices) {
  Inventory& answers = devices.answers;
  const auto& modules = devices.firmware.modules;
  std::uint64_t megabytes = 0;
  for (std::size_t slot = 0; slot < modules.size(); ++slot) {
    const SmbiosTable::MemoryModule& module = modules[slot];
    answers.Set(InfoCall::MemoryLocator, Wide(module.locator), slot);
    if (module.megabytes == 0) continue;  // what else is said of an empty slot means nothing
    answers.Set(InfoCall::MemoryPartNumber, Wide(module.partNumber), slot);
    answers.Set(InfoCall::MemoryManufacturer, Wide(module.maker), slot);
    answers.Set(InfoCall::MemoryCapacity, module.megabytes, slot);
    answers.Set(InfoCall::MemorySerialNumber, Wide(module.serialNumber), slot);
    answers.Set(InfoCall::MemorySpeed, std::uint64_t{module.speed}, slot);
    megabytes += module.megabytes;
  }
  answers.Set(InfoCall::MemoryCount, std::uint64_t{modules.size()});
  answers.Set(InfoCall::MemoryTotal,
              megabytes != 0 ? megabytes : ReadSystemMemory().totalKilobytes / 1024);
}

TestAnswer RunTest(const Devices&, TestCall call, int) {
  return TestFittingMemory(call);
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::MemoryStuckAddress, RunTest},
    {TestCall::MemoryLineSequence, RunTest},
    {TestCall::MemoryBlockSequence, RunTest},
    {TestCall::MemoryWalkingBit, RunTest},
    {TestCall::MemoryRandom, RunTest},
    {TestCall::MemoryCheckerboard, RunTest},
    {TestCall::MemoryArithmetic, RunTest},
    {TestCall::MemoryLogic, RunTest},
    {TestCall::MemoryBitFlip, RunTest},
});

}  // namespace

Category MemoryCategory() {
  return {.read = ReadMemory, .tests = kTests};
}

}  // namespace machine
