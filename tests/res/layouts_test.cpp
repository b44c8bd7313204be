#include <gmock/gmock.h>

#include <filesystem>
#include <set>

#include "common/file.h"
#include "common/text.h"
#include "common/xml_document.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/look/image.h"
#include "platform/duilib/painter/painter.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "tests/res/good_geometry.h"
#include "tests/res/sample_pages.h"
#include "tests/support/in_force.h"
#include "tests/support/test_log.h"

namespace {

namespace fs = std::filesystem;

const fs::path kResources = APP_DIR "/res";

std::vector<std::string> StemsIn(const char* folder) {
  std::vector<std::string> stems;
  for (const auto& file : fs::directory_iterator(kResources / folder)) {
    stems.push_back(file.path().stem().string());
  }
  return stems;
}

std::string PrintableName(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::erase_if(name, [](char letter) { return letter == '-' || letter == '_'; });
  return name;
}

void CollectValues(const common::XmlElement& element, std::vector<std::string>& values) {
  for (auto attribute = element.first_attribute(); attribute != nullptr;
       attribute = attribute->next_attribute()) {
    values.emplace_back(attribute->value(), attribute->value_size());
  }
  for (auto child = element.first_node(); child != nullptr; child = child->next_sibling()) {
    if (child->type() == rapidxml::node_element) CollectValues(*child, values);
  }
}

// The values of all attributes of all elements.
std::vector<std::string> ValuesIn(const std::string& layout) {
  const std::string xml =
      common::ReadFile(kResources / "layout" / (layout + ".xml"), common::kMaxXmlSize);
  const common::XmlDocument document(xml, layout);
  const common::XmlElement* root = document.Root();
  while (root->type() != rapidxml::node_element) root = root->next_sibling();
  std::vector<std::string> values;
  CollectValues(*root, values);
  return values;
}

class LayoutFileTest : public testing::TestWithParam<std::string> {};

TEST_P(LayoutFileTest, EveryTextIsAnIdThatEachLanguageHas) {
  auto& culture = *DuiLib::UICulture::GetInstance();
  for (const std::string& language : StemsIn("culture")) {
    culture.SetLanguage(language, kResources);
    for (const std::string& value : ValuesIn(GetParam())) {
      if (!value.starts_with("bind=")) continue;
      const std::wstring expression = common::Utf8ToWide(value);
      const std::wstring id = expression.substr(6, expression.size() - 7);
      EXPECT_NE(culture.ParseBind(expression), expression) << language;
      EXPECT_NE(culture.ParseBind(expression), id) << language;
      EXPECT_NE(culture.ParseBind(expression), L"") << language << ": " << value;
    }
  }
}

void ExpectPicture(const DuiLib::Image& image) {
  const std::string path = common::WideToUtf8(image.file);
  const std::string stem = path.substr(0, path.rfind('.'));
  EXPECT_TRUE(fs::is_regular_file(kResources / path)) << path;
  EXPECT_TRUE(fs::is_regular_file(kResources / (stem + "@2x.png"))) << path;
}

TEST_P(LayoutFileTest, EveryPictureIsThereAtOneAndTwoDotsPerPoint) {
  for (const std::string& value : ValuesIn(GetParam())) {
    if (!value.starts_with("file=")) continue;
    const auto image = DuiLib::Image::Parse(common::Utf8ToWide(value));
    ASSERT_TRUE(image) << value;
    ExpectPicture(image->file.ends_with(L"_.png") ? image->Frame(1) : *image);
  }
}

INSTANTIATE_TEST_SUITE_P(Layouts, LayoutFileTest, testing::ValuesIn(StemsIn("layout")),
                         PrintableName);

TEST(PicturesTest, EachCategoryHasItsPictures) {
  const InForce inForce;
  const orv::sysdiagnose::DetectCatalogue catalogue;
  concurrency::wait_until_idle();
  for (const auto& [id, category] : catalogue.categories) {
    for (const std::wstring* icon : {&category.icon, &category.smallIcon, &category.altIcon}) {
      const auto image = DuiLib::Image::Parse(*icon);
      ASSERT_TRUE(image);
      ExpectPicture(*image);
    }
  }
}

TEST(PicturesTest, BothAnimationsHaveAllTheirFrames) {
  const DuiLib::Image loading{L"drawable/hardware/Loading/loading_.png"};
  const DuiLib::Image done{L"drawable/hardware/Done/done_.png"};
  for (int frame = 1; frame <= 30; ++frame) ExpectPicture(loading.Frame(frame));
  for (int frame = 1; frame <= 20; ++frame) ExpectPicture(done.Frame(frame));
}

DuiLib::TextMeasure* const simpleMeasure = nullptr;

class SampleTest : public testing::TestWithParam<SampleState> {};

TEST_P(SampleTest, NothingOverlapsSticksOutOrIsCutWithoutAnEllipsisInAnyLanguage) {
  auto* const painter = DuiLib::Painter::Load();
  ASSERT_NE(painter, nullptr);
  TestLog::Instance().Take();
  for (const std::string& language : StemsIn("culture")) {
    DuiLib::UICulture::GetInstance()->SetLanguage(language, kResources);
    for (DuiLib::TextMeasure* const measure : {&painter->Measure(), simpleMeasure}) {
      SCOPED_TRACE(language + (measure == nullptr ? ", simple text" : ""));
      const auto windows = ShowSample(
          GetParam(), [&](DuiLib::CPaintManagerUI& manager) { manager.SetTextMeasure(measure); });
      for (const auto& window : windows) ExpectGoodGeometry(window->Manager());
    }
  }
  EXPECT_EQ(TestLog::Instance().Take(), "");
}

INSTANTIATE_TEST_SUITE_P(States, SampleTest, testing::ValuesIn(SampleStates()),
                         [](const auto& state) {
                           std::string name = state.param.name;
                           std::erase(name, '-');
                           return name;
                         });

}  // namespace
