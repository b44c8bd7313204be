#include "platform/machine/interface/inventory.h"

#include <algorithm>
#include <utility>

namespace machine {
namespace {

const InfoCallRow& RowOf(InfoCall call) {
  return kInfoCalls[static_cast<std::size_t>(call)];
}

template <typename Value>
Value ValueOr(const InfoValue* answer, Value otherwise) {
  const Value* value = answer == nullptr ? nullptr : std::get_if<Value>(answer);
  return value == nullptr ? otherwise : *value;
}

}  // namespace

void Inventory::Set(InfoCall call, InfoValue value, std::size_t index) {
  auto& values = answers[static_cast<std::size_t>(call)];
  if (values.size() <= index) values.resize(index + 1);
  values[index] = std::move(value);
}

std::wstring Inventory::Text(InfoCall call, int index) const {
  return ValueOr(Find(call, index), std::wstring());
}

bool Inventory::Flag(InfoCall call, int index) const {
  return ValueOr(Find(call, index), false);
}

std::vector<int> Inventory::List(InfoCall call) const {
  std::vector<int> list;
  for (const InfoValue& value : answers[static_cast<std::size_t>(call)])
    list.push_back(static_cast<int>(ValueOr<std::uint64_t>(&value, 0)));
  return list;
}

std::uint64_t Inventory::Number(InfoCall call, int index) const {
  const InfoCallRow& row = RowOf(call);
  if (!row.isCount || Size(call) > 0) return ValueOr<std::uint64_t>(Find(call, index), 0);
  std::size_t longest = 0;
  for (const InfoCallRow& other : kInfoCalls) {
    if (other.indexed && other.className == row.className)
      longest = std::max(longest, Size(other.call));
  }
  return longest;
}

const InfoValue* Inventory::Find(InfoCall call, int index) const {
  const auto& values = answers[static_cast<std::size_t>(call)];
  const auto place = static_cast<std::size_t>(index);  // a negative index is beyond any size
  return place < values.size() ? &values[place] : nullptr;
}

}  // namespace machine
