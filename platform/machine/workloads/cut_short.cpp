#include "platform/machine/workloads/cut_short.h"

#include <atomic>

namespace machine {
namespace {

std::atomic<bool> cutShort = false;
static_assert(std::atomic<bool>::is_always_lock_free);

}  // namespace

void CutTestsShort(bool cut) {
  cutShort = cut;
}

bool AreTestsCutShort() {
  return cutShort;
}

}  // namespace machine
