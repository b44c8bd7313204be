#include "sysdiagnose/ui/page/page_run.h"

namespace orv::sysdiagnose {

PageRun::PageRun() : state(std::make_shared<State>()) {}

PageRun::~PageRun() {
  state->isOver = true;
  StopPacing();
}

void PageRun::LetGoOn() {
  state->gate.send(0);
}

void PageRun::StopPacing() {
  state->isPaced = false;
  state->gate.send(0);
}

void PageRun::Link::WaitForPage() const {
  if (state->isPaced) state->gate.receive();
}

}  // namespace orv::sysdiagnose
