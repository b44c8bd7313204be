#include "common/xml_document.h"

#include <algorithm>

namespace common {
namespace {

constexpr int kMaxDepth = 64;

std::string PlaceAt(std::string_view name, std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, std::min(offset, text.size()));
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
  return std::string(name) + ":" + std::to_string(line) + ":" +
         std::to_string(before.size() - lineStart + 1) + ": ";
}

constexpr std::string_view kSpace = " \n\r\t";
constexpr std::string_view kNameEnd = " \n\r\t/>?";
constexpr std::string_view kAttributeNameEnd = " \n\r\t/<>=?!";

// Follows the tags exactly as the parser reads them, without building anything. Where a tag is
// malformed the walk ends: the parser throws at the same place.
class DepthWalk {
 public:
  explicit DepthWalk(std::string_view walked) : text(walked) {}

  // The offset of the first element nested too deep, or npos.
  std::size_t FindTooDeep() {
    while ((at = text.find('<', at)) < text.size()) {
      const std::size_t start = at;
      if (!PassTag()) break;
      if (depth > kMaxDepth) return start;
    }
    return std::string_view::npos;
  }

 private:
  bool PassTag() {
    if (Passes("<!--")) return PassBehind("-->");
    if (Passes("<![CDATA[")) return PassBehind("]]>");
    if (Passes("<?")) return PassBehind("?>");
    if (Passes("<!DOCTYPE")) return PassDoctype();
    if (Passes("<!")) return PassBehind(">");
    if (Passes("</")) return --depth >= 0 && PassBehind(">");
    return PassStartTag();
  }

  bool PassDoctype() {
    int brackets = 0;
    for (; at < text.size(); ++at) {
      if (text[at] == '[') ++brackets;
      if (text[at] == ']') --brackets;
      if (text[at] == '>' && brackets <= 0) return true;
    }
    return false;
  }

  bool PassStartTag() {
    ++at;
    PassUntil(kNameEnd);
    PassSpace();
    while (at < text.size() && kAttributeNameEnd.find(text[at]) == std::string_view::npos) {
      PassUntil(kAttributeNameEnd);
      PassSpace();
      if (!Passes("=")) return false;
      PassSpace();
      const char quote = at < text.size() ? text[at++] : '\0';
      if (quote != '"' && quote != '\'') return false;
      if (!PassBehind({&quote, 1})) return false;
      PassSpace();
    }
    if (Passes("/>")) return true;
    ++depth;
    return Passes(">");
  }

  bool Passes(std::string_view expected) {
    if (!text.substr(std::min(at, text.size())).starts_with(expected)) return false;
    at += expected.size();
    return true;
  }

  bool PassBehind(std::string_view end) {
    const std::size_t found = text.find(end, at);
    if (found == std::string_view::npos) return false;
    at = found + end.size();
    return true;
  }

  void PassUntil(std::string_view set) { at = std::min(text.find_first_of(set, at), text.size()); }
  void PassSpace() { at = std::min(text.find_first_not_of(kSpace, at), text.size()); }

  std::string_view text;
  std::size_t at = 0;
  int depth = 0;
};

}  // namespace

XmlDocument::XmlDocument(std::string_view text, std::string_view name) : documentName(name) {
  if (text.size() > kMaxXmlSize) throw XmlError(std::string(name) + ": larger than 1 MiB");
  text = text.substr(0, text.find('\0'));
  if (const std::size_t at = DepthWalk(text).FindTooDeep(); at != std::string_view::npos)
    throw XmlError(PlaceAt(name, text, at) + "elements nested more than 64 deep");

  source = text;
  buffer.assign(text.begin(), text.end());
  buffer.push_back('\0');
  try {
    document.parse<rapidxml::parse_default>(buffer.data());
  } catch (const rapidxml::parse_error& error) {
    const auto offset = static_cast<std::size_t>(error.where<char>() - buffer.data());
    throw XmlError(PlaceAt(name, text, offset) + error.what());
  }
}

std::string XmlDocument::Place(const rapidxml::xml_base<char>& part) const {
  return PlaceAt(documentName, source, static_cast<std::size_t>(part.name() - buffer.data()));
}

const XmlElement* NextElement(const XmlElement* element) {
  do {
    element = element->next_sibling();
  } while (element != nullptr && element->type() != rapidxml::node_element);
  return element;
}

std::string ElementText(const XmlElement* element) {
  std::string text;
  for (const auto* node = element->first_node(); node != nullptr; node = node->next_sibling())
    if (node->type() == rapidxml::node_data || node->type() == rapidxml::node_cdata)
      text.append(node->value(), node->value_size());
  return text;
}

}  // namespace common
