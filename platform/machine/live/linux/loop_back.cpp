#include "platform/machine/live/linux/loop_back.h"

#include <alsa/asoundlib.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "common/ascii.h"
#include "common/text.h"
#include "platform/machine/live/linux/mixer.h"
#include "platform/machine/live/linux/sound_cards.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/machine/live/tone.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"

namespace machine {
namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t kNotHeard = 12;
constexpr std::uint32_t kCannotBeUsed = 13;

constexpr unsigned kLatency = 100'000;  // microseconds
constexpr std::size_t kListened = kSampleRate * 5 / 2;
constexpr auto kPatience = 8s;
constexpr auto kServerPatience = 3s;
constexpr std::size_t kTextLimit = std::size_t{64} << 10;
constexpr const char* kServersDevice = "default";

struct Closer {
  void operator()(snd_pcm_t* device) const {
    snd_pcm_drop(device);
    snd_pcm_close(device);
  }
};
using Device = std::unique_ptr<snd_pcm_t, Closer>;

std::wstring Reason(const std::string& name, int error) {
  return L"the sound device " + common::Utf8ToWide(name) + L": " +
         common::Utf8ToWide(snd_strerror(error));
}

/// One channel of samples. Null, and an error of the sound system, where it cannot be had.
Device Open(const std::string& name, snd_pcm_stream_t direction, int& error) {
  snd_pcm_t* opened = nullptr;
  error = snd_pcm_open(&opened, name.c_str(), direction, SND_PCM_NONBLOCK);
  if (error < 0) return nullptr;
  Device device(opened);
  error = snd_pcm_set_params(opened, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, 1,
                             kSampleRate, 1, kLatency);
  return error < 0 ? nullptr : std::move(device);
}

/// Plays what there is room for and takes it off `tone`.
int Play(snd_pcm_t* player, std::span<const std::int16_t>& tone) {
  if (tone.empty()) return 0;
  const snd_pcm_sframes_t written = snd_pcm_writei(player, tone.data(), tone.size());
  if (written == -EAGAIN) return 0;
  if (written < 0) return snd_pcm_recover(player, static_cast<int>(written), 1);
  tone = tone.subspan(static_cast<std::size_t>(written));
  return 0;
}

/// Puts what was heard so far behind `heard`.
int Listen(snd_pcm_t* microphone, std::vector<std::int16_t>& heard) {
  std::array<std::int16_t, kSampleRate / 20> chunk{};
  const snd_pcm_sframes_t count = snd_pcm_readi(microphone, chunk.data(), chunk.size());
  if (count == -EAGAIN) return 0;
  if (count < 0) return snd_pcm_recover(microphone, static_cast<int>(count), 1);
  heard.insert(heard.end(), chunk.begin(), chunk.begin() + count);
  return 0;
}

/// The samples of a tone's time and some more; fewer when the microphone gives no more.
int PlayWhileListening(snd_pcm_t* player, snd_pcm_t* microphone, std::vector<std::int16_t>& heard) {
  const std::vector<std::int16_t> samples = MakeTone();
  std::span<const std::int16_t> tone = samples;
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  int error = snd_pcm_start(microphone);
  while (error >= 0 && heard.size() < kListened && std::chrono::steady_clock::now() < deadline) {
    error = Play(player, tone);
    if (error >= 0) error = Listen(microphone, heard);
    constexpr int kMilliseconds = 5;
    snd_pcm_wait(microphone, kMilliseconds);
  }
  return error;
}

struct HeardRow {
  Heard heard;
  std::uint32_t code;
  const wchar_t* text;
  const wchar_t* notTested;
};
constexpr auto kVerdicts = std::to_array<HeardRow>({
    {Heard::Tone, 0, L"the tone was heard", L""},
    {Heard::Silence, 0, L"", L"the microphone gives nothing but silence: it may be switched off"},
    {Heard::OtherSound, kNotHeard,
     L"the microphone works but did not hear the tone that was played", L""},
    {Heard::ToneBefore, 0, L"", L"something else in the room sounds like the tone"},
});

TestAnswer VerdictOf(const std::vector<std::int16_t>& heard) {
  if (heard.size() < kListened)
    return {.code = kCannotBeUsed, .text = L"the microphone stops giving sound", .pass = false};
  const Heard found = FindTone(heard);
  const HeardRow& row = *std::ranges::find(kVerdicts, found, &HeardRow::heard);
  return {.code = row.code, .text = row.text, .pass = row.code == 0, .notTested = row.notTested};
}

TestAnswer Unusable(const std::string& name, int error, bool* isBusy) {
  const std::wstring reason = Reason(name, error);
  if (isBusy != nullptr) *isBusy = error == -EBUSY;
  if (error == -EBUSY) return {.notTested = reason};
  // Who may not open it, or has no server to reach it by, learns nothing about it.
  if (error == -EACCES || error == -EPERM || error == -ENOENT || error == -ECONNREFUSED)
    return {.notTested = reason};
  return {.code = kCannotBeUsed, .text = reason, .pass = false};
}

/// What a sound server's tool prints, without the end of the line.
std::string AskServer(const std::vector<std::string>& question) {
  std::vector<std::string> words{"pactl"};
  words.insert(words.end(), question.begin(), question.end());
  const auto result = os::RunProcess(words, kServerPatience);
  return result && result->exitStatus == 0 ? common::Trimmed(result->output) : std::string();
}

bool IsOfMachine(const std::string& serverDevice) {
  return !serverDevice.ends_with(".monitor") &&
         (serverDevice.find(".pci-") != std::string::npos ||
          serverDevice.find(".platform-") != std::string::npos);
}

struct ServerQuestion {
  const char* device;
  const char* mute;
  const char* name;
  const wchar_t* muted;
  const wchar_t* elsewhere;
};
constexpr auto kServerQuestions = std::to_array<ServerQuestion>({
    {"get-default-sink", "get-sink-mute", "@DEFAULT_SINK@", L"the sound is muted",
     L"the sound goes to no speaker of this machine"},
    {"get-default-source", "get-source-mute", "@DEFAULT_SOURCE@", L"the microphone is muted",
     L"the sound server listens on no microphone of this machine"},
});

/// Why the way through the sound server does not tell of the machine's own sound; else empty.
std::wstring WhyNotByServer() {
  for (const ServerQuestion& question : kServerQuestions) {
    const std::string device = AskServer({question.device});
    if (device.empty()) return L"another program uses the sound, and no sound server answers";
    if (!IsOfMachine(device)) return question.elsewhere;
    if (AskServer({question.mute, question.name}).ends_with("yes")) return question.muted;
  }
  return {};
}

TestAnswer ByServer() {
  const std::wstring reason = WhyNotByServer();
  if (!reason.empty()) return {.notTested = reason};
  return PlayAndListen(kServersDevice, kServersDevice);
}

std::string NameOf(const Stream& stream) {
  return "plughw:" + std::to_string(stream.card) + ',' + std::to_string(stream.device);
}

/// The first stream of the machine's cards that has this direction; those of displays do not count.
std::optional<Stream> FindStream(bool Stream::*direction) {
  const std::vector<SoundCard> cards = ListSoundCards();
  for (const Stream& stream :
       ParseStreams(ReadText(os::SystemPath("/proc/asound/pcm"), kTextLimit))) {
    if (stream.*direction && stream.name.find("HDMI") == std::string::npos &&
        std::ranges::count(cards, stream.card, &SoundCard::number) > 0)
      return stream;
  }
  return std::nullopt;
}

}  // namespace

