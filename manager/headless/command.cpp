#include "manager/headless/command.h"

#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>
#include <utility>

namespace manager {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

template <typename Number>
bool ReadWhole(std::string_view text, int base, Number& number) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, base);
  return error == std::errc() && stop == end && !text.empty();
}

}  // namespace

std::string_view WithoutComment(std::string_view line) {
  for (std::size_t sign = line.find('#'); sign != std::string_view::npos;
       sign = line.find('#', sign + 1)) {
    if (sign != 0 && kBlanks.find(line[sign - 1]) == std::string_view::npos) continue;
    line = line.substr(0, sign);
    break;
  }
  return Trimmed(line);
}

std::string_view TakeWord(std::string_view& line) {
  line = Trimmed(line);
  const std::string_view word = line.substr(0, line.find_first_of(kBlanks));
  line = Trimmed(line.substr(word.size()));
  return word;
}

std::vector<std::string> ParseArguments(const CommandForm& form, std::string_view rest) {
  std::vector<std::string> arguments;
  while (!rest.empty() && arguments.size() + 1 < form.most) arguments.emplace_back(TakeWord(rest));
  if (!rest.empty() && form.most != 0) arguments.emplace_back(std::exchange(rest, {}));
  if (arguments.size() >= form.least && rest.empty()) return arguments;
  throw CommandError((rest.empty() ? "an argument is missing: " : "too many arguments: ") +
                     std::string(form.name) + (form.form.empty() ? "" : " ") +
                     std::string(form.form));
}

std::int64_t ParseWhole(const std::string& text, std::int64_t least, std::int64_t most) {
  std::int64_t number = 0;
  if (ReadWhole(text, 10, number) && number >= least && number <= most) return number;
  throw CommandError(Quoted(text) + " is no whole number from " + std::to_string(least) + " to " +
                     std::to_string(most));
}

double ParseScale(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  double number = 0;
  if (stream >> number && stream.peek() == std::istringstream::traits_type::eof() &&
      number >= 0.5 && number <= 4)
    return number;
  throw CommandError(Quoted(text) + " is no scale from 0.5 to 4");
}

std::uint32_t ParseId(const std::string& text) {
  std::uint32_t number = 0;
  const bool isHex = text.starts_with("0x") || text.starts_with("0X");
  if (ReadWhole(std::string_view(text).substr(isHex ? 2 : 0), isHex ? 16 : 10, number))
    return number;
  throw CommandError(Quoted(text) + " is no message id, such as 0x200009");
}

std::vector<std::uint8_t> ParseHex(const std::string& text) {
  std::vector<std::uint8_t> bytes(text.size() / 2);
  bool valid = text.size() % 2 == 0;
  for (std::size_t index = 0; valid && index < bytes.size(); ++index)
    valid = ReadWhole(std::string_view(text).substr(2 * index, 2), 16, bytes[index]);
  if (!valid) throw CommandError(Quoted(text) + " is no body, two hexadecimal digits a byte");
  return bytes;
}

std::string Quoted(std::string_view text) {
  constexpr std::size_t kLongest = 60;
  if (text.size() <= kLongest) return '"' + std::string(text) + '"';
  return '"' + std::string(text.substr(0, kLongest)) + "...\" (" + std::to_string(text.size()) +
         " bytes)";
}

}  // namespace manager
