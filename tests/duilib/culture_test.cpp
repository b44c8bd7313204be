#include "platform/duilib/culture/culture.h"

#include <gmock/gmock.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace {

using DuiLib::UICulture;
using testing::AllOf;
using testing::HasSubstr;

std::string Culture(const std::string& language, const std::string& strings) {
  return "<culture language=\"" + language + "\">" + strings + "</culture>";
}

// A resource folder of its own for every test.
class CultureTest : public testing::Test {
 protected:
  CultureTest() {
    Write("en-US", Culture("en-US",
                           "<string id='IDS_PLAIN'>Disk</string>"
                           "<string id='IDS_BLANKS'> and </string>"
                           "<string id='IDS_ONE'>Found: {0}</string>"
                           "<string id='IDS_TWO'>{1} of {0}</string>"
                           "<string id='IDS_LINK'> To get help, {a}ask{/a}.</string>"
                           "<string id='IDS_MARKS'>{c #7F7F7F}grey{/c}</string>"));
    Write("zh-CN", Culture("zh-CN", "<string id='IDS_PLAIN'>硬盘</string>"));
  }

  void Write(const std::string& language, const std::string& xml) {
    WriteText(resources.path / "culture" / (language + ".xml"), xml);
  }
  void Use(const std::string& language) { culture.SetLanguage(language, resources.path); }
  std::string ErrorOf(const std::string& language) {
    try {
      Use(language);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "no error";
  }

  TemporaryFolder resources;
  UICulture& culture = *UICulture::GetInstance();
};

TEST_F(CultureTest, ALanguageStandsInFrontOfEnglish) {
  Use("zh-CN");
  EXPECT_EQ(culture.GetString(L"IDS_PLAIN"), L"硬盘");
  EXPECT_EQ(culture.GetMultiVarStr(L"IDS_ONE", {L"3"}), L"Found: 3");
  EXPECT_EQ(culture.GetString(L"IDS_BLANKS"), L" and ");
  EXPECT_EQ(culture.GetString(L"IDS_NOWHERE"), L"IDS_NOWHERE");

  Use("en-US");
  EXPECT_EQ(culture.GetString(L"IDS_PLAIN"), L"Disk");
}

TEST_F(CultureTest, ReadersOnAnyThreadSeeOneLanguageOrTheOther) {
  Use("en-US");
  std::atomic<bool> ended = false;
  std::atomic<int> wrong = 0;
  std::vector<std::thread> readers;
  readers.reserve(4);
  for (int i = 0; i < 4; ++i)
    readers.emplace_back([&] {
      while (!ended) {
        const std::wstring text = culture.GetString(L"IDS_PLAIN");
        if (text != L"Disk" && text != L"硬盘") ++wrong;
        if (culture.GetMultiVarStr(L"IDS_ONE", {L"3"}) != L"Found: 3") ++wrong;
      }
    });
  for (int change = 0; change < 200; ++change) Use(change % 2 == 0 ? "zh-CN" : "en-US");
  ended = true;
  for (std::thread& reader : readers) reader.join();
  EXPECT_EQ(wrong, 0);
}

TEST_F(CultureTest, ArgumentsFillMessagePatternsOnly) {
  Use("en-US");
  const std::wstring disk = L"Disk \U0001F4BE '{0}'";
  EXPECT_EQ(culture.GetMultiVarStr(L"IDS_TWO", {disk, L"1000000"}), L"1000000 of " + disk);
  EXPECT_EQ(culture.GetMultiVarStr(L"IDS_PLAIN", {L"3"}), L"Disk");
  EXPECT_EQ(culture.GetMultiVarStr(L"IDS_MARKS", {L"3"}), L"");
}

TEST_F(CultureTest, IdsShowThemselvesAndTheirArguments) {
  Use("ids");
  EXPECT_EQ(culture.GetString(L"IDS_PLAIN"), L"IDS_PLAIN");
  EXPECT_EQ(culture.GetString(L"IDS_MARKS"), L"IDS_MARKS");
  EXPECT_EQ(culture.GetString(L"IDS_LINK"), L"{a}IDS_LINK{/a}") << "can still be followed";
  EXPECT_EQ(culture.GetString(L"IDS_ONE"), L"IDS_ONE({0})");
  EXPECT_EQ(culture.GetMultiVarStr(L"IDS_TWO", {L"7", L"8"}), L"IDS_TWO(7,8)");

  culture.SetLanguage("ids", resources.path / "nothing here");
  EXPECT_EQ(culture.GetString(L"IDS_ONE"), L"IDS_ONE");
}

TEST_F(CultureTest, ABindStandsForItsIdAndOtherTextForItself) {
  Use("en-US");
  EXPECT_EQ(culture.ParseBind(L"bind='IDS_PLAIN'"), L"Disk");
  for (const wchar_t* text : {L"", L"IDS_PLAIN", L"bind='", L"bind='IDS_PLAIN", L"bind=IDS_PLAIN",
                              L"bind='IDS_PLAIN' ", L" bind='IDS_PLAIN'"}) {
    EXPECT_EQ(culture.ParseBind(text), text);
  }
}

TEST_F(CultureTest, AMalformedFileIsOneErrorNamingItAndThePlace) {
  const struct {
    const char* xml;
    const char* reason;
  } kCases[] = {
      {"<cultures language='xx'/>", "there is no element <culture>"},
      {"<culture><string id='A'>a</string></culture>", "the language is '', expected 'xx'"},
      {"<culture language='zh-CN'/>", "the language is 'zh-CN', expected 'xx'"},
      {"<culture language='xx'><string id='A'>a</string", "xx.xml:1:"},
      {"<culture language='xx'><string id='A'>a</string><string id='A'>b</string></culture>",
       "duplicate id A"},
      {"<culture language='xx'><string id='A'>a</string><text id='B'>b</text></culture>",
       "unknown element <text> after A"},
      {"<culture language='xx'><string id='A'>a</string><string>b</string></culture>",
       "without an id after A"},
      {"<culture language='xx'><string id='A'>a <b>bold</b> word</string></culture>",
       "unknown element <b> in the text of A"},
  };
  Use("en-US");
  for (const auto& [xml, reason] : kCases) {
    Write("xx", xml);
    EXPECT_THAT(ErrorOf("xx"), AllOf(HasSubstr("xx.xml"), HasSubstr(reason))) << xml;
  }
  Write("xx", Culture("xx", std::string(std::size_t{2} << 20, ' ')));
  EXPECT_THAT(ErrorOf("xx"), AllOf(HasSubstr("xx.xml"), HasSubstr("1 MiB")));
  EXPECT_EQ(culture.GetString(L"IDS_PLAIN"), L"Disk") << "the table in use must survive an error";
}

TEST_F(CultureTest, AFileThatCannotBeReadIsAnError) {
  std::filesystem::create_directory(resources.path / "culture" / "folder.xml");
  EXPECT_THAT(ErrorOf("de-DE"), AllOf(HasSubstr("de-DE.xml"), HasSubstr("cannot open")));
  EXPECT_THAT(ErrorOf("folder"), AllOf(HasSubstr("folder.xml"), HasSubstr("cannot open")));
  std::filesystem::remove(resources.path / "culture" / "en-US.xml");
  EXPECT_THAT(ErrorOf("zh-CN"), AllOf(HasSubstr("en-US.xml"), HasSubstr("cannot open")));
}

TEST_F(CultureTest, ALanguageNameCannotLeaveTheFolder) {
  std::ofstream(resources.path / "outside.xml") << Culture("../outside", "");
  for (const std::string name : {"", "../outside", "..", "en_US", "en-US.xml", "a/b", "a\\b"}) {
    EXPECT_THAT(ErrorOf(name), HasSubstr("'" + name + "' is no language"));
  }
}

}  // namespace
