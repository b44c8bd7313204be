#pragma once

#include <rapidxml/rapidxml.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace common {

/// Largest text that is parsed, in bytes.
inline constexpr std::size_t kMaxXmlSize = 1024 * 1024;

using XmlElement = rapidxml::xml_node<char>;

/// Text that is not the XML it should be: "<name>:<line>:<column>: <reason>".
class XmlError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A parsed XML text: UTF-8, at most 1 MiB, elements nested at most 64 deep (the parser recurses;
/// deeper input would overflow the stack). Owns the text its nodes point into.
class XmlDocument {
 public:
  /// `name` stands in error messages. Throws XmlError.
  XmlDocument(std::string_view text, std::string_view name);
  XmlDocument(const XmlDocument&) = delete;
  XmlDocument& operator=(const XmlDocument&) = delete;

  /// The first top-level element of that name, or null.
  const XmlElement* Root(const char* name) const { return document.first_node(name); }

  /// The first top-level element, or null.
  const XmlElement* Root() const { return document.first_node(); }

  /// "<name>:<line>:<column>: " of an element or attribute of this document.
  std::string Place(const rapidxml::xml_base<char>& part) const;

 private:
  std::string documentName;
  std::string source;  // as it stood before the parser wrote into the buffer
  std::vector<char> buffer;
  rapidxml::xml_document<char> document;
};

/// The next sibling that is an element, or null.
const XmlElement* NextElement(const XmlElement* element);

/// The element's own character data, CDATA sections included.
std::string ElementText(const XmlElement* element);

}  // namespace common
