#include <gmock/gmock.h>

#include <filesystem>
#include <set>

#include "common/file.h"
#include "common/text.h"
#include "common/xml_document.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/list.h"
#include "platform/duilib/layout/horizontal_layout.h"
#include "platform/duilib/layout/tile_layout.h"
#include "platform/duilib/layout/vertical_layout.h"
#include "platform/duilib/look/image.h"
#include "platform/duilib/painter/painter.h"
#include "platform/duilib/tree/walk.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "tests/res/sample_pages.h"
#include "tests/support/in_force.h"
#include "tests/support/test_log.h"

namespace {

namespace fs = std::filesystem;
using DuiLib::CContainerUI;
using DuiLib::CControlUI;

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

// Whether its class places those it holds beside one another.
bool PlacesApart(const CControlUI& control) {
  return dynamic_cast<const DuiLib::CVerticalLayoutUI*>(&control) != nullptr ||
         dynamic_cast<const DuiLib::CHorizontalLayoutUI*>(&control) != nullptr ||
         dynamic_cast<const DuiLib::CTileLayoutUI*>(&control) != nullptr ||
         dynamic_cast<const DuiLib::CListUI*>(&control) != nullptr;
}

std::string NameOf(const CControlUI& control) {
  return common::WideToUtf8(control.GetClass() + (L" " + control.GetName()) + L" \"" +
                            control.GetPlainText() + L"\"");
}

void ExpectOrder(CContainerUI& container) {
  std::vector<CControlUI*> shown;
  for (std::size_t index = 0; index < container.GetCount(); ++index) {
    CControlUI* const control = container.GetItemAt(index);
    if (!control->IsShown()) continue;
    const bool scrolls = dynamic_cast<DuiLib::CListUI*>(&container) != nullptr;
    EXPECT_TRUE(scrolls || control->GetPos().Meeting(container.GetPos()) == control->GetPos())
        << NameOf(*control) << " sticks out of " << NameOf(container);
    shown.push_back(control);
  }
  if (!PlacesApart(container)) return;
  for (std::size_t index = 1; index < shown.size(); ++index) {
    const DuiLib::Rect meeting = shown[index - 1]->GetPos().Meeting(shown[index]->GetPos());
    EXPECT_TRUE(meeting.Width() <= 0 || meeting.Height() <= 0)
        << NameOf(*shown[index - 1]) << " overlaps " << NameOf(*shown[index]);
  }
}

void ExpectWholeOrEllipsis(DuiLib::CLabelUI& label) {
  const DuiLib::TextLayout& text = label.GetTextLayout();
  if (!text.isCut) return;
  const auto& pieces = text.lines.back().pieces;
  EXPECT_TRUE(!pieces.empty() && pieces.back().text.ends_with(L'…')) << NameOf(label);
}

// Of a folded item the content sticks out.
bool IsFolded(CControlUI& control) {
  return control.GetHeight().kind == DuiLib::Length::Kind::kNumber &&
         std::wstring_view(control.GetClass()) == L"ListContainerElement" &&
         DuiLib::CPaintManagerUI::FindControl(&control, L"lytContent") != nullptr;
}

bool LiesInFoldedItem(CControlUI& control) {
  for (CControlUI* above = &control; above != nullptr; above = above->GetParent()) {
    if (IsFolded(*above)) return true;
  }
  return false;
}

void ExpectGoodGeometry(DuiLib::CPaintManagerUI& manager) {
  manager.LayOut(true);
  ForEachInTree(*manager.GetRoot(), [](CControlUI& control) {
    if (!control.IsShown()) return;
    auto* const label = dynamic_cast<DuiLib::CLabelUI*>(&control);
    if (label != nullptr) ExpectWholeOrEllipsis(*label);
    auto* const container = dynamic_cast<CContainerUI*>(&control);
    if (container != nullptr && !LiesInFoldedItem(control)) ExpectOrder(*container);
  });
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
