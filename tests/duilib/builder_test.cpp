#include "platform/duilib/controls/frame_animation.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/list.h"
#include "platform/duilib/controls/option.h"
#include "tests/duilib/ui_test.h"
#include "tests/support/temporary_folder.h"

namespace DuiLib {
namespace {

class BuilderTest : public UiTest {
 protected:
  BuilderTest() { window.Manager().SetSkinFolder(folder.path); }

  // The log lines of building a layout file, without what stands before the file's own name.
  std::string LogOf(const std::string& layout) {
    WriteText(folder.path / "layout" / "a.xml", layout);
    TestLog::Instance().Take();
    window.Open(CDialogBuilder().Create(L"layout\\a.xml", {}, &window.Manager()));
    return TestLog::Instance().Take();
  }

  TemporaryFolder folder;
};

TEST_F(BuilderTest, EachMistakeIsOneLineWithItsPlaceAndTheRestIsBuilt) {
  const std::string log = LogOf(
      "<VerticalLayout>\n"
      "  <Label name=\"a\" texd=\"x\"\n"
      "         width='wide' text='&lt;seen&gt;'/>\n"
      "  <Slider/>\n"
      "  <Label image='file = \"none.png\"' text-colour='#12345'/>\n"
      "  <Label image=\"file='drawable/none.png'\" font='16' "
      "background='paper'><Control/></Label>\n"
      "  <Label image=\"file='drawable\\none.png'\"/>\n"
      "</VerticalLayout>");
  for (const char* line :
       {"a.xml:2:19: unknown attribute texd", "a.xml:3:10: 'wide' is no value of width",
        "a.xml:4:4: unknown element <Slider>",
        "a.xml:5:10: 'file = \"none.png\"' is no value of image",
        "a.xml:5:36: '#12345' is no value of text-colour", "a.xml:6:4: there is no picture ",
        "a.xml:6:4: unknown font 16", "a.xml:6:4: unknown colour paper",
        "a.xml:6:73: <Label> holds no other controls"}) {
    EXPECT_NE(log.find(line), std::string::npos) << line << " in\n" << log;
  }
  // The missing picture is told once.
  EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 9) << log;
  EXPECT_EQ(window.Text(L"a"), L"<seen>");
}

TEST_F(BuilderTest, WhatIsNoLayoutIsNoTreeAndOneLine) {
  const struct {
    const char* layout;
    const char* reason;
  } cases[] = {
      {"<VerticalLayout>\n <Label text=></VerticalLayout>", "a.xml:2:14: expected ' or \""},
      {"", "a.xml: there is no element"},
      {"<!-- only this -->", "a.xml: there is no element"},
      {"<Unknown/>", "a.xml:1:2: unknown element <Unknown>"},
  };
  for (const auto& [layout, reason] : cases) {
    const std::string log = LogOf(layout);
    EXPECT_NE(log.find(reason), std::string::npos) << log;
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1) << log;
    EXPECT_EQ(window.Manager().GetRoot(), nullptr);
  }
  TestLog::Instance().Take();
  EXPECT_EQ(CDialogBuilder().Create(L"layout\\none.xml", {}, &window.Manager()), nullptr);
  EXPECT_NE(TestLog::Instance().Take().find("cannot open file"), std::string::npos);
}

