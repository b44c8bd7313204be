#include "manager/window/settings.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using manager::ParseSettings;
using manager::Settings;
using manager::SettingsText;
using manager::ThemeChoice;

TEST(SettingsTest, WhatIsRememberedIsReadBack) {
  Settings settings;
  settings.placement = {DuiLib::Point{-1600, 40}, {900, 640}, true};
  settings.theme = ThemeChoice::kDark;
  settings.language = "zh-CN";
  const Settings read = ParseSettings(SettingsText(settings));
  ASSERT_TRUE(read.placement.place);
  EXPECT_EQ(read.placement.place->x, -1600);
  EXPECT_EQ(read.placement.place->y, 40);
  EXPECT_EQ(read.placement.size.width, 900);
  EXPECT_EQ(read.placement.size.height, 640);
  EXPECT_TRUE(read.placement.maximized);
  EXPECT_EQ(read.theme, ThemeChoice::kDark);
  EXPECT_EQ(read.language, "zh-CN");
  EXPECT_FALSE(ParseSettings(SettingsText({})).placement.place) << "the system finds one";
}

TEST(SettingsTest, WhatMakesNoSenseIsLeftAtItsDefault) {
  const std::string whole = SettingsText({});
  for (const char* const odd :
       {R"({})", R"({"window": 5, "theme": 7, "language": null})",
        R"({"window": {"width": "wide", "height": 700}})",
        R"({"window": {"width": 3, "height": 700, "x": 5}})",
        R"({"window": {"width": 99999999999, "height": 700, "y": 1.5, "x": 0}})",
        R"({"theme": "blue", "window": {"maximized": 1, "x": 99999999, "y": 1}})"})
    EXPECT_EQ(SettingsText(ParseSettings(odd)), whole) << odd;
}

TEST(SettingsTest, ADamagedTextIsAnError) {
  const std::string text = SettingsText({});
  for (const std::string& damaged : {text.substr(0, text.size() / 2), std::string(), text + "x",
                                     std::string("[]"), std::string(100'000, '[')})
    EXPECT_THROW(ParseSettings(damaged), std::runtime_error);
}

}  // namespace
