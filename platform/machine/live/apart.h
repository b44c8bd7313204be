#pragma once

namespace machine {

/// Does the work in a process that neither a terminal nor whoever kills this one's group ends,
/// waits for it and returns its exit status. For a program that has started no thread yet. A system
/// without such a thing does it in this process.
int WorkApart(int (*work)(const void* context), const void* context);

}  // namespace machine
