#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace machine {

class SmbiosStructure;

/// What the firmware's SMBIOS structure table says about this machine, by DMTF DSP0134: structure
/// types 1 (system), 2 (base board), 4 (processor) and 17 (memory device), strings as the firmware
/// gives them. What it does not say is empty or 0.
///
/// The bytes are untrusted: reading ends at the first structure that does not fit, the ones before
/// it count.
class SmbiosTable {
 public:
  struct Board {
    std::string maker;
    std::string product;
    std::string version;
    std::string serialNumber;
  };

  /// A slot for a memory module; an empty slot has size 0.
  struct MemoryModule {
    std::string locator;
    std::string maker;
    std::string serialNumber;
    std::string partNumber;
    std::uint64_t megabytes = 0;
    std::uint32_t speed = 0;  // million transfers a second
  };

  /// The structures one after another, without the entry point. Keeps nothing of `table`.
  explicit SmbiosTable(std::span<const std::byte> table);

  const std::string& ProductName() const { return productName; }
  const Board& BaseBoard() const { return board; }
  const std::vector<MemoryModule>& MemoryModules() const { return modules; }
  std::uint32_t ExternalClockMhz() const { return externalClockMhz; }

 private:
  void ReadSystem(const SmbiosStructure& structure);
  void ReadBoard(const SmbiosStructure& structure);
  void ReadProcessor(const SmbiosStructure& structure);
  void ReadMemoryModule(const SmbiosStructure& structure);

  std::string productName;
  Board board;
  std::vector<MemoryModule> modules;
  std::uint32_t externalClockMhz = 0;
  bool hasSystem = false;
  bool hasBoard = false;
};

}  // namespace machine
