#include "platform/machine/live/firmware_text.h"

#include <algorithm>
#include <array>

#include "common/ascii.h"

namespace machine {
namespace {

// In upper case.
constexpr auto kFillers = std::to_array<std::string_view>({
    "<BAD INDEX>",
    "[EMPTY]",
    "ASSET TAG",
    "BASE BOARD SERIAL NUMBER",
    "CHASSIS SERIAL NUMBER",
    "DEFAULT",
    "DEFAULT STRING",
    "EMPTY",
    "FILL BY OEM",
    "INVALID",
    "INVALID ENTRY",
    "MODULE MANUFACTURER",
    "MODULE PART NUMBER",
    "MODULE SERIAL NUMBER",
    "N/A",
    "NO DIMM",
    "NO MODULE INSTALLED",
    "NONE",
    "NOT APPLICABLE",
    "NOT AVAILABLE",
    "NOT DEFINED",
    "NOT PRESENT",
    "NOT SETTABLE",
    "NOT SPECIFIED",
    "NULL",
    "O.E.M.",
    "OEM",
    "OUT OF SPEC",
    "SERNUM",
    "SYSTEM MANUFACTURER",
    "SYSTEM PRODUCT NAME",
    "SYSTEM SERIAL NUMBER",
    "SYSTEM VERSION",
    "TO BE FILLED BY O.E.M.",
    "TO BE FILLED BY OEM",
    "UNDEFINED",
    "UNKNOWN",
    "XXXXXXXX",
});

// What stands in a place that nothing was written to, over and over.
constexpr std::string_view kBlanks = "0F.-*X";

bool RepeatsABlank(std::string_view text) {
  constexpr std::size_t kShortest = 4;
  return text.size() >= kShortest && kBlanks.find(text.front()) != std::string_view::npos &&
         text.find_first_not_of(text.front()) == std::string_view::npos;
}

}  // namespace

std::string FirmwareText(std::string_view text) {
  std::string trimmed = common::Trimmed(text);
  const std::string upper = common::UpperCase(trimmed);
  if (std::ranges::count(kFillers, upper) > 0 || RepeatsABlank(upper)) return {};
  return trimmed;
}

}  // namespace machine
