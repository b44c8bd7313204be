#include "platform/machine/live/tone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <vector>

namespace {

using machine::Heard;

using Samples = std::vector<std::int16_t>;

/// What a microphone hears a while after the tone was played: quieter and with more beside it.
Samples Hear(double loudness, std::size_t late, const std::function<double(std::size_t)>& beside) {
  const Samples tone = machine::MakeTone();
  Samples heard(machine::kSampleRate * 5 / 2);
  for (std::size_t i = 0; i < heard.size(); ++i) {
    const std::size_t place = i - late;
    const double sample = i >= late && place < tone.size() ? tone[place] * loudness : 0;
    heard[i] = static_cast<std::int16_t>(std::lround(sample + beside(i)));
  }
  return heard;
}

/// The same numbers each time.
std::function<double(std::size_t)> Noise(double loudness) {
  auto random = std::make_shared<std::mt19937>(7);
  return
      [=](std::size_t) { return loudness * (static_cast<double>((*random)() % 2001) / 1000 - 1); };
}

std::function<double(std::size_t)> Sine(double loudness, double frequency) {
  return [=](std::size_t i) {
    return loudness *
           std::sin(6.283185307 * frequency * static_cast<double>(i) / machine::kSampleRate);
  };
}

TEST(Tone, IsFoundBesideWhatElseSounds) {
  const auto nothing = [](std::size_t) { return 0.0; };
  const struct {
    const char* what;
    Samples heard;
    Heard found;
  } cases[] = {
      {"clear", Hear(1, 0, nothing), Heard::Tone},
      {"far and late", Hear(0.02, 14400, Noise(20)), Heard::Tone},
      {"with an offset", Hear(0.02, 5000, [](std::size_t) { return 900.0; }), Heard::Tone},
      {"beside hum", Hear(0.2, 5000, Sine(1000, 50)), Heard::Tone},
      {"drowned", Hear(0.001, 5000, Noise(3000)), Heard::OtherSound},
      {"not there", Hear(0, 0, Noise(3000)), Heard::OtherSound},
      {"a note near it", Hear(0, 0, Sine(3000, 1046.5)), Heard::OtherSound},
      {"its octave", Hear(0, 0, Sine(3000, 2234)), Heard::OtherSound},
      {"there before", Hear(1, 0, Sine(3000, machine::kToneFrequency)), Heard::ToneBefore},
      {"silence", Hear(0, 0, nothing), Heard::Silence},
      {"silence with an offset", Hear(0, 0, [](std::size_t) { return -7.0; }), Heard::Silence},
      {"nothing", {}, Heard::Silence},
      {"one sample", {5}, Heard::Silence},
  };
  for (const auto& each : cases) EXPECT_EQ(machine::FindTone(each.heard), each.found) << each.what;
}

TEST(Tone, AShortPieceOfItIsNotEnough) {
  Samples heard = Hear(1, 0, Noise(50));
  heard.resize(machine::kSampleRate);
  EXPECT_EQ(machine::FindTone(heard), Heard::OtherSound);
}

TEST(Tone, AllEnergyOfASineLiesInItsFrequency) {
  Samples sine(4800);
  for (std::size_t i = 0; i < sine.size(); ++i)
    sine[i] = static_cast<std::int16_t>(std::lround(Sine(1000, 440)(i)));
  EXPECT_NEAR(machine::ShareOfFrequency(sine, 440), 1, 0.01);
  EXPECT_NEAR(machine::ShareOfFrequency(sine, 880), 0, 0.01);
  EXPECT_EQ(machine::ShareOfFrequency({}, 440), 0);
}

TEST(Tone, IsQuietAndBeginsAfterAPause) {
  const Samples tone = machine::MakeTone();
  EXPECT_LT(*std::max_element(tone.begin(), tone.end()), 4000);
  EXPECT_EQ(std::count(tone.begin(), tone.begin() + machine::kSampleRate / 2, 0),
            machine::kSampleRate / 2);
}

}  // namespace
