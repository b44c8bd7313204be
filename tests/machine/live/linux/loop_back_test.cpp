#include "platform/machine/live/linux/loop_back.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/machine/live/tone.h"
#include "tests/support/temporary_folder.h"

namespace {

/// Devices of the sound system that hear what a file holds, and a player that nobody hears.
class FakeSound {
 public:
  FakeSound() {
    Add("tone", machine::MakeTone());
    std::vector<std::int16_t> beat(machine::MakeTone().size());
    for (std::size_t i = 0; i < beat.size(); ++i) beat[i] = i / 100 % 2 == 0 ? 900 : -900;
    Add("beat", beat);
    WriteText(folder.path / "asound.conf",
              configuration + "pcm.player { type null }\npcm.silence { type null }\n");
    setenv("ALSA_CONFIG_PATH", (folder.path / "asound.conf").c_str(), 1);
  }
  ~FakeSound() { unsetenv("ALSA_CONFIG_PATH"); }
  FakeSound(const FakeSound&) = delete;
  FakeSound& operator=(const FakeSound&) = delete;

 private:
  // Silence follows, for the listener hears longer than the tone lasts.
  void Add(const std::string& name, std::vector<std::int16_t> samples) {
    samples.resize(machine::kSampleRate * 4);
    WriteText(folder.path / name,
              {reinterpret_cast<const char*>(samples.data()), samples.size() * sizeof samples[0]});
    configuration += "pcm." + name +
                     " { type file slave.pcm { type null } file \"/dev/null\" infile \"" +
                     (folder.path / name).string() + "\" format \"raw\" }\n";
  }

  TemporaryFolder folder;
  std::string configuration;
};

TEST(LoopBack, TellsWhatTheMicrophoneHears) {
  const FakeSound sound;
  EXPECT_EQ(machine::PlayAndListen("player", "tone").code, 0U);
  EXPECT_EQ(machine::PlayAndListen("player", "tone").text, L"the tone was heard");
  EXPECT_EQ(machine::PlayAndListen("player", "beat").code, 12U);
  const machine::TestAnswer silence = machine::PlayAndListen("player", "silence");
  EXPECT_EQ(silence.code, 0U);
  EXPECT_NE(silence.notTested, L"");
}

TEST(LoopBack, ADeviceThatIsNotThereCouldNotBeTested) {
  const FakeSound sound;
  bool isBusy = true;
  for (const auto& [player, microphone] : {std::pair{"nobody", "tone"}, {"player", "nobody"}}) {
    const machine::TestAnswer answer = machine::PlayAndListen(player, microphone, &isBusy);
    EXPECT_EQ(answer.code, 0U);
    EXPECT_TRUE(answer.notTested.starts_with(L"the sound device nobody"));
    EXPECT_FALSE(isBusy);
  }
}

}  // namespace
