#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/duilib/look/colour.h"
#include "platform/duilib/look/font.h"
#include "platform/os/export.h"

namespace DuiLib {

/// Attributes of layouts by name, with their values.
using NamedAttributes = std::vector<std::pair<std::wstring, std::wstring>>;

/// The fonts by number, the colours by name, light and dark, and the styles by name.
class DUILIB_API Theme {
 public:
  enum class Brightness { kLight, kDark };

  /// <Theme><Font number="16" size="14" bold="true"/><Colour name="ink" light="#000000"
  /// dark="#FFFFFF"/><Style name="heading" font="16" text-colour="ink"/></Theme>. `name` stands in
  /// log lines. What is not understood is one log line
  /// each and left out; text that is not XML is one, and the theme is then as it was.
  void Read(std::string_view xml, std::string_view name);

  void SetFont(int number, const Font& font) { fonts[number] = font; }
  void SetColour(const std::wstring& name, std::uint32_t light, std::uint32_t dark) {
    colours[name] = {light, dark};
  }
  void SetStyle(const std::wstring& name, NamedAttributes attributes) {
    styles[name] = std::move(attributes);
  }
  bool HasFont(int number) const { return fonts.contains(number); }
  bool HasColour(const std::wstring& name) const { return colours.contains(name); }

  /// What a style gives, in order; null for a name that the theme does not have.
  const NamedAttributes* FindStyle(const std::wstring& name) const;

  /// The font of a number; the default one for a number that the theme does not have.
  Font FontOf(int number) const;

  /// Alpha first; a name that the theme does not have shows nothing.
  std::uint32_t ArgbOf(const Colour& colour) const;

  void SetBrightness(Brightness now) { brightness = now; }

 private:
  struct Shades {
    std::uint32_t light = 0;
    std::uint32_t dark = 0;
  };

  /// Those that the painter itself uses; a theme may give them others.
  static std::map<std::wstring, Shades> OwnColours();

  std::map<int, Font> fonts;
  std::map<std::wstring, Shades> colours = OwnColours();
  std::map<std::wstring, NamedAttributes> styles;
  Brightness brightness = Brightness::kLight;
};

}  // namespace DuiLib
