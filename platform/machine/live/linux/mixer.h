#pragma once

#include <string>

namespace machine {

/// What of a sound card's controls keeps its speaker, or its microphone, from being heard, in
/// words: a switch that is off, a volume that is all down, headphones that are plugged in. Empty
/// when nothing does, or the card has no such controls. Changes none.
std::wstring FindMutedSpeaker(int card);
std::wstring FindMutedMicrophone(int card);

}  // namespace machine
