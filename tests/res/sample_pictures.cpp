// Paints every sample state into a folder, for a person to look at:
//   sample_pictures FOLDER [STATE...]
#include <algorithm>
#include <filesystem>
#include <iostream>

#include "platform/duilib/culture/culture.h"
#include "platform/duilib/painter/painter.h"
#include "tests/res/sample_pages.h"

namespace {

using Brightness = DuiLib::Theme::Brightness;

constexpr struct {
  const char* name;
  Brightness brightness;
} kThemes[] = {{"light", Brightness::kLight}, {"dark", Brightness::kDark}};

void Paint(DuiLib::Painter& painter, const std::filesystem::path& folder,
           const SampleState& state) {
  for (const char* language : {"en-US", "zh-CN"}) {
    DuiLib::UICulture::GetInstance()->SetLanguage(language, APP_DIR "/res");
    for (const auto& theme : kThemes) {
      for (const int scale : {1, 2}) {
        const auto windows = ShowSample(state, [&](DuiLib::CPaintManagerUI& manager) {
          manager.SetTextMeasure(&painter.Measure());
          manager.SetBrightness(theme.brightness);
          manager.SetScale(scale);
        });
        std::vector<DuiLib::CPaintManagerUI*> managers;
        for (const auto& window : windows) managers.push_back(&window->Manager());
        const std::string name = state.name + "-" + theme.name + "-" + language;
        painter.PaintInto(folder / (name + "-" + std::to_string(scale) + "x.png"), managers);
      }
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  DuiLib::Painter* const painter = DuiLib::Painter::Load();
  if (count < 2 || painter == nullptr) {
    std::cerr << (count < 2 ? "usage: sample_pictures FOLDER [STATE...]" : "there is no painter")
              << '\n';
    return 1;
  }
  const std::vector<std::string> wanted(arguments + 2, arguments + count);
  std::filesystem::create_directories(arguments[1]);
  for (const SampleState& state : SampleStates()) {
    if (!wanted.empty() && std::find(wanted.begin(), wanted.end(), state.name) == wanted.end()) {
      continue;
    }
    Paint(*painter, arguments[1], state);
  }
}
