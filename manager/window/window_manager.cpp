#include "manager/window/window_manager.h"

#include <algorithm>
#include <exception>
#include <vector>

#include "common/log.h"
#include "common/text.h"
#include "manager/host/layout.h"
#include "manager/window/choice.h"
#include "platform/duilib/culture/culture.h"
#include "platform/os/paths.h"
#include "startup/language.h"

namespace manager {
namespace {

using Brightness = DuiLib::Theme::Brightness;

std::wstring Text(const wchar_t* id) {
  return DuiLib::UICulture::GetInstance()->GetString(id);
}

}  // namespace

WindowManager::WindowManager(DuiLib::Desktop& onDesktop, Settings& kept,
                             const std::string& language, bool mayRestart)
    : desktop(onDesktop), settings(kept), manager(content, mayRestart) {
  ShowTheme();
  OfferChoices(language);
  desktop.darkChanged = [this] { ShowTheme(); };
  top = desktop.MakeTop(content, settings.placement);
  top->SetTitle(Text(L"IDS_MANAGER_TITLE"));
  top->closeAsked = [this] {
    settings.placement = top->GetPlacement();
    return true;
  };
  top->closed = [this] { desktop.Quit(); };
  manager.raiseAsked = [this] { top->Raise(); };
  top->Show();
}

WindowManager::~WindowManager() {
  desktop.darkChanged = {};
}

void WindowManager::LoadPlugin(const std::filesystem::path& file) {
  try {
    manager.LoadPlugin(file);
  } catch (const std::exception& error) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.manager"), error.what());
    manager.TakePlugin();
    manager.ShowNotice(Text(L"IDS_MANAGER_NO_PLUGIN"));
  }
}

void WindowManager::OfferChoices(const std::string& language) {
  std::vector<std::wstring> themes;
  for (const wchar_t* const id :
       {L"IDS_MANAGER_THEME_SYSTEM", L"IDS_MANAGER_THEME_LIGHT", L"IDS_MANAGER_THEME_DARK"})
    themes.push_back(Text(id));
  OfferChoice(content, L"lytManagerThemes", themes, static_cast<std::size_t>(settings.theme),
              [this](std::size_t chosen) {
                settings.theme = static_cast<ThemeChoice>(chosen);
                ShowTheme();
              });

  const std::vector<std::string> known = startup::Languages(os::InstallationFolder() / "res");
  std::vector<std::wstring> names;
  for (const std::string& name : known) names.push_back(common::Utf8ToWide(name));
  const auto current = std::find(known.begin(), known.end(), language);
  OfferChoice(content, L"lytManagerLanguages", names,
              static_cast<std::size_t>(current - known.begin()), [this, known](std::size_t chosen) {
                settings.language = known[chosen];
                manager.ShowNotice(Text(L"IDS_MANAGER_LANGUAGE_LATER"));
              });
  FindIn(*content.GetRoot(), L"lytManagerChoices").SetVisible(true);
}

void WindowManager::ShowTheme() {
  const bool isDark = settings.theme == ThemeChoice::kSystem ? desktop.IsDark()
                                                             : settings.theme == ThemeChoice::kDark;
  content.SetBrightness(isDark ? Brightness::kDark : Brightness::kLight);
}

}  // namespace manager
