#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace machine {

/// Kinds of radio, by the kernel's names.
enum class RadioKind { Wireless, Bluetooth };

/// A switch that turns a radio off.
struct RadioSwitch {
  std::filesystem::path device;  // what it belongs to, links resolved
  bool isOffBySoftware = false;
  bool isOffByHand = false;  // a key or slide of the machine
  bool isOfMachine = false;  // of the machine as a whole, not of one radio
};

/// Of what is built in.
std::vector<RadioSwitch> ListRadioSwitches(RadioKind kind);

/// Turns on all radios of a kind that software has turned off. Empty, or why it could not be done.
std::wstring UnblockRadios(RadioKind kind);

}  // namespace machine
