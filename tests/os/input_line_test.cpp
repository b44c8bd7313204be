#include "platform/os/input_line.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "platform/os/interrupt.h"
#include "tests/os/given_input.h"

namespace {

using os::InputEnd;

std::atomic<int> interrupts = 0;

class InputLine : public testing::Test {
 protected:
  InputLine() {
    interrupts = 0;
    os::OnInterrupt([] { ++interrupts; }, 9);
  }

  // The line, or how it ended instead.
  static std::string Read() {
    std::string line;
    switch (os::ReadInputLine(line)) {
      case InputEnd::Line:
        return line;
      case InputEnd::NoMore:
        return "(no more)";
      default:
        return "(interrupt)";
    }
  }

  GivenInput input;
};

TEST_F(InputLine, ComesLineByLineAndTheLastNeedsNoEnd) {
  input.Type("y\n\nyes\nla");
  input.Type("st");
  input.End();
  for (const char* expected : {"y", "", "yes", "last", "(no more)", "(no more)"})
    EXPECT_EQ(Read(), expected);
  EXPECT_EQ(interrupts, 0);
}

TEST_F(InputLine, AnInterruptEndsTheWaitAndEveryLaterOneUntilTheNextBeginning) {
  input.Type("half a li");
  std::thread person([] { GivenInput::Interrupt(); });
  EXPECT_EQ(Read(), "(interrupt)");
  person.join();
  EXPECT_EQ(interrupts, 1);
  EXPECT_EQ(Read(), "(interrupt)");
}

TEST_F(InputLine, AnInterruptFromBeforeTheQuestionCountsMoreThanAnAnswerThatIsThere) {
  GivenInput::Interrupt();
  while (interrupts == 0) std::this_thread::yield();
  input.Type("y\ny\n");
  EXPECT_EQ(Read(), "(interrupt)");
  os::OnInterrupt([] {}, 9);
  EXPECT_EQ(Read(), "y");
}

}  // namespace
