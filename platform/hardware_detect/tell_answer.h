#pragma once

#include "platform/hardware_detect/answer_observer.h"

namespace HardwareDetect {

/// Tells the observer of an answer and logs one that says something, without identifiers.
void TellAnswer(const AnswerWords& words);

}  // namespace HardwareDetect
