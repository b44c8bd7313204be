#include "platform/machine/live/tone.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace machine {
namespace {

constexpr std::size_t kPause = kSampleRate / 2;
constexpr std::size_t kLength = kSampleRate;
constexpr std::size_t kFade = kSampleRate / 50;  // so that the speaker does not click
constexpr double kLoudness = 0.1 * 32767;

constexpr std::size_t kWindow = kSampleRate / 10;
constexpr double kLeastShare = 0.05;      // in a window with the tone; noise has less than 0.01
constexpr std::size_t kLeastWindows = 6;  // in a row
constexpr int kLeastSwing = 2;            // of a sample, in what is not silence

double Fade(std::size_t index) {
  const std::size_t toEdge = std::min(index, kLength - index);
  return std::min(1.0, static_cast<double>(toEdge) / kFade);
}

std::vector<bool> WindowsWithTone(std::span<const std::int16_t> recording) {
  std::vector<bool> windows;
  for (; recording.size() >= kWindow; recording = recording.subspan(kWindow))
    windows.push_back(ShareOfFrequency(recording.first(kWindow), kToneFrequency) >= kLeastShare);
  return windows;
}

}  // namespace

std::vector<std::int16_t> MakeTone() {
  constexpr double kStep = 2 * std::numbers::pi * kToneFrequency / kSampleRate;
  std::vector<std::int16_t> samples(kPause + kLength + kPause);
  for (std::size_t i = 0; i < kLength; ++i)
    samples[kPause + i] =
        static_cast<std::int16_t>(kLoudness * Fade(i) * std::sin(kStep * static_cast<double>(i)));
  return samples;
}

// Goertzel's recurrence: one term of the Fourier transform.
double ShareOfFrequency(std::span<const std::int16_t> samples, double frequency) {
  if (samples.empty()) return 0;
  const auto count = static_cast<double>(samples.size());
  const double mean = std::accumulate(samples.begin(), samples.end(), 0.0) / count;
  const double coefficient = 2 * std::cos(2 * std::numbers::pi * frequency / kSampleRate);
  double last = 0, beforeLast = 0, energy = 0;
  for (const std::int16_t sample : samples) {
    const double value = sample - mean;
    const double next = value + coefficient * last - beforeLast;
    beforeLast = last;
    last = next;
    energy += value * value;
  }
  if (energy <= 0) return 0;
  const double power = last * last + beforeLast * beforeLast - coefficient * last * beforeLast;
  return 2 * power / (count * energy);
}

Heard FindTone(std::span<const std::int16_t> recording) {
  const auto [lowest, highest] = std::ranges::minmax_element(recording);
  if (recording.empty() || *highest - *lowest < kLeastSwing) return Heard::Silence;
  const std::vector<bool> windows = WindowsWithTone(recording);
  // The last window of the pause may already hold the first of the tone.
  const std::size_t pauses = std::min(windows.size(), kPause / kWindow - 1);
  if (std::find(windows.begin(), windows.begin() + static_cast<std::ptrdiff_t>(pauses), true) !=
      windows.begin() + static_cast<std::ptrdiff_t>(pauses))
    return Heard::ToneBefore;
  const auto found = std::search_n(windows.begin(), windows.end(), kLeastWindows, true);
  return found == windows.end() ? Heard::OtherSound : Heard::Tone;
}

}  // namespace machine
