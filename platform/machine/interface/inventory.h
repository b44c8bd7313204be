#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/machine/interface/calls.h"

namespace machine {

using InfoValue = std::variant<std::wstring, std::uint64_t, bool>;

/// The answers of a machine to all information calls. What was never set is empty or zero.
///
/// Filled once, by the readers of a live machine or from a machine file; afterwards read only, from
/// any thread.
class Inventory {
 public:
  /// Sets the answer of a call, at an index for an indexed call. Type and index must fit the call's
  /// row; a list call takes its elements one index after another, as numbers.
  void Set(InfoCall call, InfoValue value, std::size_t index = 0);

  /// An index outside gives the empty answer. A negative index is outside.
  std::wstring Text(InfoCall call, int index = 0) const;
  bool Flag(InfoCall call, int index = 0) const;
  std::vector<int> List(InfoCall call) const;

  /// A count that was not set is the length of the longest array of its class.
  std::uint64_t Number(InfoCall call, int index = 0) const;

  /// How many answers an indexed call or a list has.
  std::size_t Size(InfoCall call) const { return answers[static_cast<std::size_t>(call)].size(); }

 private:
  const InfoValue* Find(InfoCall call, int index) const;

  std::array<std::vector<InfoValue>, kCountOf<InfoCall>> answers;
};

}  // namespace machine
