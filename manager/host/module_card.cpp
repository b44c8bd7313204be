#include "manager/host/module_card.h"

#include <algorithm>
#include <utility>

#include "manager/host/layout.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/culture/culture.h"

namespace manager {
namespace {

using DuiLib::CContainerUI;
using DuiLib::CControlUI;
using protocol::DetectListEntry;
using protocol::DisplayState;

constexpr std::size_t kMostFindings = 3;  // the rest is a count

std::wstring Text(const wchar_t* id) {
  return DuiLib::UICulture::GetInstance()->GetString(id);
}

std::wstring Filled(const std::wstring& id, const std::wstring& value) {
  return DuiLib::UICulture::GetInstance()->GetMultiVarStr(id, {value});
}

std::wstring Filled(const std::wstring& id, std::size_t value) {
  return Filled(id, std::to_wstring(value));
}

std::wstring CheckingText(const ModuleProgress& progress) {
  if (progress.IsStopping()) return Text(L"IDS_MANAGER_MODULE_STOPPING");
  const std::wstring running = progress.Running();
  return running.empty() ? Text(L"IDS_MANAGER_MODULE_STARTING")
                         : Filled(L"IDS_MANAGER_MODULE_CHECKING", running);
}

std::wstring ResultHeadline(const ModuleProgress& progress) {
  const protocol::DiagnoseSummary& summary = progress.Summary();
  return summary.abnormalCount == 0 ? Text(summary.headline.c_str())
                                    : Filled(summary.headline, summary.abnormalCount);
}

std::wstring Headline(const ModuleProgress& progress) {
  switch (progress.Phase()) {
    case ModulePhase::kUnknown:
      return Text(L"IDS_MANAGER_MODULE_UNKNOWN");
    case ModulePhase::kWaiting:
      return Text(L"IDS_MANAGER_MODULE_WAITING");
    case ModulePhase::kChecking:
      return CheckingText(progress);
    case ModulePhase::kRepairing:
      return Text(L"IDS_MANAGER_MODULE_REPAIRING");
    case ModulePhase::kStopped:
      return Filled(L"IDS_MANAGER_MODULE_STOPPED", progress.CheckedCount());
    case ModulePhase::kBrokenOff:
      return Filled(L"IDS_MANAGER_MODULE_BROKEN_OFF", progress.CheckedCount());
    case ModulePhase::kResult:
      break;
  }
  return ResultHeadline(progress);
}

// What the headline does not say already.
std::wstring ResultText(const ModuleProgress& progress) {
  if (progress.IsRepairIncomplete()) return Text(L"IDS_MANAGER_MODULE_REPAIR_LEFT");
  const bool isOver = progress.Phase() == ModulePhase::kResult ||
                      (progress.Phase() == ModulePhase::kStopped && progress.CheckedCount() != 0);
  const std::wstring& text = progress.Summary().resultText;
  return isOver && text != Headline(progress) ? text : L"";
}

const wchar_t* DotColour(DisplayState state) {
  switch (state) {
    case DisplayState::Normal:
      return L"normal";
    case DisplayState::Abnormal:
      return L"abnormal";
    case DisplayState::Running:
      return L"accent";
    case DisplayState::Waiting:
      break;
  }
  return L"faint";
}

void ShowCategory(CContainerUI& chip, const DetectListEntry& entry) {
  CControlUI& icon = FindIn(chip, L"ctlManagerCategoryIcon");
  icon.SetImage(entry.icon);
  icon.SetToolTip(entry.caption);
  FindIn(chip, L"ctlManagerCategoryState")
      .SetBackground(DuiLib::Colour::Named(DotColour(entry.state)));
}

}  // namespace

ModuleCard::ModuleCard(CContainerUI& into, const protocol::ModuleDescriptor& descriptor,
                       const ModuleCardHooks& hooks)
    : tree(*BuildLayout(L"layout\\manager_module.xml", into.GetManager(), &into)) {
  Find(L"ctlManagerModuleIcon").SetImage(descriptor.mainIcon);
  SetText(L"txtManagerModuleTitle", Text(descriptor.title.c_str()));
  OnClick(L"btnManagerCheck", hooks.check);
  OnClick(L"btnManagerCheckAgain", hooks.check);
  OnClick(L"btnManagerRepair", hooks.repair);
  OnClick(L"btnManagerStop", hooks.stop);
  OnClick(L"btnManagerDetails", hooks.details);
}

template <typename Class>
Class& ModuleCard::Find(const wchar_t* name) const {
  return FindIn<Class>(tree, name);
}

void ModuleCard::OnClick(const wchar_t* button, std::function<void()> hook) {
  Find(button).SetNotifyHook([hook = std::move(hook)](DuiLib::TNotifyUI& notification) {
    if (notification.type == DuiLib::kNotifyClick) hook();
    return true;
  });
}

void ModuleCard::SetText(const wchar_t* name, const std::wstring& text) {
  CControlUI& label = Find(name);
  label.SetText(text);
  label.SetVisible(!text.empty());
}

void ModuleCard::Show(const ModuleProgress& progress, bool hasPage) {
  SetText(L"txtManagerModuleHeadline", Headline(progress));
  Find<DuiLib::CLabelUI>(L"txtManagerModuleHeadline")
      .SetTextColour(DuiLib::Colour::Named(progress.Phase() == ModulePhase::kResult &&
                                                   progress.Summary().abnormalCount != 0
                                               ? L"abnormal"
                                               : L"soft"));
  SetText(L"txtManagerModuleResult", ResultText(progress));
  ShowButtons(progress, hasPage);
  ShowCategories(progress);
  ShowFindings(progress);
}

void ModuleCard::ShowButtons(const ModuleProgress& progress, bool hasPage) {
  const bool isFree = !progress.IsAtWork();
  const bool canRepair = isFree && !progress.Repairable().empty();
  const bool canStop =
      progress.Phase() == ModulePhase::kWaiting || progress.Phase() == ModulePhase::kChecking;
  Find(L"btnManagerCheck").SetVisible(isFree && !canRepair);
  Find(L"btnManagerCheckAgain").SetVisible(canRepair);
  Find(L"btnManagerRepair").SetVisible(canRepair);
  Find(L"btnManagerStop").SetVisible(canStop);
  Find(L"btnManagerStop").SetEnabled(!progress.IsStopping());
  CControlUI& details = Find(L"btnManagerDetails");
  details.SetText(progress.Summary().detailText);
  details.SetVisible(isFree && hasPage && !progress.Summary().detailText.empty());
}

void ModuleCard::ShowCategories(const ModuleProgress& progress) {
  auto& row = Find<CContainerUI>(L"lytManagerCategories");
  const auto& items = progress.Summary().items;
  while (row.GetCount() > items.size()) row.Remove(row.GetItemAt(row.GetCount() - 1));
  while (row.GetCount() < items.size())
    BuildLayout(L"layout\\manager_category.xml", row.GetManager(), &row);
  for (std::size_t index = 0; index < items.size(); ++index)
    ShowCategory(*static_cast<CContainerUI*>(row.GetItemAt(index)), items[index]);
  row.SetVisible(!items.empty());
}

void ModuleCard::ShowFindings(const ModuleProgress& progress) {
  auto& list = Find<CContainerUI>(L"lytManagerFindings");
  list.RemoveAll();
  const std::vector<DetectListEntry> abnormal = progress.Abnormal();
  const std::size_t shown = std::min(abnormal.size(), kMostFindings);
  for (std::size_t index = 0; index < shown; ++index) {
    CContainerUI& row = *BuildLayout(L"layout\\manager_finding.xml", list.GetManager(), &list);
    FindIn(row, L"txtManagerFindingName").SetText(abnormal[index].caption);
    CControlUI& hint = FindIn(row, L"txtManagerFindingHint");
    hint.SetText(abnormal[index].resultText);
    hint.SetToolTip(hint.GetPlainText());
  }
  list.SetVisible(shown != 0);
  SetText(L"txtManagerMore", abnormal.size() > shown
                                 ? Filled(L"IDS_MANAGER_MODULE_MORE", abnormal.size() - shown)
                                 : L"");
}

}  // namespace manager
