#include "platform/duilib/painter/painter.h"

#include "platform/duilib/controls/frame_animation.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/list.h"
#include "tests/duilib/ui_test.h"
#include "tests/duiwindow/picture.h"
#include "tests/support/temporary_folder.h"

namespace DuiLib {
namespace {

const std::filesystem::path kResources = std::filesystem::path(TEST_DATA_DIR) / "res";

class PaintingTest : public UiTest {
 protected:
  PaintingTest() {
    if (painter == nullptr) throw std::runtime_error("there is no painter");
    Prepare(window.Manager());
    window.Manager().GetTheme().SetColour(L"window", 0xFFFFFFFF, 0xFF000000);
  }

  void Prepare(CPaintManagerUI& manager) const {
    manager.SetSkinFolder(kResources);
    manager.SetTextMeasure(&painter->Measure());
  }

  Picture Paint() {
    const auto file = folder.path / "picture.png";
    painter->PaintInto(file, {&window.Manager()});
    return Picture(file);
  }

  Painter* const painter = Painter::Load();
  TemporaryFolder folder;
};

struct View {
  const char* name;
  double scale;
  Theme::Brightness brightness;
  const char* language;
};

void PrintTo(const View& view, std::ostream* out) {
  *out << view.name;
}

class EveryControlTest : public PaintingTest, public testing::WithParamInterface<View> {
 protected:
  static constexpr Size kSize{880, 544};

  void SetUp() override {
    CPaintManagerUI& manager = window.Manager();
    UICulture::GetInstance()->SetLanguage(GetParam().language, kResources);
    manager.LoadTheme(L"theme.xml");
    manager.SetBrightness(GetParam().brightness);
    manager.SetScale(GetParam().scale);
    manager.SetClientSize(kSize);
    window.Open(CDialogBuilder().Create(L"every_control.xml", {}, &manager));
    FillList();
    Get<CFrameAnimationUI>(L"animation").Play(1, 1, true);
    window.Press(Key::kTab);
    manager.LayOut();
  }

