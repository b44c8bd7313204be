#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/duilib/tree/geometry.h"

/// A display without a screen, for this process, where there is none of the system's own.
void StartDisplay();

/// Has the system ask for dark windows, or for light ones.
void AskForDark(bool dark);

/// What a person does in a window of that title, and sees: by the input of the system, not by calls
/// of the window. Points are dots of the window's content.
class Hand {
 public:
  explicit Hand(std::string inTitle) : title(std::move(inTitle)) {}

  void Move(DuiLib::Point place) const;
  void Press() const;
  void Release() const;
  void Click(DuiLib::Point place) const;
  /// Notches downwards.
  void Wheel(int notches) const;
  /// "Tab", "Return", "space", "Escape", "Down".
  void Key(const std::string& name) const;
  /// By its frame.
  void Close() const;

  struct Shot {
    DuiLib::Size size;
    std::vector<std::uint32_t> dots;  // without alpha
    std::uint32_t At(int x, int y) const {
      return dots[static_cast<std::size_t>(y) * size.width + x];
    }
  };
  /// The content as it stands on the display.
  Shot Look() const;
  /// Where the content stands on the display.
  DuiLib::Point Place() const;

 private:
  const std::string title;
};
