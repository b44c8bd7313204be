#pragma once

#include <vector>

namespace DuiLib {

/// One of several that share room along an axis.
struct Sharer {
  int least = 0;   // what it takes in any case
  int wished = 0;  // what it takes of what the least leave
  int shares = 0;  // of what the wishes leave; 0 when it does not grow
};

/// The length of each. First everyone gets its least length, then everyone in order its wish as far
/// as there is room, then those that grow part what is left by their shares, none below what it
/// has. The sum exceeds the room only when the least lengths do.
std::vector<int> ShareRoom(const std::vector<Sharer>& sharers, int room);

}  // namespace DuiLib
