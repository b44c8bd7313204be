#include "tests/cli/linux/terminal.h"

#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <wchar.h>

#include <algorithm>
#include <csignal>
#include <stdexcept>
#include <utility>

#include "common/text.h"
#include "platform/os/utf8_locale.h"

namespace {

// Bytes of the character that begins with this one.
std::size_t LengthOf(char first) {
  const auto byte = static_cast<unsigned char>(first);
  return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

std::size_t WidthOf(const std::string& character) {
  const os::Utf8Locale utf8;
  const int width = wcwidth(common::Utf8ToWide(character)[0]);
  return width > 0 ? static_cast<std::size_t>(width) : 0;
}

}  // namespace

void Screen::Write(const std::string& bytes) {
  const std::string all = std::exchange(held, {}) + bytes;
  for (std::size_t at = 0; at < all.size();) {
    const std::size_t length = all[at] == '\033' ? TakeEscape(all, at) : LengthOf(all[at]);
    if (length == 0 || at + length > all.size()) {
      held = all.substr(at);
      return;
    }
    if (all[at] == '\r')
      column = 0;
    else if (all[at] == '\n')
      ++row;
    else if (all[at] != '\033')
      Put(all.substr(at, length));
    at += length;
  }
}

// Its length; 0 when it has not come whole.
std::size_t Screen::TakeEscape(const std::string& bytes, std::size_t at) {
  const std::size_t end = bytes.find_first_of("mKJ", at);
  if (end == std::string::npos) return 0;
  if (bytes[end] != 'm') Row().resize(std::min(column, Row().size()));
  if (bytes[end] == 'J') rows.resize(row + 1);
  return end + 1 - at;
}

void Screen::Resize(std::size_t columnsOfARow) {
  columns = columnsOfARow;
  const std::vector<std::vector<std::string>> before = std::exchange(rows, {});
  std::size_t cursor = row;
  for (std::size_t old = 0; old < before.size(); ++old) {
    if (old == row) cursor = rows.size() + column / columns;
    for (std::size_t at = 0; at == 0 || at < before[old].size(); at += columns) {
      const std::size_t end = std::min(at + columns, before[old].size());
      rows.emplace_back(before[old].begin() + static_cast<std::ptrdiff_t>(at),
                        before[old].begin() + static_cast<std::ptrdiff_t>(end));
    }
  }
  row = cursor;
  column %= columns;
}

void Screen::Put(const std::string& character) {
  const std::size_t width = WidthOf(character);
  if (column + width > columns) {
    ++row;
    column = 0;
  }
  std::vector<std::string>& cells = Row();
  if (cells.size() < column + width) cells.resize(column + width, " ");
  cells[column] = character;
  for (std::size_t i = 1; i < width; ++i) cells[column + i].clear();
  column += width;
}

std::vector<std::string>& Screen::Row() {
  if (rows.size() <= row) rows.resize(row + 1);
  return rows[row];
}

std::vector<std::string> Screen::Rows() const {
  std::vector<std::string> texts;
  for (const auto& cells : rows) {
    std::string text;
    for (const std::string& cell : cells) text += cell;
    text.resize(text.find_last_not_of(' ') + 1);
    texts.push_back(text);
  }
  return texts;
}

std::optional<std::size_t> Screen::ColumnOf(std::size_t inRow, const std::string& text) const {
  const auto& cells = rows.at(inRow);
  for (std::size_t first = 0; first < cells.size(); ++first) {
    std::string rest;
    for (std::size_t i = first; i < cells.size() && rest.size() < text.size(); ++i)
      rest += cells[i];
    if (rest == text) return first;
  }
  return std::nullopt;
}

Terminal::Terminal(const std::vector<std::string>& arguments, unsigned short columns)
    : screen(columns) {
  std::vector<std::string> words{APP_DIR "/sysdiagnose"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> vector;
  vector.reserve(words.size() + 1);
  for (std::string& word : words) vector.push_back(word.data());
  vector.push_back(nullptr);

  const winsize size{24, columns, 0, 0};
  id = forkpty(&terminal, nullptr, nullptr, &size);
  if (id < 0) throw std::runtime_error("no terminal");
  if (id != 0) return;
  execv(vector[0], vector.data());
  _exit(127);
}

Terminal::~Terminal() {
  if (id != 0) {
    kill(id, SIGKILL);
    waitpid(id, nullptr, 0);
  }
  close(terminal);
}

bool Terminal::ReadUntil(const std::string& text) {
  while (written.find(text) == std::string::npos)
    if (!Read()) return false;
  return true;
}

bool Terminal::ReadUntilShown(const std::string& beginning) {
  const auto begins = [&](const std::string& row) { return row.starts_with(beginning); };
  while (std::ranges::none_of(screen.Rows(), begins))
    if (!Read()) return false;
  return true;
}

void Terminal::Type(const std::string& keys) {
  if (write(terminal, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
    throw std::runtime_error("the terminal takes no keys");
}

void Terminal::Resize(unsigned short columns) {
  kill(id, SIGSTOP);
  waitpid(id, nullptr, WUNTRACED);
  int waiting = 0;
  while (ioctl(terminal, FIONREAD, &waiting) == 0 && waiting > 0) Read();
  const winsize size{24, columns, 0, 0};
  if (ioctl(terminal, TIOCSWINSZ, &size) != 0) throw std::runtime_error("the size stays");
  screen.Resize(columns);
  kill(id, SIGCONT);
}

std::optional<int> Terminal::Wait() {
  while (Read()) {
  }
  int status = 0;
  waitpid(id, &status, 0);
  id = 0;
  if (!WIFEXITED(status)) return std::nullopt;
  return WEXITSTATUS(status);
}

bool Terminal::Read() {
  char bytes[4096];
  const ssize_t length = read(terminal, bytes, sizeof bytes);
  if (length <= 0) return false;
  const std::string text(bytes, static_cast<std::size_t>(length));
  written += text;
  screen.Write(text);
  return true;
}
