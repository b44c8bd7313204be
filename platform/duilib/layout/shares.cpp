#include "platform/duilib/layout/shares.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace DuiLib {
namespace {

// The room of those that grow is parted anew until nobody's share lies below what it has: who has
// more keeps it and leaves the parting.
class Growth {
 public:
  Growth(const std::vector<Sharer>& all, std::vector<int>& taken, int left)
      : sharers(all), lengths(taken), room(left) {
    for (std::size_t index = 0; index < sharers.size(); ++index) {
      if (sharers[index].shares <= 0) continue;
      growing.push_back(index);
      shares += sharers[index].shares;
      room += lengths[index];
    }
  }

  void Part() {
    while (std::erase_if(growing, [this](std::size_t index) { return Keeps(index); }) != 0) {
    }
    for (const std::size_t index : growing) {
      const auto share = static_cast<int>(room * sharers[index].shares / shares);
      lengths[index] = share;
      room -= share;
      shares -= sharers[index].shares;
    }
  }

 private:
  bool Keeps(std::size_t index) {
    const std::int64_t share = room * sharers[index].shares / shares;
    if (share >= lengths[index]) return false;
    room -= lengths[index];
    shares -= sharers[index].shares;
    return true;
  }

  const std::vector<Sharer>& sharers;
  std::vector<int>& lengths;
  std::vector<std::size_t> growing;
  std::int64_t room;
  std::int64_t shares = 0;
};

}  // namespace

std::vector<int> ShareRoom(const std::vector<Sharer>& sharers, int room) {
  std::vector<int> lengths;
  lengths.reserve(sharers.size());
  int left = room;

  // 1: the least lengths
  for (const Sharer& sharer : sharers) {
    lengths.push_back(sharer.least);
    left -= sharer.least;
  }
  // 2: the wishes
  for (std::size_t index = 0; index < sharers.size() && left > 0; ++index) {
    if (sharers[index].shares > 0) continue;
    const int more = std::clamp(sharers[index].wished - lengths[index], 0, left);
    lengths[index] += more;
    left -= more;
  }
  // 3: the shares
  if (left > 0) Growth(sharers, lengths, left).Part();
  return lengths;
}

}  // namespace DuiLib
