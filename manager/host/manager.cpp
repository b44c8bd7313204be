#include "manager/host/manager.h"

#include <exception>
#include <stdexcept>
#include <utility>

#include "common/log.h"
#include "manager/host/layout.h"
#include "platform/duilib/culture/culture.h"

namespace manager {
namespace {

log4cxx::LoggerPtr Log() {
  return log4cxx::Logger::getLogger("orv.manager");
}

std::wstring Text(const wchar_t* id) {
  return DuiLib::UICulture::GetInstance()->GetString(id);
}

}  // namespace

Manager::Manager(DuiLib::CPaintManagerUI& ofWindow, bool restarts)
    : window(ofWindow),
      mayRestart(restarts),
      tabs(window),
      home(window, {.startCheck = [this](const auto& module) { channel.StartCheck(module); },
                    .stopCheck = [this](const auto& module) { channel.StopCheck(module); },
                    .startRepair =
                        [this](const auto& module, const auto& categories) {
                          channel.StartRepair(module, categories);
                        },
                    .hasPage = [this](const std::wstring& title) { return tabs.Has(title); },
                    .showPage = [this](const std::wstring& title) { tabs.EnterTitled(title); }}),
      channel(
          {.descriptor = [this](const auto& descriptor) { home.OnDescriptor(descriptor); },
           .summary = [this](const auto& summary, SummaryOf of) { home.OnSummary(summary, of); },
           .restart = [this] { Restart(); },
           .raise =
               [this] {
                 if (raiseAsked) raiseAsked();
                 return raiseAsked != nullptr;
               }}) {
  tabs.Add(Text(L"IDS_MANAGER_HOME"), home.GetTree());
  FindIn(*window.GetRoot(), L"btnManagerNoticeClose")
      .SetNotifyHook([this](DuiLib::TNotifyUI& notification) {
        if (notification.type == DuiLib::kNotifyClick) ShowNotice(L"");
        return true;
      });
}

void Manager::LoadPlugin(const std::filesystem::path& file) {
  plugin = std::make_unique<Plugin>(file);
  Mount();
  channel.AskForDescriptors();
}

void Manager::Mount() {
  PageCreationContext context;
  context.paintManager = &window;
  context.notifyPump = &tabs;
  context.AddPageCallback = [this](int, const std::wstring& title, DuiLib::CControlUI* page) {
    tabs.Add(title, page);
  };
  plugin->CreateUI(context);
}

std::unique_ptr<Plugin> Manager::TakePlugin() {
  tabs.KeepFirst(kHomeTabs);
  home.RemoveModules();
  return std::exchange(plugin, nullptr);
}

void Manager::ShowNotice(const std::wstring& text) {
  DuiLib::CControlUI& root = *window.GetRoot();
  FindIn(root, L"txtManagerNotice").SetText(text);
  FindIn(root, L"lytManagerNotice").SetVisible(!text.empty());
}

void Manager::Restart() {
  if (!mayRestart) {
    COMMON_LOG_INFO(Log(), "A restart was asked for; this manager may not restart the computer");
    return ShowNotice(Text(L"IDS_MANAGER_RESTART_DRY"));
  }
  try {
    restart.Ask();
    ShowNotice(Text(L"IDS_MANAGER_RESTART_ASKED"));
  } catch (const std::exception& error) {
    COMMON_LOG_ERROR(Log(), std::string("The computer cannot be restarted: ") + error.what());
    ShowNotice(Text(L"IDS_MANAGER_RESTART_FAILED"));
  }
}

}  // namespace manager
