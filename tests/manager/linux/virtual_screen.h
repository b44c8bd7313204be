#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/running_program.h"

/// Dots with blue, green and red in three bytes of four.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> dots;
};

/// Throws std::runtime_error when there is none.
Picture ReadPicture(const std::filesystem::path& png);
void WritePicture(const Picture& picture, const std::filesystem::path& png);

/// Which part of the dots in so many rows differs so that a person sees it; 1 for another size.
double DifferenceOf(const Picture& one, const Picture& other, int rows);

/// A screen of its own, that nobody sees, and a person before it. Programs that are started while
/// it lives show their windows there.
class VirtualScreen {
 public:
  VirtualScreen(int width, int height, const std::filesystem::path& folder);
  ~VirtualScreen();
  VirtualScreen(const VirtualScreen&) = delete;
  VirtualScreen& operator=(const VirtualScreen&) = delete;

  Picture Look() const;

  /// By real events of pointer and keyboard, told to the server.
  void Click(int x, int y) const;
  void Press(const std::string& key) const;
  /// As by the close button of their frames.
  void CloseWindows(const std::string& title) const;

 private:
  void Tell(const std::vector<std::string>& words) const;

  const std::filesystem::path errors;
  RunningProgram server;
  struct Connection;
  std::unique_ptr<Connection> connection;
};
