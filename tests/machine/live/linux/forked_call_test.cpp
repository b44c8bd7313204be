#include "platform/machine/live/linux/forked_call.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include "tests/support/temporary_folder.h"

namespace {

using machine::AfterLimit;
using machine::RunForked;
using machine::SharedAnswer;

constexpr std::chrono::seconds kPatience{60};

TEST(ForkedCall, HandsBackWhatTheChildFound) {
  const SharedAnswer<int> answer;
  EXPECT_EQ(RunForked(
                [&] {
                  *answer = 42;
                  return 7;
                },
                AfterLimit::Kill, kPatience),
            7);
  EXPECT_EQ(*answer, 42);
}

TEST(ForkedCall, GivesUpAChildThatHangsOrDies) {
  const auto hang = [] {
    for (;;) pause();
    return 0;
  };
  EXPECT_FALSE(RunForked(hang, AfterLimit::Kill, std::chrono::milliseconds(20)));
  EXPECT_FALSE(RunForked([] { return raise(SIGKILL); }, AfterLimit::Kill, kPatience));
}

TEST(ForkedCall, WhatMayFinishFinishesAfterTheEndOfItsProgram) {
  const TemporaryFolder folder;
  const std::string go = folder.path / "go";
  const std::string done = folder.path / "done";
  ASSERT_EQ(mkfifo(go.c_str(), 0600), 0);
  ASSERT_EQ(mkfifo(done.c_str(), 0600), 0);
  const auto body = [&] {
    char letter = 0;
    const int gate = open(go.c_str(), O_RDONLY);
    if (read(gate, &letter, 1) != 1) return 1;
    for (const int request : {SIGHUP, SIGINT, SIGTERM}) raise(request);
    const int answer = open(done.c_str(), O_WRONLY);
    return write(answer, "x", 1) == 1 ? 0 : 1;
  };
  const pid_t program = fork();
  if (program == 0) {
    RunForked(body, AfterLimit::LetFinish, kPatience);
    _exit(0);
  }
  const int gate = open(go.c_str(), O_WRONLY);  // waits until the child is at its work
  kill(program, SIGKILL);
  ASSERT_EQ(waitpid(program, nullptr, 0), program);
  ASSERT_EQ(write(gate, "g", 1), 1);
  char letter = 0;
  const int answer = open(done.c_str(), O_RDONLY);
  EXPECT_EQ(read(answer, &letter, 1), 1);
  EXPECT_EQ(letter, 'x');
  close(gate);
  close(answer);
}

}  // namespace
