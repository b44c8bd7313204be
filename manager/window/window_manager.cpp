#include "manager/window/window_manager.h"

#include <exception>

#include "common/log.h"
#include "platform/duilib/culture/culture.h"

namespace manager {
namespace {

using Brightness = DuiLib::Theme::Brightness;

std::wstring Text(const wchar_t* id) {
  return DuiLib::UICulture::GetInstance()->GetString(id);
}

}  // namespace

WindowManager::WindowManager(DuiLib::Desktop& onDesktop, Settings& kept, bool mayRestart)
    : desktop(onDesktop), settings(kept), manager(content, mayRestart) {
  ShowTheme();
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
    manager.ShowNotice(Text(L"IDS_MANAGER_NO_PLUGIN"));
  }
}

void WindowManager::ShowTheme() {
  const bool isDark = settings.theme == ThemeChoice::kSystem ? desktop.IsDark()
                                                             : settings.theme == ThemeChoice::kDark;
  content.SetBrightness(isDark ? Brightness::kDark : Brightness::kLight);
}

}  // namespace manager
