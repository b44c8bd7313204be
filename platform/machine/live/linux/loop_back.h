#pragma once

#include <string>

#include "platform/machine/interface/machine.h"

namespace machine {

/// Plays a quiet tone on one device of the sound system and listens on another, by their names.
/// Takes two seconds and more. Fills `isBusy` where given and somebody else uses one of them.
TestAnswer PlayAndListen(const std::string& player, const std::string& microphone,
                         bool* isBusy = nullptr);

/// The same with the machine's own speaker and microphone. Those that are in use are reached
/// through the sound server that uses them. The owner's volume and mute are left as they are: a
/// speaker or microphone that is muted could not be tested, and the answer names it.
TestAnswer TestLoopBack();

}  // namespace machine
