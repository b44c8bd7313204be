#include "common/xml_document.h"

#include <gtest/gtest.h>

namespace common {
namespace {

std::string Nested(int depth) {
  std::string text;
  for (int i = 0; i < depth; ++i) text += "<a>";
  for (int i = 0; i < depth; ++i) text += "</a>";
  return text;
}

std::string ErrorOf(const std::string& text) {
  try {
    XmlDocument(text, "list.xml");
    return "none";
  } catch (const XmlError& error) {
    return error.what();
  }
}

TEST(XmlDocument, DepthAndSizeAreBounded) {
  EXPECT_EQ(ErrorOf(Nested(64)), "none");
  EXPECT_EQ(ErrorOf(Nested(65)), "list.xml:1:193: elements nested more than 64 deep");
  EXPECT_EQ(ErrorOf(std::string(kMaxXmlSize + 1, ' ')), "list.xml: larger than 1 MiB");
}

// Each of these hid the depth from a check that did not read tags as the parser does, and would
// overflow the stack.
TEST(XmlDocument, NothingHidesDepthFromTheCheck) {
  const std::string deep = Nested(100000);
  for (const char* before :
       {"<!DOCTYPE a [ <x> <!-- ]>", "<a=\">", "<a b\"=\"x\">", "<r><![CDATA[</r></r>]]>",
        "<!DOCTYPE a [ </a></a></a> ]>", "<r x='>'>", "<r><!-- </r> -->", "<?x </r>?>"})
    EXPECT_NE(ErrorOf(before + deep), "none") << before;
}

TEST(XmlDocument, ErrorsNameLineAndColumn) {
  EXPECT_EQ(ErrorOf("<a>\n  <b x=1/>\n</a>"), "list.xml:2:8: expected ' or \"");
  EXPECT_EQ(ErrorOf("<a>"), "list.xml:1:4: unexpected end of data");
  EXPECT_EQ(ErrorOf(""), "none");
}

TEST(XmlDocument, TextIncludesCharacterDataAndSiblingsAreElements) {
  const XmlDocument document(
      "\xEF\xBB\xBF<r>x<a>one <![CDATA[<two>]]>&amp;three</a>y<!-- c --><b/>z</r>", "t");
  const XmlElement* first = document.Root("r")->first_node("a");
  EXPECT_EQ(ElementText(first), "one <two>&three");
  const XmlElement* second = NextElement(first);
  ASSERT_NE(second, nullptr);
  EXPECT_STREQ(second->name(), "b");
  EXPECT_EQ(NextElement(second), nullptr);
}

}  // namespace
}  // namespace common
