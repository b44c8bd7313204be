#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <vector>

#include "common/text.h"
#include "common/xml_document.h"
#include "platform/duilib/culture/culture.h"

namespace {

const std::filesystem::path kResources = APP_DIR "/res";

std::vector<std::string> Languages() {
  std::vector<std::string> languages;
  for (const auto& file : std::filesystem::directory_iterator(kResources / "culture"))
    languages.push_back(file.path().stem().string());
  return languages;
}

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

class CultureTextsTest : public testing::TestWithParam<std::string> {};

TEST_P(CultureTextsTest, EveryIdHasATextWithTheBracesOfTheEnglishOne) {
  auto texts = TextsOf(GetParam());
  for (const auto& [id, english] : TextsOf("en-US")) {
    EXPECT_NE(texts[id], "") << id;
    EXPECT_EQ(BracesOf(texts[id]), BracesOf(english)) << id;
    texts.erase(id);
  }
  EXPECT_TRUE(texts.empty()) << texts.begin()->first << " has no English text";
}

TEST_P(CultureTextsTest, TextsWithAPlaceholderAreMessagePatternsThatLoseNothing) {
  auto& culture = *DuiLib::UICulture::GetInstance();
  culture.SetLanguage(GetParam(), kResources);
  for (auto [id, text] : TextsOf(GetParam())) {
    const auto place = text.find("{0}");
    if (place == std::string::npos) continue;
    const auto filled = culture.GetMultiVarStr(common::Utf8ToWide(id), {L"27"});
    EXPECT_EQ(filled, common::Utf8ToWide(text.replace(place, 3, "27"))) << id;
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, CultureTextsTest, testing::ValuesIn(Languages()),
                         [](const auto& language) {
                           std::string name = language.param;
                           std::erase(name, '-');
                           return name;
                         });

}  // namespace