TEST_F(BuilderTest, ALayoutOfTooManyElementsIsRefused) {
  std::string layout = "<VerticalLayout>";
  for (int count = 1; count < 10'000; ++count) layout += "<Control/>";
  EXPECT_EQ(LogOf(layout + "</VerticalLayout>"), "");
  EXPECT_NE(LogOf(layout + "<Control/></VerticalLayout>").find("more than 10,000 elements"),
            std::string::npos);
}

TEST_F(BuilderTest, ValuesReachTheControl) {
  WriteText(folder.path / "drawable" / "a.png", "");
  WriteText(folder.path / "culture" / "en-US.xml",
            "<culture language='en-US'><string id='IDS_A'>Hello</string></culture>");
  UICulture::GetInstance()->SetLanguage("en-US", folder.path);
  EXPECT_EQ(LogOf("<VerticalLayout inset='1,2,3,4'>"
                  "<Label name='l' text=\"bind='IDS_A'\" tooltip='tip' user-data='7' "
                  "image=\"file = 'drawable\\a.png'\" border='2' border-colour='#80112233' "
                  "radius='12' visible='false' align='end,start'/>"
                  "<Option name='o' selected='true' enabled='false' group='g'/>"
                  "<List name='s' line-step='25' least-height='70'/></VerticalLayout>"),
            "");
  auto& label = Get<CLabelUI>(L"l");
  EXPECT_EQ(label.GetText(), L"Hello");
  EXPECT_EQ(label.GetToolTip(), L"tip");
  EXPECT_EQ(label.GetUserData(), L"7");
  EXPECT_EQ(label.GetLook().image->file, L"drawable/a.png");
  EXPECT_EQ(label.GetLook().border, Colour(0x80112233));
  EXPECT_EQ(label.GetStyle().borderWidth, 2);
  EXPECT_EQ(label.GetStyle().radius, 12);
  EXPECT_FALSE(label.IsVisible());
  EXPECT_EQ(label.GetAlign(), Place::kEnd);
  EXPECT_EQ(label.GetVAlign(), Place::kStart);
  EXPECT_TRUE(Get<COptionUI>(L"o").IsSelected());
  EXPECT_FALSE(Get<COptionUI>(L"o").IsEnabled());
  EXPECT_EQ(Get<CListUI>(L"s").GetLineStep(), 25);
  EXPECT_EQ(window.Position(L"s"), (Rect{1, 2, 397, 278}).MovedBy(0, 18));
}

TEST_F(BuilderTest, ACallerMayBringClassesOfItsOwn) {
  class OwnItem final : public CContainerUI {};
  const std::unique_ptr<CControlUI> tree(CDialogBuilder().Create(
      L"<OwnItem name='mine'><Label name='in'/></OwnItem>",
      [](const CDuiString& element) { return element == L"OwnItem" ? new OwnItem : nullptr; }));
  ASSERT_NE(dynamic_cast<OwnItem*>(tree.get()), nullptr);
  EXPECT_NE(CPaintManagerUI::FindControl(tree.get(), L"in"), nullptr);
}

TEST_F(BuilderTest, AStyleGivesWhatTheElementDoesNotNameItself) {
  window.Manager().GetTheme().Read(
      "<Theme><Style name='main' width='150' height='40' font='3' colour='x'/></Theme>", "theme");
  TestLog::Instance().Take();
  Open(
      L"<Container>\n<Button name='button' height='44' style='main'/><Label style='none'/>"
      L"</Container>");
  EXPECT_EQ(Get<CButtonUI>(L"button").GetWidth(), Length::Number(150));
  EXPECT_EQ(Get<CButtonUI>(L"button").GetHeight(), Length::Number(44));
  EXPECT_EQ(Get<CButtonUI>(L"button").GetFont(), 3);
  const std::string log = TestLog::Instance().Take();
  EXPECT_NE(log.find("2:35: style main: unknown attribute colour"), std::string::npos) << log;
  EXPECT_NE(log.find("2:56: unknown style none"), std::string::npos) << log;
}

TEST_F(BuilderTest, ColoursOfTheThemeHaveALightAndADarkNumberAndCodeIsAlphaFirst) {
  WriteText(folder.path / "theme.xml",
            "<Theme>\n<Colour name='ink' light='#112233' dark='#80AABBCC'/>\n"
            "<Colour name='bad' light='ink' dark='#000000'/>\n"
            "<Font number='16' size='15' bold='true'/><Font number='17' size='0'/></Theme>");
  TestLog::Instance().Take();
  CPaintManagerUI& manager = window.Manager();
  manager.LoadTheme(L"theme.xml");
  const std::string log = TestLog::Instance().Take();
  EXPECT_NE(log.find("theme.xml:3:2: no font, colour or style: <Colour>"), std::string::npos);
  EXPECT_NE(log.find("theme.xml:4:43: no font, colour or style: <Font>"), std::string::npos);

  EXPECT_EQ(manager.ArgbOf(Colour::Named(L"ink")), 0xFF112233u);
  manager.SetBrightness(Theme::Brightness::kDark);
  EXPECT_EQ(manager.ArgbOf(Colour::Named(L"ink")), 0x80AABBCCu);
  EXPECT_EQ(manager.ArgbOf(Colour(0x7B6EF9)) >> 24, 0u);
  EXPECT_EQ(manager.ArgbOf(*Colour::Parse(L"#7B6EF9")), 0xFF7B6EF9u);
  EXPECT_EQ(manager.GetTheme().FontOf(16), (Font{15, true, false}));
}

class TextTest : public BuilderTest {
 protected:
  // The pieces of a label as "text@left", lines apart by a bar.
  std::wstring PiecesOf(const std::wstring& name) {
    window.Manager().LayOut();
    std::wstring pieces;
    for (const TextLine& line : Get<CLabelUI>(name).GetTextLayout().lines) {
      if (!pieces.empty()) pieces += L"|";
      for (const TextPiece& piece : line.pieces) {
        pieces += L"[" + piece.text + L"@" + std::to_wstring(piece.left) + L"]";
      }
    }
    return pieces;
  }
  void Show(const std::wstring& attributes, const std::wstring& text) {
    Open(L"<VerticalLayout><Label name='t' " + attributes + L"/></VerticalLayout>");
    Get<CLabelUI>(L"t").SetText(text);
  }
};

TEST_F(TextTest, MarksNestCloseCrosswiseAndElseAreText) {
  window.Manager().GetTheme().SetFont(16, {20, false, false});
  Show(L"", L"{f 16}{c #7F7F7F}ab{/f}c{/c}d{/c}");
  EXPECT_EQ(PiecesOf(L"t"), L"[ab@0][c@20][d@27]");
  const TextLine& line = Get<CLabelUI>(L"t").GetTextLayout().lines[0];
  EXPECT_EQ(line.pieces[0].font.size, 20);
  EXPECT_EQ(line.pieces[0].colour, Colour(0xFF7F7F7F));
  EXPECT_EQ(line.pieces[1].font.size, 14);
  EXPECT_EQ(line.pieces[1].colour, Colour(0xFF7F7F7F));
  EXPECT_EQ(line.pieces[2].colour, std::nullopt);

  for (const wchar_t* text : {L"ID({0},{1})", L"{c red}x", L"{f x}", L"{", L"a{b", L"{}", L"{a"}) {
    Show(L"", text);
    EXPECT_EQ(window.Text(L"t"), text);
  }
}

TEST_F(TextTest, BreaksAtBlanksWideCharactersAndWithinWordsThatAreTooLong) {
  const struct {
    const wchar_t* text;
    const wchar_t* pieces;
  } cases[] = {
      {L"ab cd ef", L"[ab cd@0]|[ef@0]"},
      {L"ab\n\ncd", L"[ab@0]||[cd@0]"},
      {L"abcdefgh i", L"[abcde@0]|[fgh i@0]"},
      {L"\u4E00\u4E8C\u4E09", L"[\u4E00\u4E8C@0]|[\u4E09@0]"},
      {L"a {c #000000}bcdef{/c}", L"[a@0]|[bcdef@0]"},
      {L"", L""},
  };
  for (const auto& [text, pieces] : cases) {
    Show(L"multi-line='true' width='35'", text);  // five letters
    EXPECT_EQ(common::WideToUtf8(PiecesOf(L"t")), common::WideToUtf8(pieces));
  }
}

TEST_F(TextTest, WhatDoesNotFitEndsInAnEllipsisAcrossLooksAndLines) {
  const struct {
    const wchar_t* attributes;
    const wchar_t* text;
    const wchar_t* pieces;
  } cases[] = {
      {L"width='35'", L"abcdef", L"[abcdef@0]"},
      {L"width='35' end-ellipsis='true'", L"abcde", L"[abcde@0]"},
      {L"width='35' end-ellipsis='true'", L"abcdef", L"[abcd\u2026@0]"},
      {L"width='35' end-ellipsis='true'", L"abc def", L"[abc\u2026@0]"},
      {L"width='35' end-ellipsis='true'", L"ab{c #000000}cdef", L"[ab@0][cd\u2026@14]"},
      {L"width='35' end-ellipsis='true'", L"abcd{c #000000}efgh", L"[abcd@0][\u2026@28]"},
      {L"width='35' end-ellipsis='true'", L"abcde{c #000000}fgh", L"[abcd\u2026@0]"},
      {L"width='3' end-ellipsis='true'", L"abc", L"[\u2026@0]"},
      {L"width='35' height='40' multi-line='true' end-ellipsis='true'", L"ab cd ef gh ij",
       L"[ab cd@0]|[ef g\u2026@0]"},
  };
  for (const auto& [attributes, text, pieces] : cases) {
    Show(attributes, text);
    EXPECT_EQ(common::WideToUtf8(PiecesOf(L"t")), common::WideToUtf8(pieces));
  }
}

}  // namespace
}  // namespace DuiLib
