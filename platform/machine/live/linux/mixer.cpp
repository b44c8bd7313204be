#include "platform/machine/live/linux/mixer.h"

#include <alsa/asoundlib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <string_view>

#include "common/text.h"

namespace machine {
namespace {

// The controls that all sound goes through; others serve one plug or another.
constexpr auto kSpeakerControls = std::to_array<std::string_view>({"Master", "Speaker", "PCM"});
constexpr auto kMicrophoneControls = std::to_array<std::string_view>({"Capture", "Internal Mic"});

constexpr double kLeastVolume = 0.1;  // of the range

struct MixerCloser {
  void operator()(snd_mixer_t* mixer) const { snd_mixer_close(mixer); }
};
using Mixer = std::unique_ptr<snd_mixer_t, MixerCloser>;

struct ControlsCloser {
  void operator()(snd_hctl_t* controls) const { snd_hctl_close(controls); }
};
using Controls = std::unique_ptr<snd_hctl_t, ControlsCloser>;

std::string CardName(int card) {
  return "hw:" + std::to_string(card);
}

Mixer OpenMixer(int card) {
  snd_mixer_t* opened = nullptr;
  if (snd_mixer_open(&opened, 0) < 0) return nullptr;
  Mixer mixer(opened);
  const bool loaded = snd_mixer_attach(opened, CardName(card).c_str()) >= 0 &&
                      snd_mixer_selem_register(opened, nullptr, nullptr) >= 0 &&
                      snd_mixer_load(opened) >= 0;
  return loaded ? std::move(mixer) : nullptr;
}

/// The calls about one direction of sound.
struct Direction {
  int (*hasSwitch)(snd_mixer_elem_t*);
  int (*getSwitch)(snd_mixer_elem_t*, snd_mixer_selem_channel_id_t, int*);
  int (*hasVolume)(snd_mixer_elem_t*);
  int (*getRange)(snd_mixer_elem_t*, long*, long*);
  int (*getVolume)(snd_mixer_elem_t*, snd_mixer_selem_channel_id_t, long*);
  int (*hasChannel)(snd_mixer_elem_t*, snd_mixer_selem_channel_id_t);
};

constexpr Direction kPlayback{
    snd_mixer_selem_has_playback_switch, snd_mixer_selem_get_playback_switch,
    snd_mixer_selem_has_playback_volume, snd_mixer_selem_get_playback_volume_range,
    snd_mixer_selem_get_playback_volume, snd_mixer_selem_has_playback_channel};
constexpr Direction kCapture{
    snd_mixer_selem_has_capture_switch, snd_mixer_selem_get_capture_switch,
    snd_mixer_selem_has_capture_volume, snd_mixer_selem_get_capture_volume_range,
    snd_mixer_selem_get_capture_volume, snd_mixer_selem_has_capture_channel};

/// Whether one channel at least satisfies the question.
template <typename Question>
bool AnyChannel(const Direction& direction, snd_mixer_elem_t* control, Question question) {
  for (int channel = 0; channel <= SND_MIXER_SCHN_LAST; ++channel) {
    const auto id = static_cast<snd_mixer_selem_channel_id_t>(channel);
    if (direction.hasChannel(control, id) != 0 && question(id)) return true;
  }
  return false;
}

bool IsOff(const Direction& direction, snd_mixer_elem_t* control) {
  if (direction.hasSwitch(control) == 0) return false;
  return !AnyChannel(direction, control, [&](auto channel) {
    int on = 1;
    return direction.getSwitch(control, channel, &on) < 0 || on != 0;
  });
}

bool IsTurnedDown(const Direction& direction, snd_mixer_elem_t* control) {
  long lowest = 0, highest = 0;
  if (direction.hasVolume(control) == 0 || direction.getRange(control, &lowest, &highest) < 0 ||
      highest <= lowest)
    return false;
  const double least = static_cast<double>(lowest) +
                       kLeastVolume * (static_cast<double>(highest) - static_cast<double>(lowest));
  return !AnyChannel(direction, control, [&](auto channel) {
    long volume = 0;
    return direction.getVolume(control, channel, &volume) < 0 ||
           static_cast<double>(volume) >= least;
  });
}

std::wstring FindMuted(int card, const Direction& direction,
                       std::span<const std::string_view> names, const wchar_t* what) {
  const Mixer mixer = OpenMixer(card);
  if (mixer == nullptr) return {};
  for (auto* control = snd_mixer_first_elem(mixer.get()); control != nullptr;
       control = snd_mixer_elem_next(control)) {
    const std::string_view name = snd_mixer_selem_get_name(control);
    if (snd_mixer_selem_is_active(control) == 0 || std::ranges::count(names, name) == 0) continue;
    const std::wstring named = std::wstring(what) + L" (" + common::Utf8ToWide(name) + L")";
    if (IsOff(direction, control)) return named + L" is muted";
    if (IsTurnedDown(direction, control)) return named + L" is turned down";
  }
  return {};
}

bool HasHeadphones(int card) {
  snd_hctl_t* opened = nullptr;
  if (snd_hctl_open(&opened, CardName(card).c_str(), 0) < 0) return false;
  const Controls controls(opened);
  if (snd_hctl_load(opened) < 0) return false;
  for (auto* control = snd_hctl_first_elem(opened); control != nullptr;
       control = snd_hctl_elem_next(control)) {
    const std::string_view name = snd_hctl_elem_get_name(control);
    if (!name.starts_with("Headphone") || !name.ends_with(" Jack")) continue;
    snd_ctl_elem_value_t* value = nullptr;
    snd_ctl_elem_value_alloca(&value);
    if (snd_hctl_elem_read(control, value) >= 0 && snd_ctl_elem_value_get_boolean(value, 0) != 0)
      return true;
  }
  return false;
}

}  // namespace

std::wstring FindMutedSpeaker(int card) {
  if (HasHeadphones(card)) return L"headphones are plugged in, so that the speaker is silent";
  return FindMuted(card, kPlayback, kSpeakerControls, L"the speaker");
}

std::wstring FindMutedMicrophone(int card) {
  return FindMuted(card, kCapture, kMicrophoneControls, L"the microphone");
}

}  // namespace machine