  void FillList() {
    auto& list = Get<CListUI>(L"list");
    for (int row = 0; row < 40; ++row) {
      list.Add(CDialogBuilder().Create(
          L"<ListContainerElement height='32' selected-background='pad' radius='8' "
          L"inset='8,0,8,0'><HorizontalLayout child-align='start,middle'>"
          L"<Label font='16' text-colour='soft' width='160' text=\"bind='IDS_ROW'\"/>"
          L"<Label font='16' width='grow' align='end,middle' text=\"bind='IDS_VALUE'\"/>"
          L"</HorizontalLayout></ListContainerElement>"));
    }
    list.SelectItem(2);
  }
};

// The pictures stay for whoever wants to look at them.
TEST_P(EveryControlTest, IsPaintedAloneAndUnderADialog) {
  EXPECT_EQ(TestLog::Instance().Take(), "");
  const std::filesystem::path pictures = PICTURES_DIR;
  std::filesystem::create_directories(pictures);
  const auto file = pictures / (std::string(GetParam().name) + ".png");
  painter->PaintInto(file, {&window.Manager()});
  const Picture alone(file);
  const auto scaled = [](int points) { return static_cast<int>(points * GetParam().scale + 0.5); };
  EXPECT_EQ(alone.GetSize(), (Size{scaled(kSize.width), scaled(kSize.height)}));
  EXPECT_GT(alone.Colours().size(), 500u);

  CPaintManagerUI dialog;
  Prepare(dialog);
  dialog.TakeLookOf(window.Manager());
  dialog.SetRoot(CDialogBuilder().Create(L"dialog.xml", {}, &dialog));
  dialog.SetClientSize({420, 240});
  const auto above = pictures / (std::string(GetParam().name) + "-dialog.png");
  painter->PaintInto(above, {&window.Manager(), &dialog});
  const Picture both(above);
  EXPECT_EQ(both.GetSize(), alone.GetSize());
  // Dimmed at its corner, the dialog's own ground in its middle.
  EXPECT_LT(both.At(1, 1) & 0xFF, alone.At(1, 1) & 0xFF);
  EXPECT_EQ(both.At(scaled(440), scaled(300)),
            window.Manager().ArgbOf(Colour::Named(L"card")) & 0xFFFFFF);
  EXPECT_EQ(TestLog::Instance().Take(), "");
}

constexpr View kViews[] = {
    {"light-en-1x", 1, Theme::Brightness::kLight, "en-US"},
    {"light-zh-2x", 2, Theme::Brightness::kLight, "zh-CN"},
    {"dark-en-2x", 2, Theme::Brightness::kDark, "en-US"},
    {"dark-zh-1x", 1, Theme::Brightness::kDark, "zh-CN"},
    {"light-en-2x", 2, Theme::Brightness::kLight, "en-US"},
    {"dark-zh-2x", 2, Theme::Brightness::kDark, "zh-CN"},
    {"light-zh-1x", 1, Theme::Brightness::kLight, "zh-CN"},
    {"light-en-1.25x", 1.25, Theme::Brightness::kLight, "en-US"},
};
INSTANTIATE_TEST_SUITE_P(Views, EveryControlTest, testing::ValuesIn(kViews));

TEST_F(PaintingTest, TextIsAsWideAsItWasMeasuredAtAnyScale) {
  const wchar_t* const texts[] = {L"Hardware diagnosis of the whole machine, item by item",
                                  L"\u786C\u4EF6\u8BCA\u65AD\u7ED3\u679C\u6B63\u5E38\u660E\u786E",
                                  L"Mixed \u786C\u4EF6 0123456789 text"};
  for (const wchar_t* const text : texts) {
    for (const int size : {13, 16, 26}) {
      for (const double scale : {1.0, 1.25, 2.0}) {
        window.Manager().SetScale(scale);
        window.Manager().SetClientSize({900, 60});
        window.Manager().GetTheme().SetFont(1, {size, size == 16, false});
        Open(std::wstring(L"<HorizontalLayout inset='10,10,0,0'><Label font='1' text='") + text +
             L"'/></HorizontalLayout>");
        const int width = painter->Measure().Width({size, size == 16, false}, text);
        const Rect ink = Paint().Where([](unsigned colour) { return (colour & 0xFF) < 0xC0; });
        const double margin = 1 + size * 0.12;  // what a letter leaves free at its sides
        EXPECT_NEAR(ink.left / scale, 10, margin) << size << " at " << scale;
        EXPECT_NEAR(ink.right / scale, 10 + width, margin) << size << " at " << scale;
      }
    }
  }
}

TEST_F(PaintingTest, FiguresAreEquallyWideAndLinesHoldTheirLetters) {
  for (const Font& font : {Font{13, false, false}, Font{14, true, false}, Font{26, true, false}}) {
    TextMeasure& measure = painter->Measure();
    for (const wchar_t figure : std::wstring(L"123456789")) {
      EXPECT_EQ(measure.Width(font, std::wstring(20, figure)),
                measure.Width(font, std::wstring(20, L'0')));
    }
    // Two lines of a hint stand in a row.
    if (font.size == 13) {
      EXPECT_LE(2 * measure.LineHeight(font), 32);
    }

    window.Manager().GetTheme().SetFont(1, font);
    Open(L"<Label font='1' text='\u00C4gjpqy\u8BCA'/>");
    const Rect ink = Paint().Where([](unsigned colour) { return (colour & 0xFF) < 0x80; });
    EXPECT_LE(ink.Height(), measure.LineHeight(font) + 2);
    EXPECT_NEAR(ink.Middle().y, 150, 2);
  }
}

TEST_F(PaintingTest, LettersOfDifferentFacesStandOnOneLine) {
  for (const double scale : {1.0, 2.0}) {
    window.Manager().SetScale(scale);
    const auto bottom = [&](const wchar_t* text) {
      Open(std::wstring(L"<Label align='start,start' text='") + text + L"'/>");
      // The last letter alone, behind the wide one.
      const int from = static_cast<int>(18 * scale);
      const Picture picture = Paint();
      Rect ink;
      for (int y = 0; y < picture.GetSize().height; ++y) {
        for (int x = from; x < from + static_cast<int>(14 * scale); ++x) {
          if ((picture.At(x, y) & 0xFF) < 0x80) ink = ink.Holding({x, y, x + 1, y + 1});
        }
      }
      return ink.bottom;
    };
    EXPECT_NEAR(bottom(L"\u8BCA 2"), bottom(L"HH 2"), scale) << scale;
  }
}

TEST_F(PaintingTest, EdgesAreCrispAtAnyScale) {
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    window.Manager().SetScale(scale);
    Open(
        L"<Container inset='3,5,0,0'><Control width='33' height='21' border='1' "
        L"border-colour='#FF0000' background='#0000FF'/></Container>");
    const Picture picture = Paint();
    EXPECT_EQ(picture.Colours(), (std::set<unsigned>{0xFFFFFF, 0xFF0000, 0x0000FF})) << scale;
    const Rect box = picture.Where([](unsigned colour) { return colour != 0xFFFFFF; });
    EXPECT_EQ(box, (Rect{static_cast<int>(std::lround(3 * scale)),
                         static_cast<int>(std::lround(5 * scale)),
                         static_cast<int>(std::lround(36 * scale)),
                         static_cast<int>(std::lround(26 * scale))}));
  }
}

TEST_F(PaintingTest, CornersAreRoundGradientsRunToTheRightAndShadowsAreSoftAndLower) {
  Open(
      L"<Container inset='100,100,0,0'><Control width='100' height='80' radius='40' shadow='20' "
      L"gradient='#FF0000,#0000FF'/></Container>");
  window.Manager().GetTheme().SetColour(L"shadow", 0xFF000000, 0);
  const Picture picture = Paint();
  EXPECT_NE(picture.At(102, 102), 0xFF0000u);
  EXPECT_GT(picture.At(105, 140) >> 16, 0xE0u);
  EXPECT_GT(picture.At(195, 140) & 0xFF, 0xE0u);
  EXPECT_EQ(picture.At(150, 102), picture.At(150, 177));
  // 20 points around it and 5 down, darker towards the box.
  const auto isShadow = [](unsigned colour) { return colour != 0xFFFFFF; };
  const Rect soft = picture.Where(isShadow);
  EXPECT_GE(soft.top, 85);
  EXPECT_LE(soft.bottom, 205);
  EXPECT_GT(soft.bottom, 195);
  EXPECT_LT(picture.At(150, 182) & 0xFF, picture.At(150, 192) & 0xFF);
}

TEST_F(PaintingTest, PicturesAreTintedShrunkToFitAndTakenWithTheDotsOfTheScale) {
  const auto paint = [&](const wchar_t* attributes, double scale) {
    window.Manager().SetScale(scale);
    Open(std::wstring(L"<Container inset='10,10,0,0'><Control ") + attributes + L"/></Container>");
    return Paint();
  };
  const auto isInk = [](unsigned colour) { return colour != 0xFFFFFF; };
  const auto whole = paint(L"width='64' height='64' image=\"file='icon.png'\"", 1).Where(isInk);
  EXPECT_NEAR(whole.Middle().x, 42, 1);
  EXPECT_NEAR(whole.Width(), 24, 2);
  const auto small = paint(L"width='16' height='40' image=\"file='icon.png'\"", 1).Where(isInk);
  EXPECT_NEAR(small.Width(), 12, 2);
  EXPECT_NEAR(small.Height(), 12, 2);
  EXPECT_NEAR(small.Middle().y, 30, 1);
  const auto large = paint(L"width='64' height='64' image=\"file='icon.png'\"", 2).Where(isInk);
  EXPECT_NEAR(large.Width(), 48, 3);

  // Of a tinted picture only the alpha is left.
  const Picture tinted =
      paint(L"width='64' height='64' image=\"file='icon.png'\" tint='#FF0000'", 1);
  for (const unsigned colour : tinted.Colours()) EXPECT_EQ(colour >> 16, 0xFFu);
  EXPECT_FALSE(tinted.Where([](unsigned colour) { return (colour & 0xFFFF) < 0x1010; }).IsEmpty());

  // One point of each kind: red at one dot a point, green at two.
  const auto copy = [&](const char* from, const char* to) {
    std::filesystem::copy_file(kResources / from, folder.path / to);
  };
  copy("tick.png", "a.png");
  copy("icon@2x.png", "a@2x.png");
  window.Manager().SetSkinFolder(folder.path);
  EXPECT_NEAR(paint(L"width='64' height='64' image=\"file='a.png'\"", 1).Where(isInk).Width(), 11,
              2);
  EXPECT_NEAR(paint(L"width='64' height='64' image=\"file='a.png'\"", 1.5).Where(isInk).Width(), 36,
              2);
}

TEST_F(PaintingTest, WhatCannotBeReadIsOneLogLineAndTheRestIsPainted) {
  WriteText(folder.path / "bad.png", "no picture");
  window.Manager().SetSkinFolder(folder.path);
  Open(
      L"<HorizontalLayout><Control width='50' height='grow' background='#FF0000' "
      L"image=\"file='bad.png'\"/>"
      L"<Control width='50' height='grow' background='#0000FF' "
      L"image=\"file='none.png'\"/></HorizontalLayout>");
  TestLog::Instance().Take();
  EXPECT_EQ(Paint().Colours(), (std::set<unsigned>{0xFFFFFF, 0xFF0000, 0x0000FF}));
  Paint();
  const std::string log = TestLog::Instance().Take();
  EXPECT_NE(log.find("bad.png: this is no PNG picture"), std::string::npos) << log;
  EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 2) << log;
}

TEST_F(PaintingTest, WhatCannotBeWrittenIsAnErrorThatNamesTheFile) {
  Open(L"<Control/>");
  const auto reason = [&](const std::filesystem::path& file,
                          const std::vector<CPaintManagerUI*>& windows) -> std::string {
    try {
      painter->PaintInto(file, windows);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return {};
  };
  EXPECT_NE(reason(folder.path / "none" / "a.png", {&window.Manager()}).find("a.png"),
            std::string::npos);
  EXPECT_NE(reason(folder.path / "b.png", {}).find("b.png: no window"), std::string::npos);
  for (const Size size : {Size{0, 100}, Size{16384, 16384}}) {
    window.Manager().SetClientSize(size);
    EXPECT_NE(reason(folder.path / "c.png", {&window.Manager()}).find("c.png: the window has no"),
              std::string::npos);
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.path));
}

}  // namespace
}  // namespace DuiLib
