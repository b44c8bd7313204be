#include "tests/os/given_input.h"

#include <stdexcept>

#include "platform/os/windows/end_request.h"

struct GivenInput::System {
  os::Handle input;
  os::Handle keyboard;
  HANDLE before = nullptr;
};

GivenInput::GivenInput() : system(std::make_unique<System>()) {
  HANDLE input = nullptr;
  HANDLE keyboard = nullptr;
  if (CreatePipe(&input, &keyboard, nullptr, 0) == 0) throw std::runtime_error("no pipe");
  system->input = os::Handle(input);
  system->keyboard = os::Handle(keyboard);
  system->before = GetStdHandle(STD_INPUT_HANDLE);
  SetStdHandle(STD_INPUT_HANDLE, input);
}

GivenInput::~GivenInput() {
  SetStdHandle(STD_INPUT_HANDLE, system->before);
}

void GivenInput::Type(const std::string& keys) {
  DWORD written = 0;
  if (WriteFile(system->keyboard.Get(), keys.data(), static_cast<DWORD>(keys.size()), &written,
                nullptr) == 0)
    throw std::runtime_error("the input takes no keys");
}

void GivenInput::End() {
  system->keyboard.Close();
}

// Without a console there is no Ctrl-C; another program's request takes the same way.
void GivenInput::Interrupt() {
  if (!os::RequestEnd(GetCurrentProcessId())) throw std::runtime_error("nobody listens");
}
