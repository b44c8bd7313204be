#include "platform/duilib/look/theme.h"

#include <string>

#include "common/log.h"
#include "common/text.h"
#include "common/xml_document.h"
#include "platform/duilib/builder/number.h"

namespace DuiLib {
namespace {

using common::XmlElement;

constexpr int kSmallestFont = 1;
constexpr int kLargestFont = 200;

std::wstring Attribute(const XmlElement& element, const char* name) {
  const auto* attribute = element.first_attribute(name);
  if (attribute == nullptr) return {};
  return common::Utf8ToWide({attribute->value(), attribute->value_size()});
}

std::optional<std::uint32_t> Shade(const XmlElement& element, const char* name) {
  const auto colour = Colour::Parse(Attribute(element, name));
  if (!colour || !colour->Name().empty()) return std::nullopt;
  return colour->Argb();
}

void Warn(const std::string& line) {
  COMMON_LOG_WARN(log4cxx::Logger::getLogger("orv.duilib"), line);
}

bool ReadFont(const XmlElement& element, Theme& theme) {
  const auto number = ParseNumber(Attribute(element, "number"));
  const auto size = ParseNumber(Attribute(element, "size"));
  if (!number || !size || *size < kSmallestFont || *size > kLargestFont) return false;
  theme.SetFont(*number, {*size, Attribute(element, "bold") == L"true",
                          Attribute(element, "underlined") == L"true"});
  return true;
}

bool ReadColour(const XmlElement& element, Theme& theme) {
  const auto named = Colour::Parse(Attribute(element, "name"));
  const auto light = Shade(element, "light");
  const auto dark = Shade(element, "dark");
  if (!named || named->Name().empty() || !light || !dark) return false;
  theme.SetColour(named->Name(), *light, *dark);
  return true;
}

// Its attributes are looked at where a layout uses it.
bool ReadStyle(const XmlElement& element, Theme& theme) {
  const std::wstring name = Attribute(element, "name");
  if (name.empty()) return false;
  NamedAttributes attributes;
  for (auto attribute = element.first_attribute(); attribute != nullptr;
       attribute = attribute->next_attribute()) {
    const std::string attributeName(attribute->name(), attribute->name_size());
    if (attributeName == "name") continue;
    attributes.emplace_back(common::Utf8ToWide(attributeName),
                            Attribute(element, attributeName.c_str()));
  }
  theme.SetStyle(name, std::move(attributes));
  return true;
}

}  // namespace

void Theme::Read(std::string_view xml, std::string_view name) {
  try {
    const common::XmlDocument document(xml, name);
    const XmlElement* root = document.Root("Theme");
    if (root == nullptr) return Warn(std::string(name) + ": there is no element <Theme>");
    for (const XmlElement* child = root->first_node(); child != nullptr;
         child = common::NextElement(child)) {
      if (child->type() != rapidxml::node_element) continue;
      const std::string kind(child->name(), child->name_size());
      const bool read = (kind == "Font" && ReadFont(*child, *this)) ||
                        (kind == "Colour" && ReadColour(*child, *this)) ||
                        (kind == "Style" && ReadStyle(*child, *this));
      if (!read) Warn(document.Place(*child) + "no font, colour or style: <" + kind + ">");
    }
  } catch (const common::XmlError& error) {
    Warn(error.what());
  }
}

const NamedAttributes* Theme::FindStyle(const std::wstring& name) const {
  const auto found = styles.find(name);
  return found == styles.end() ? nullptr : &found->second;
}

std::map<std::wstring, Theme::Shades> Theme::OwnColours() {
  return {
      {L"window", {0xFFF5F6FA, 0xFF15171E}},     {L"ink", {0xFF1A1C24, 0xFFECEEF5}},
      {L"link", {0xFF2D78FC, 0xFF8B9BFF}},       {L"shadow", {0x14202850, 0x50000000}},
      {L"veil", {0x66101218, 0x80000000}},       {L"scroll-bar", {0x40202838, 0x50ECEEF5}},
      {L"focus-ring", {0xFF7B6EF9, 0xFF8B9BFF}},
  };
}

Font Theme::FontOf(int number) const {
  const auto found = fonts.find(number);
  return found == fonts.end() ? Font() : found->second;
}

std::uint32_t Theme::ArgbOf(const Colour& colour) const {
  if (colour.Name().empty()) return colour.Argb();
  const auto found = colours.find(colour.Name());
  if (found == colours.end()) return 0;
  return brightness == Brightness::kDark ? found->second.dark : found->second.light;
}

}  // namespace DuiLib
