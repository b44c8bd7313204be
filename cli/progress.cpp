#include "cli/progress.h"

#include <algorithm>

namespace cli {

using namespace orv::sysdiagnose;
using std::chrono::milliseconds;

Progress::Progress(const std::vector<enmHardwareID>& selection, const Durations& known) {
  for (const enmHardwareID category : selection) {
    const auto took = known.find(category);
    if (took == known.end()) {
      expected.clear();
      return;
    }
    expected.push_back(took->second);
    all += took->second;
  }
}

std::optional<Progress::Shown> Progress::At(std::size_t position, milliseconds elapsed) const {
  if (position >= expected.size() || all.count() <= 0) return std::nullopt;
  milliseconds done = std::min(elapsed, expected[position]);
  for (std::size_t i = 0; i < position; ++i) done += expected[i];
  return Shown{static_cast<int>(done * 100 / all), all - done};
}

}  // namespace cli
