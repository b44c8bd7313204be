#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/manager/journey.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> Journeys() {
  std::vector<std::string> names;
  for (const auto& file : fs::directory_iterator(TEST_DATA_DIR "/journeys"))
    names.push_back(file.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

class JourneyTest : public testing::TestWithParam<std::string> {};

TEST_P(JourneyTest, ShowsSendsAndStoresWhatTheFileTells) {
  EXPECT_EQ(GoThrough(TEST_DATA_DIR "/journeys/" + GetParam() + ".journey"), "");
}

INSTANTIATE_TEST_SUITE_P(Pages, JourneyTest, testing::ValuesIn(Journeys()),
                         [](const auto& journey) {
                           std::string name = journey.param;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
