#include "tests/cli/described_system.h"

#include "tests/support/temporary_folder.h"

std::vector<std::string> DescribeSystem(const std::filesystem::path& root) {
  WriteText(root / "proc/meminfo", "MemTotal: 2048 kB\nMemAvailable: 1024 kB\n");
  WriteText(root / "sys/class/dmi/id/product_name", "Sample 14\n");
  WriteText(root / "sys/class/dmi/id/board_serial", "BOARD-77\n");
  WriteText(root / "recovery/OEM/version.txt", "TK-9.9_X");
  for (const std::string disk : {"sample-a", "sample-b"}) {
    WriteText(root / "sys/block" / disk / "size", "1953125\n");
    WriteText(root / "sys/block" / disk / "queue/rotational", "0\n");
    WriteText(root / "sys/block" / disk / "device/model", "Model of " + disk + "\n");
  }
  return {"Sample 14", "BOARD-77", "TK-9.9_X", "Model of sample-b"};
}
