#include <array>
#include <string>

#include "common/ascii.h"
#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/processor_topology.h"
#include "platform/machine/workloads/processor_tests/processor_tests.h"
#include "platform/os/processor.h"

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
  return common::Trimmed(name);
}

std::uint64_t BusClockMhz() {
  return os::Cpuid(kFrequencyLeaf)[2] & 0xFFFF;
}

void ReadProcessor(Devices& devices) {
  const ProcessorTopology topology = ReadProcessorTopology();
  const std::uint64_t threads = topology.threads != 0 ? topology.threads : os::ProcessorCount();
  const std::uint64_t firmwareClock = devices.firmware.externalClockMhz;

  Inventory& answers = devices.answers;
  answers.Set(InfoCall::CpuName, common::Utf8ToWide(BrandName()));
  answers.Set(InfoCall::CpuManufacturer, common::Utf8ToWide(VendorName()));
  answers.Set(InfoCall::CpuCoreNumbers, topology.cores);
  answers.Set(InfoCall::CpuCoreThreads, threads);
  answers.Set(InfoCall::CpuExtClock, firmwareClock != 0 ? firmwareClock : BusClockMhz());
  answers.Set(InfoCall::CpuL1CacheSize, topology.cacheKilobytes[0]);
  answers.Set(InfoCall::CpuL2CacheSize, topology.cacheKilobytes[1]);
  answers.Set(InfoCall::CpuL3CacheSize, topology.cacheKilobytes[2]);
}

TestAnswer RunTest(const Devices&, TestCall call, int) {
  return TestProcessor(call);
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::CpuSse, RunTest},
    {TestCall::CpuSse2, RunTest},
    {TestCall::CpuSse3, RunTest},
    {TestCall::CpuSsse3, RunTest},
    {TestCall::CpuSse41, RunTest},
    {TestCall::CpuSse42, RunTest},
});

constexpr auto kSupports = std::to_array<LiveSupport>({
    {SupportCall::Sse, ProcessorSupports},
    {SupportCall::Sse2, ProcessorSupports},
    {SupportCall::Ssse3, ProcessorSupports},
    {SupportCall::Sse41, ProcessorSupports},
    {SupportCall::Sse42, ProcessorSupports},
});

}  // namespace

Category ProcessorCategory() {
  return {.read = ReadProcessor, .tests = kTests, .supports = kSupports};
}

}  // namespace machine
