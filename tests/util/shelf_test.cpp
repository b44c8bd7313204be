#include <gmock/gmock.h>

#include "common/path_text.h"
#include "platform/machine/current.h"
#include "platform/os/paths.h"
#include "platform/util/shelf_file.h"
#include "platform/util/soft_shelf.h"
#include "tests/support/fake_machine.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_log.h"

namespace {

using testing::HasSubstr;
using testing::UnorderedElementsAre;

std::string ErrorOf(std::string_view json) {
  try {
    util::ParseShelf(json, "shelf.json");
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(ShelfFile, IsOneFlatArrayOfKeys) {
  EXPECT_THAT(util::ParseShelf(R"( ["orv_plugin_hardware", "k\u00e9y", "", "k\u00e9y"] )", "x"),
              UnorderedElementsAre("orv_plugin_hardware", "k\u00e9y", ""));
  for (const char* json : {"", "[", "[\"a\",]", "[\"a\"] 1", "\"a\"", "{}", "{\"a\": []}", "[1]",
                           "[[\"a\"]]", "[null]", "[\"\xff\"]", "null"})
    EXPECT_THAT(ErrorOf(json), HasSubstr("shelf.json: byte ")) << json;
  EXPECT_THAT(ErrorOf(std::string(1 << 20, '[')), HasSubstr("byte "));
  EXPECT_EQ(ErrorOf("[]" + std::string(1 << 20, ' ')), "shelf.json: larger than 1 MiB");
}

TEST(ShelfFile, OfTheProgramStandsBeforeTheInstallations) {
  const TemporaryFolder folder;
  os::SetConfigurationRoot(folder.path);
  EXPECT_EQ(util::ShelfFile(), os::InstallationFolder() / "config" / "shelf.json");
  WriteText(folder.path / "config" / "shelf.json", "[]");
  EXPECT_EQ(util::ShelfFile(), folder.path / "config" / "shelf.json");
  EXPECT_THROW(util::ReadShelfFile(folder.path), std::runtime_error) << "a folder";
  EXPECT_THROW(util::ReadShelfFile(folder.path / "missing"), std::runtime_error);
}

TEST(SoftShelf, OffersWhatTheMachineSaysAndNothingFromAMalformedFile) {
  const TemporaryFolder folder;
  os::SetConfigurationRoot(folder.path);
  WriteText(folder.path / "config" / "shelf.json", "[\"from file\"");
  TestLog::Instance().Take();

  auto machine = std::make_unique<FakeMachine>();
  machine->shelf = {"from machine"};
  machine::SetCurrent(std::move(machine));
  EXPECT_TRUE(CQVXSoftShelf::GetInstance()->IsSupportPlugin("from machine"));
  EXPECT_FALSE(CQVXSoftShelf::GetInstance()->IsSupportPlugin("from file"));
  EXPECT_EQ(TestLog::Instance().Take(), "");

  machine::SetCurrent(std::make_unique<FakeMachine>());
  EXPECT_FALSE(CQVXSoftShelf::GetInstance()->IsSupportPlugin("from file"));
  EXPECT_FALSE(CQVXSoftShelf::GetInstance()->IsSupportPlugin("from machine"));
  const std::string line = TestLog::Instance().Take();
  EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1) << line;
  EXPECT_THAT(line,
              HasSubstr(common::PathText(folder.path / "config" / "shelf.json") + ": byte 12: "));
  machine::SetCurrent(nullptr);
}

}  // namespace
