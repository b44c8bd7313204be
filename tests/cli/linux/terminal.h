#pragma once

#include <sys/types.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// What a terminal shows of the bytes written to it: rows of cells, in which a wide character
/// takes two. Knows line ends and the erasing of what follows the cursor, and passes colours over.
class Screen {
 public:
  explicit Screen(std::size_t columnsOfARow) : columns(columnsOfARow) {}

  void Write(const std::string& bytes);

  /// Rows that are wider then go on in the next one, as most terminals show them. The cursor stays
  /// at its character.
  void Resize(std::size_t columnsOfARow);

  /// The rows without the blanks at their ends.
  std::vector<std::string> Rows() const;

  /// The column in which the text begins in a row; none if the row does not hold it.
  std::optional<std::size_t> ColumnOf(std::size_t row, const std::string& text) const;

 private:
  std::size_t TakeEscape(const std::string& bytes, std::size_t at);
  void Put(const std::string& character);
  std::vector<std::string>& Row();

  std::size_t columns;
  std::vector<std::vector<std::string>> rows;  // a cell behind a wide character is empty
  std::size_t row = 0;
  std::size_t column = 0;
  std::string held;  // of a character or an escape that has not come whole
};

/// The terminal program on a terminal of its own. Killed when the object goes.
class Terminal {
 public:
  explicit Terminal(const std::vector<std::string>& arguments, unsigned short columns = 80);
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal();

  /// Reads until the text has been written; false when the program ends before.
  bool ReadUntil(const std::string& text);

  /// Reads until a row begins so; false when the program ends before.
  bool ReadUntilShown(const std::string& beginning);

  void Type(const std::string& keys);

  /// Between two outputs of the program.
  void Resize(unsigned short columns);

  /// Reads to the end. No exit status if it was killed.
  std::optional<int> Wait();

  const std::string& Written() const { return written; }
  const Screen& Shown() const { return screen; }

 private:
  bool Read();

  Screen screen;
  std::string written;
  int terminal = -1;
  pid_t id = 0;
};
