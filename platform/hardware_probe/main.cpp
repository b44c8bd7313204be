#include "platform/machine/live/probe.h"

int main(int argc, char** argv) {
  return machine::AnswerAsProbe(argc, argv);
}