TestAnswer PlayAndListen(const std::string& player, const std::string& microphone, bool* isBusy) {
  int error = 0;
  const Device plays = Open(player, SND_PCM_STREAM_PLAYBACK, error);
  if (plays == nullptr) return Unusable(player, error, isBusy);
  const Device listens = Open(microphone, SND_PCM_STREAM_CAPTURE, error);
  if (listens == nullptr) return Unusable(microphone, error, isBusy);
  std::vector<std::int16_t> heard;
  error = PlayWhileListening(plays.get(), listens.get(), heard);
  return error < 0 ? Unusable(player, error, nullptr) : VerdictOf(heard);
}

TestAnswer TestLoopBack() {
  if (os::SystemPath("/") != "/") return {.notTested = L"no sound can be played on another system"};
  const std::optional<Stream> player = FindStream(&Stream::plays);
  if (!player) return {.notTested = L"there is no speaker to play a tone with"};
  const std::optional<Stream> microphone = FindStream(&Stream::records);
  if (!microphone) return {.notTested = L"there is no microphone to hear a tone with"};
  std::wstring muted = FindMutedSpeaker(player->card);
  if (muted.empty()) muted = FindMutedMicrophone(microphone->card);
  if (!muted.empty()) return {.notTested = muted};

  bool isBusy = false;
  TestAnswer answer = PlayAndListen(NameOf(*player), NameOf(*microphone), &isBusy);
  return isBusy ? ByServer() : answer;
}

}  // namespace machine
