#include "platform/duilib/culture/culture_file.h"

#include <stdexcept>

#include "common/file.h"
#include "common/path_text.h"
#include "common/text.h"
#include "common/xml_document.h"

namespace DuiLib {
namespace {

using common::XmlElement;

constexpr std::string_view kLanguageCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-";

[[noreturn]] void Fail(std::string_view name, const std::string& reason) {
  throw std::runtime_error(std::string(name) + ": " + reason);
}

std::string Attribute(const XmlElement& element, const char* name) {
  const auto* attribute = element.first_attribute(name);
  return attribute ? std::string(attribute->value(), attribute->value_size()) : std::string();
}

std::string Name(const XmlElement& element) {
  return {element.name(), element.name_size()};
}

const XmlElement* FirstElement(const XmlElement& parent) {
  const XmlElement* child = parent.first_node();
  return child && child->type() != rapidxml::node_element ? common::NextElement(child) : child;
}

}  // namespace

CultureTexts ParseCulture(std::string_view xml, std::string_view name, std::string_view language) {
  const common::XmlDocument document(xml, name);
  const XmlElement* root = document.Root("culture");
  if (!root) Fail(name, "there is no element <culture>");
  if (const std::string own = Attribute(*root, "language"); own != language) {
    Fail(name, "the language is '" + own + "', expected '" + std::string(language) + "'");
  }

  CultureTexts texts;
  std::string place = "at the start";
  for (auto element = FirstElement(*root); element; element = common::NextElement(element)) {
    if (Name(*element) != "string") {
      Fail(name, "unknown element <" + Name(*element) + "> " + place);
    }
    const std::string id = Attribute(*element, "id");
    if (id.empty()) Fail(name, "a <string> without an id " + place);
    if (const XmlElement* inner = FirstElement(*element)) {
      Fail(name, "unknown element <" + Name(*inner) + "> in the text of " + id);
    }
    const auto text = common::Utf8ToWide(common::ElementText(element));
    if (!texts.emplace(common::Utf8ToWide(id), text).second) Fail(name, "duplicate id " + id);
    place = "after " + id;
  }
  return texts;
}

CultureTexts ReadCulture(const std::filesystem::path& folder, const std::string& language) {
  if (language.empty() || language.find_first_not_of(kLanguageCharacters) != std::string::npos) {
    throw std::runtime_error("'" + language +
                             "' is no language: expected letters, digits and hyphens, as in en-US");
  }
  const auto file = folder / (language + ".xml");
  return ParseCulture(common::ReadFile(file, common::kMaxXmlSize), common::PathText(file),
                      language);
}

}  // namespace DuiLib
