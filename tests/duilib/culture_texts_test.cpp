#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "common/text.h"
#include "common/xml_document.h"
#include "platform/duilib/culture.h"

namespace {

const std::filesystem::path kResources = APP_DIR "/res";

std::map<std::string, std::string> TextsOf(const std::string& language) {
  std::ifstream stream(kResources / "culture" / (language + ".xml"), std::ios::binary);
  const std::string xml{std::istreambuf_iterator<char>(stream), {}};
  const common::XmlDocument document(xml, language);
  std::map<std::string, std::string> texts;
  for (auto element = document.Root("culture")->first_node("string"); element;
       element = element->next_sibling("string")) {
    texts[element->first_attribute("id")->value()] = common::ElementText(element);
  }
  return texts;
}

// Placeholders and inline marks: whatever stands in braces.
std::multiset<std::string> BracesOf(const std::string& text) {
  std::multiset<std::string> braces;
  for (auto open = text.find('{'); open != std::string::npos; open = text.find('{', open + 1)) {
    braces.insert(text.substr(open, text.find('}', open) + 1 - open));
  }
  return braces;
}

TEST(CultureTextsTest, EveryIdHasATextInBothLanguagesWithTheSameBraces) {
  const auto english = TextsOf("en-US");
  auto chinese = TextsOf("zh-CN");
  ASSERT_FALSE(english.empty());
  for (const auto& [id, text] : english) {
    const std::string& translation = chinese[id];
    EXPECT_FALSE(text.empty() || translation.empty()) << id;
    EXPECT_EQ(BracesOf(text), BracesOf(translation)) << id;
    chinese.erase(id);
  }
  EXPECT_TRUE(chinese.empty()) << chinese.begin()->first << " has no English text";
}

TEST(CultureTextsTest, TextsWithAPlaceholderAreMessagePatternsThatLoseNothing) {
  auto& culture = *DuiLib::UICulture::GetInstance();
  for (const std::string language : {"en-US", "zh-CN"}) {
    culture.SetLanguage(language, kResources);
    for (auto [id, text] : TextsOf(language)) {
      const auto place = text.find("{0}");
      if (place == std::string::npos) continue;
      const auto filled = culture.GetMultiVarStr(common::Utf8ToWide(id), {L"27"});
      EXPECT_EQ(filled, common::Utf8ToWide(text.replace(place, 3, "27"))) << id;
    }
  }
}

}  // namespace
