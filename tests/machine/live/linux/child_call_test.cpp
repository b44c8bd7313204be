#include "platform/machine/live/child_call.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>

#include "tests/support/linux/fake_system.h"

namespace {

using namespace std::chrono_literals;
using machine::TestAnswer;
using machine::TestCall;

/// Stands for the program that makes the calls, for as long as it lives.
class FakeProbe {
 public:
  explicit FakeProbe(const std::string& script) {
    const std::filesystem::path program = folder.path / "probe";
    WriteText(program, "#!/bin/sh\n" + script);
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    machine::SetProbeProgram(program);
  }
  ~FakeProbe() { machine::SetProbeProgram({}); }
  FakeProbe(const FakeProbe&) = delete;
  FakeProbe& operator=(const FakeProbe&) = delete;

 private:
  TemporaryFolder folder;
};

TEST(ChildCall, ACallWithoutAnAnswerCouldNotBeTested) {
  const struct {
    const char* script;
    std::chrono::milliseconds limit;
    const wchar_t* reason;
  } cases[] = {
      {"sleep 600", 1s, L"no answer within 1 seconds"},
      {"sleep 600 & sleep 600", 1s, L"no answer within 1 seconds"},
      {"kill -9 $$", 60s, L"no answer: the program that asks was ended by a signal"},
      {"echo '{\"tests\": 1}'", 60s, nullptr},
  };
  for (const auto& [script, limit, reason] : cases) {
    const FakeProbe probe(script);
    const TestAnswer answer = machine::TestInChild(TestCall::AudioLoopBack, -1, limit);
    EXPECT_EQ(answer.code, 0U) << script;
    EXPECT_TRUE(answer.pass);
    EXPECT_TRUE(answer.notTested.starts_with(reason == nullptr ? L"no answer: " : reason))
        << script;
  }
  machine::SetProbeProgram("/no/such/program");
  EXPECT_TRUE(machine::TestInChild(TestCall::AudioLoopBack, -1, 60s)
                  .notTested.ends_with(L"is not installed"));
  machine::SetProbeProgram({});
}

TEST(ChildCall, ARepairWithoutAnAnswerHasFailed) {
  const FakeProbe probe("exit 3");
  const auto answer = machine::RepairInChild(machine::RepairCall::Audio, 1, 60s);
  EXPECT_NE(answer.code, 0U);
  EXPECT_FALSE(answer.text.empty());
}

TEST(ChildCall, HandsOnWhatTheCallAnswersOrThrows) {
  const FakeProbe probe(R"(
case "$4" in
  CBiometricDetect::CheckDevice)
    echo "{\"tests\": {\"$4\": {\"code\": 7, \"pass\": false, \"text\": \"$3 $5\"}}}";;
  CCpuTest::TestSSE) echo "{\"tests\": {\"$4\": {\"throws\": \"library fault\"}}}";;
  *) echo "{\"repairs\": {\"$4\": {\"code\": 3, \"text\": \"$3 $5\"}}}";;
esac)");
  const TestAnswer answer = machine::TestInChild(TestCall::BiometricDevice, -1, 60s);
  EXPECT_EQ(answer.code, 7U);
  EXPECT_FALSE(answer.pass);
  EXPECT_EQ(answer.text, L"test -1");
  EXPECT_THROW(machine::TestInChild(TestCall::CpuSse, -1, 60s), std::runtime_error);
  const auto repaired = machine::RepairInChild(machine::RepairCall::Audio, 5, 60s);
  EXPECT_EQ(repaired.code, 3U);
  EXPECT_EQ(repaired.text, L"repair 5");
}

// The program itself, asked as the live machine asks it.
TEST(ChildCall, TheProgramMakesTheCall) {
  machine::SetProbeProgram(APP_DIR "/hardware-probe");
  const FakeSystem system;
  const TestAnswer sse = machine::TestInChild(TestCall::CpuSse2, -1, 60s);
  EXPECT_EQ(sse.code, 0U);
  EXPECT_EQ(sse.notTested, L"");
  EXPECT_EQ(machine::TestInChild(TestCall::DiskHddSmart, 3, 60s).notTested,
            L"there is no such disk");
  EXPECT_NE(machine::RepairInChild(machine::RepairCall::Hotkey, 1, 60s).code, 0U);
  machine::SetProbeProgram({});
}

}  // namespace
