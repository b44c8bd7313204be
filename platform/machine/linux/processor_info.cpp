#include "platform/machine/linux/processor_info.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "common/text.h"
#include "platform/machine/linux/system_file.h"
#include "platform/os/paths.h"
#include "platform/os/processor.h"
#include "platform/util/text_helpers.h"

namespace machine {
namespace {

constexpr std::uint32_t kVendorLeaf = 0;
constexpr std::uint32_t kFrequencyLeaf = 0x16;
constexpr std::array<std::uint32_t, 3> kBrandLeaves = {0x80000002, 0x80000003, 0x80000004};
constexpr std::size_t kCacheLevels = 3;

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

std::vector<std::filesystem::path> ProcessorFolders() {
  const std::filesystem::path parent = os::SystemPath("/sys/devices/system/cpu");
  std::vector<std::filesystem::path> folders;
  for (const std::string& name : ListNames(parent))
    if (name.starts_with("cpu") && LeadingNumber(name.substr(3))) folders.push_back(parent / name);
  return folders;
}

struct Counts {
  std::uint64_t cores = 0;
  std::uint64_t threads = 0;
};

Counts CountProcessors(std::span<const std::filesystem::path> folders) {
  std::set<std::pair<std::uint64_t, std::uint64_t>> cores;
  Counts counts;
  for (const std::filesystem::path& folder : folders) {
    const auto core = ReadNumber(folder / "topology/core_id");
    if (!core) continue;  // switched off
    cores.emplace(ReadNumber(folder / "topology/physical_package_id").value_or(0), *core);
    ++counts.threads;
  }
  counts.cores = cores.size();
  if (counts.threads == 0) counts.threads = os::ProcessorCount();
  return counts;
}

/// "48K", "2M".
std::uint64_t Kilobytes(const std::string& size) {
  const std::uint64_t number = LeadingNumber(size).value_or(0);
  return size.ends_with('M') ? number * 1024 : number;
}

/// Kilobytes by level, every cache counted once however many processors share it.
std::array<std::uint64_t, kCacheLevels> SumCaches(std::span<const std::filesystem::path> folders) {
  std::set<std::tuple<std::uint64_t, std::string, std::string>> seen;
  std::array<std::uint64_t, kCacheLevels> sums{};
  for (const std::filesystem::path& folder : folders) {
    for (const std::string& name : ListNames(folder / "cache")) {
      const std::filesystem::path cache = folder / "cache" / name;
      const std::uint64_t level = ReadNumber(cache / "level").value_or(0);
      if (level < 1 || level > kCacheLevels) continue;
      std::string sharers = ReadLine(cache / "shared_cpu_list");
      if (sharers.empty()) sharers = folder.filename().string();
      if (seen.emplace(level, ReadLine(cache / "type"), sharers).second)
        sums[level - 1] += Kilobytes(ReadLine(cache / "size"));
    }
  }
  return sums;
}

std::uint32_t BusClockMhz() {
  return os::Cpuid(kFrequencyLeaf)[2] & 0xFFFF;
}

}  // namespace

void FillProcessor(Inventory& inventory, std::uint32_t firmwareClockMhz) {
  const std::vector<std::filesystem::path> folders = ProcessorFolders();
  const Counts counts = CountProcessors(folders);
  const auto caches = SumCaches(folders);
  const std::uint64_t clock = firmwareClockMhz != 0 ? firmwareClockMhz : BusClockMhz();

  inventory.Set(InfoCall::CpuName, common::Utf8ToWide(BrandName()));
  inventory.Set(InfoCall::CpuManufacturer, common::Utf8ToWide(VendorName()));
  inventory.Set(InfoCall::CpuCoreNumbers, counts.cores);
  inventory.Set(InfoCall::CpuCoreThreads, counts.threads);
  inventory.Set(InfoCall::CpuExtClock, clock);
  inventory.Set(InfoCall::CpuL1CacheSize, caches[0]);
  inventory.Set(InfoCall::CpuL2CacheSize, caches[1]);
  inventory.Set(InfoCall::CpuL3CacheSize, caches[2]);
}

}  // namespace machine
