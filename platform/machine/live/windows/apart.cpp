#include "platform/machine/live/apart.h"

namespace machine {

int WorkApart(int (*work)(const void* context), const void* context) {
  return work(context);
}

}  // namespace machine
