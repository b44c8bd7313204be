#include <cstdint>
#include <string_view>

#include "platform/machine/machine_files/machine_file.h"

// Any bytes give a machine or an error of one line, and a machine answers every call.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto parsed = machine::ParseMachine(text, "input");
    const machine::Inventory& info = parsed->Info();
    for (const machine::InfoCallRow& row : machine::kInfoCalls) {
      for (const int index : {-1, 0, 1, 1024}) {
        info.Text(row.call, index);
        info.Number(row.call, index);
        info.Flag(row.call, index);
      }
      info.List(row.call);
    }
  } catch (const machine::MachineFileError& error) {
    if (std::string_view(error.what()).find_first_of("\r\n") != std::string_view::npos)
      __builtin_trap();
  }
  return 0;
}
