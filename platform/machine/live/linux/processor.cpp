#include "platform/machine/live/processor_topology.h"

#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

std::vector<std::filesystem::path> ProcessorFolders() {
  const std::filesystem::path parent = os::SystemPath("/sys/devices/system/cpu");
  std::vector<std::filesystem::path> folders;
  for (const std::string& name : ListNames(parent))
    if (name.starts_with("cpu") && LeadingNumber(name.substr(3))) folders.push_back(parent / name);
  return folders;
}

void CountProcessors(std::span<const std::filesystem::path> folders, ProcessorTopology& topology) {
  std::set<std::pair<std::uint64_t, std::uint64_t>> cores;
  for (const std::filesystem::path& folder : folders) {
    const auto core = ReadNumber(folder / "topology/core_id");
    if (!core) continue;  // switched off
    cores.emplace(ReadNumber(folder / "topology/physical_package_id").value_or(0), *core);
    ++topology.threads;
  }
  topology.cores = cores.size();
}

/// "48K", "2M".
std::uint64_t Kilobytes(const std::string& size) {
  const std::uint64_t number = LeadingNumber(size).value_or(0);
  return size.ends_with('M') ? number * 1024 : number;
}

/// Every cache counts once however many processors share it.
void SumCaches(std::span<const std::filesystem::path> folders, ProcessorTopology& topology) {
  std::set<std::tuple<std::uint64_t, std::string, std::string>> seen;
  for (const std::filesystem::path& folder : folders) {
    for (const std::string& name : ListNames(folder / "cache")) {
      const std::filesystem::path cache = folder / "cache" / name;
      const std::uint64_t level = ReadNumber(cache / "level").value_or(0);
      if (level < 1 || level > ProcessorTopology::kCacheLevels) continue;
      std::string sharers = ReadLine(cache / "shared_cpu_list");
      if (sharers.empty()) sharers = folder.filename().string();
      if (seen.emplace(level, ReadLine(cache / "type"), sharers).second)
        topology.cacheKilobytes[level - 1] += Kilobytes(ReadLine(cache / "size"));
    }
  }
}

}  // namespace

ProcessorTopology ReadProcessorTopology() {
  const std::vector<std::filesystem::path> folders = ProcessorFolders();
  ProcessorTopology topology;
  CountProcessors(folders, topology);
  SumCaches(folders, topology);
  return topology;
}

}  // namespace machine
