#include "platform/machine/processor_info.h"

#include <array>
#include <string>

#include "common/text.h"
#include "platform/machine/processor_topology.h"
#include "platform/os/processor.h"
#include "platform/util/text_helpers.h"

namespace machine {
namespace {

constexpr std::uint32_t kVendorLeaf = 0;
constexpr std::uint32_t kFrequencyLeaf = 0x16;
constexpr std::array<std::uint32_t, 3> kBrandLeaves = {0x80000002, 0x80000003, 0x80000004};

void Append(std::string& text, std::uint32_t fourLetters) {
  for (int shift = 0; shift < 32; shift += 8) {
    const char letter = static_cast<char>(fourLetters >> shift & 0xFF);
    if (letter != '\0') text += letter;
  }
}

std::string VendorName() {
  const auto [eax, ebx, ecx, edx] = os::Cpuid(kVendorLeaf);
  std::string name;
  for (const std::uint32_t letters : {ebx, edx, ecx}) Append(name, letters);
  return name;
}

std::string BrandName() {
  std::string name;
  for (const std::uint32_t leaf : kBrandLeaves)
    for (const std::uint32_t letters : os::Cpuid(leaf)) Append(name, letters);
  return DE::TrimSP(name);
}

std::uint32_t BusClockMhz() {
  return os::Cpuid(kFrequencyLeaf)[2] & 0xFFFF;
}

}  // namespace

void FillProcessor(Inventory& inventory, std::uint32_t firmwareClockMhz) {
  const ProcessorTopology topology = ReadProcessorTopology();
  const std::uint64_t threads = topology.threads != 0 ? topology.threads : os::ProcessorCount();
  const std::uint64_t clock = firmwareClockMhz != 0 ? firmwareClockMhz : BusClockMhz();

  inventory.Set(InfoCall::CpuName, common::Utf8ToWide(BrandName()));
  inventory.Set(InfoCall::CpuManufacturer, common::Utf8ToWide(VendorName()));
  inventory.Set(InfoCall::CpuCoreNumbers, topology.cores);
  inventory.Set(InfoCall::CpuCoreThreads, threads);
  inventory.Set(InfoCall::CpuExtClock, clock);
  inventory.Set(InfoCall::CpuL1CacheSize, topology.cacheKilobytes[0]);
  inventory.Set(InfoCall::CpuL2CacheSize, topology.cacheKilobytes[1]);
  inventory.Set(InfoCall::CpuL3CacheSize, topology.cacheKilobytes[2]);
}

}  // namespace machine
