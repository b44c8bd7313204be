#pragma once

#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/wfstream.h>

#include <filesystem>
#include <functional>
#include <set>

#include "common/path_text.h"
#include "platform/duilib/tree/geometry.h"

/// A picture that was painted, dot by dot.
class Picture {
 public:
  explicit Picture(const std::filesystem::path& file) {
    wxFileInputStream stream(wxString::FromUTF8(common::PathText(file)));
    wxPNGHandler().LoadFile(&image, stream, false);
  }

  DuiLib::Size GetSize() const { return {image.GetWidth(), image.GetHeight()}; }

  /// Without alpha.
  unsigned At(int x, int y) const {
    return static_cast<unsigned>(image.GetRed(x, y)) << 16 |
           static_cast<unsigned>(image.GetGreen(x, y)) << 8 | image.GetBlue(x, y);
  }

  /// The smallest rectangle with all dots of these colours in it.
  DuiLib::Rect Where(const std::function<bool(unsigned)>& fits) const {
    DuiLib::Rect found;
    for (int y = 0; y < image.GetHeight(); ++y) {
      for (int x = 0; x < image.GetWidth(); ++x) {
        if (fits(At(x, y))) found = found.Holding({x, y, x + 1, y + 1});
      }
    }
    return found;
  }

  std::set<unsigned> Colours() const {
    std::set<unsigned> colours;
    for (int y = 0; y < image.GetHeight(); ++y) {
      for (int x = 0; x < image.GetWidth(); ++x) colours.insert(At(x, y));
    }
    return colours;
  }

 private:
  wxImage image;
};
