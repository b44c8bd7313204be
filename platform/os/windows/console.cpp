#include "platform/os/console.h"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>

#include <cstdlib>

#include "platform/os/windows/handle.h"

namespace os {
namespace {

UINT codePageBefore = 0;

// The console outlives the program.
void RestoreCodePage() {
  SetConsoleOutputCP(codePageBefore);
}

}  // namespace

void PrepareOutput() {
  for (FILE* stream : {stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  codePageBefore = GetConsoleOutputCP();
  if (codePageBefore == 0 || codePageBefore == CP_UTF8) return;
  if (SetConsoleOutputCP(CP_UTF8) != 0) std::atexit(&RestoreCodePage);
}

bool OutputIsTerminal() {
  HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(output, &mode) != 0 &&
         SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

std::size_t OutputColumns() {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info) == 0) return 0;
  return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

bool InputIsTerminal() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
}

}  // namespace os
