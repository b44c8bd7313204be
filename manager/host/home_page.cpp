#include "manager/host/home_page.h"

#include <algorithm>
#include <utility>

#include "manager/host/layout.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/culture/culture.h"
#include "platform/util/smbios_helper.h"

namespace manager {
namespace {

constexpr std::size_t kTimer = 1;
constexpr const wchar_t* kModules = L"lytManagerModules";

}  // namespace

HomePage::HomePage(DuiLib::CPaintManagerUI& window, Hooks called)
    : hooks(std::move(called)), tree(BuildLayout(L"layout\\manager_home.xml", &window)) {
  FindIn<DuiLib::CContainerUI>(*tree, kModules);
  DuiLib::CControlUI& product = FindIn(*tree, L"txtManagerProduct");
  product.SetText(SMBIOSHelper::GetInstance()->GetSystemProductName());
  product.SetVisible(!product.GetText().empty());
  tree->SetNotifyHook([this](DuiLib::TNotifyUI& notification) {
    if (notification.type != DuiLib::kNotifyTimer) return false;
    OnTick();
    return true;
  });
}

void HomePage::OnDescriptor(const protocol::ModuleDescriptor& descriptor) {
  if (!modules.contains(descriptor.moduleId)) AddModule(descriptor);
}

void HomePage::AddModule(const protocol::ModuleDescriptor& descriptor) {
  const std::uint32_t id = descriptor.moduleId;
  const std::wstring title = DuiLib::UICulture::GetInstance()->GetString(descriptor.title);
  auto card = std::make_unique<ModuleCard>(
      FindIn<DuiLib::CContainerUI>(*tree, kModules), descriptor,
      ModuleCardHooks{.check = [this, id] { Ask(id, &ModuleProgress::AskCheck); },
                      .repair = [this, id] { Ask(id, &ModuleProgress::AskRepair); },
                      .stop = [this, id] { Stop(id); },
                      .details = [this, title] { hooks.showPage(title); }});
  Show(modules.insert_or_assign(id, Module{descriptor, title, {}, std::move(card)}).first->second);
}

void HomePage::OnSummary(const protocol::DiagnoseSummary& summary, SummaryOf of) {
  const auto found = modules.find(summary.moduleId);
  if (found == modules.end()) return;
  found->second.progress.OnSummary(summary, of);
  Show(found->second);
  Watch();
}

void HomePage::RemoveModules() {
  modules.clear();
  FindIn<DuiLib::CContainerUI>(*tree, kModules).RemoveAll();
  Watch();
}

void HomePage::Ask(std::uint32_t id, void (ModuleProgress::*ask)()) {
  Module& module = modules.at(id);
  (module.progress.*ask)();
  Show(module);
  Tick(module, concurrency::is_idle());
  Watch();
}

void HomePage::Stop(std::uint32_t id) {
  Module& module = modules.at(id);
  if (module.progress.AskStop()) hooks.stopCheck(module.descriptor);
  Show(module);
  Watch();
}

void HomePage::OnTick() {
  const bool idle = concurrency::is_idle();
  for (auto& [id, module] : modules) Tick(module, idle);
  Watch();
}

void HomePage::Tick(Module& module, bool idle) {
  const ModulePhase before = module.progress.Phase();
  const ModuleProgress::Request request = module.progress.OnTick(idle);
  if (request == ModuleProgress::Request::kCheck) hooks.startCheck(module.descriptor);
  if (request == ModuleProgress::Request::kRepair)
    hooks.startRepair(module.descriptor, module.progress.Repairable());
  if (module.progress.Phase() != before) Show(module);
}

void HomePage::Show(Module& module) {
  module.card->Show(module.progress, hooks.hasPage(module.title));
}

// The timer runs as long as a module is at work.
void HomePage::Watch() {
  DuiLib::CPaintManagerUI* const window = tree->GetManager();
  if (window == nullptr) return;
  const bool isAtWork = std::any_of(modules.begin(), modules.end(), [](const auto& entry) {
    return entry.second.progress.IsAtWork();
  });
  if (std::exchange(isWatching, isAtWork) == isAtWork) return;
  if (isAtWork)
    window->SetTimer(tree, kTimer, ModuleProgress::kTickMs);
  else
    window->KillTimer(tree, kTimer);
}

}  // namespace manager
