#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace manager {

/// A command cannot be understood or carried out; the text says why.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// How a command is written.
struct CommandForm {
  std::string_view name;
  std::size_t least;      // arguments
  std::size_t most;       // of which the last takes the rest of the line
  std::string_view form;  // of the arguments, for errors
};

/// The line without comment and blanks at its ends; empty when nothing is left. A comment begins
/// with # at the begin of the line or behind a blank.
std::string_view WithoutComment(std::string_view line);

/// The first word of a line that has one; what follows it stays in `line`.
std::string_view TakeWord(std::string_view& line);

/// The arguments behind a command's name. Throws CommandError when they are too few or too many.
std::vector<std::string> ParseArguments(const CommandForm& form, std::string_view rest);

/// Throw CommandError for what is no such number.
std::int64_t ParseWhole(const std::string& text, std::int64_t least, std::int64_t most);
double ParseScale(const std::string& text);
std::uint32_t ParseId(const std::string& text);
std::vector<std::uint8_t> ParseHex(const std::string& text);

/// Quoted, and cut where it is long.
std::string Quoted(std::string_view text);

}  // namespace manager
