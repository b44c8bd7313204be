// What a test runs: process_partner <deed> [words...]

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>

namespace {

int Hang() {
  std::this_thread::sleep_for(std::chrono::minutes(10));
  return 0;
}

int PrintWords(int count, char** words) {
  for (int i = 2; i < count; ++i) std::printf("%s|", words[i]);
  return 0;
}

int PrintOnBothOutputs() {
  std::fputs("seen", stdout);
  std::fputs("hidden", stderr);
  return 3;
}

// As many bytes as the word says; without one, no end of them.
int PrintZeros(const char* word) {
  const long long count = word == nullptr ? -1 : std::atoll(word);
  for (long long i = 0; i != count && std::fputc(0, stdout) != EOF;) ++i;
  return 0;
}

// A file that is open as long as this runs, which is on when nobody reads its output any more.
int HoldFile(const char* file) {
  if (std::fopen(file, "w") == nullptr) return 1;
  PrintZeros(nullptr);
  return Hang();
}

int InAChild(const char* program, const char* deed, const char* word) {
  const std::string command = std::string(program) + ' ' + deed + ' ' + (word ? word : "");
  return std::system(command.c_str());
}

}  // namespace

int main(int count, char** words) {
  if (count < 2) return 2;
  const std::string_view deed = words[1];
  const char* const word = count > 2 ? words[2] : nullptr;
  if (deed == "print") return PrintWords(count, words);
  if (deed == "print-both") return PrintOnBothOutputs();
  if (deed == "zeros") return PrintZeros(word);
  if (deed == "read") return std::getchar() == EOF ? 0 : 7;
  if (deed == "hold") return HoldFile(word);
  if (deed == "hold-in-child") return InAChild(words[0], "hold", word);
  if (deed == "hang-in-child") return InAChild(words[0], "hang", nullptr);
  if (deed == "hang-silent") std::fclose(stdout);
  return Hang();
}
