#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// A device with the keys to write with; buttons, remotes and mice with keys are none.
struct Keyboard {
  std::string name;
  bool isBuiltIn = false;  // on a bus that nothing is plugged into
};

/// Reads the kernel's list of input devices, /proc/bus/input/devices. Those that programs make up
/// are left out.
std::vector<Keyboard> FindKeyboards(std::string_view text);

}  // namespace machine
