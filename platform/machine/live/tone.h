#pragma once

#include <cstdint>
#include <span>
#include <vector>

// A quiet tone that is played and looked for in what a microphone heard meanwhile.
namespace machine {

/// Samples a second, one channel.
inline constexpr unsigned kSampleRate = 48000;

/// No mains hum, no harmonic of one and no note: what else sounds in a room is not taken for it.
inline constexpr double kToneFrequency = 1117;

/// What is to be played: a pause, the tone, a pause.
std::vector<std::int16_t> MakeTone();

/// How much of the energy of the samples lies in one frequency: 1 for a pure tone, near 0 for
/// noise. A constant offset does not count; silence has 0.
double ShareOfFrequency(std::span<const std::int16_t> samples, double frequency);

enum class Heard {
  Tone,        // and not before it was played
  Silence,     // the same value all the time
  OtherSound,  // but no tone
  ToneBefore,  // something else sounds like it
};

/// What of MakeTone is heard in a recording that began with it and is longer than it.
Heard FindTone(std::span<const std::int16_t> recording);

}  // namespace machine
