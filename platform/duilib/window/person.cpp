#include "platform/duilib/window/person.h"

#include <string>
#include <string_view>

#include "common/text.h"
#include "platform/duilib/builder/number.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/option.h"
#include "platform/duilib/tree/walk.h"

namespace DuiLib {
namespace {

[[noreturn]] void Fail(const CDuiString& name, const std::string& reason) {
  throw CannotUse(common::WideToUtf8(name) + ": " + reason);
}

struct Step {
  std::wstring_view name;
  int number = 0;
};

Step ParseStep(std::wstring_view text) {
  const auto opening = text.find(L'[');
  if (opening == std::wstring_view::npos || !text.ends_with(L']')) return {text, 0};
  const auto number = ParseNumber(text.substr(opening + 1, text.size() - opening - 2));
  return number ? Step{text.substr(0, opening), *number} : Step{text, 0};
}

CControlUI* FindStep(CControlUI& below, Step step) {
  return FindInTree(below, [&](const CControlUI& control) {
    return control.GetName() == step.name && step.number-- == 0;
  });
}

}  // namespace

CControlUI& Person::Find(const CDuiString& name) const {
  CControlUI* found = window.GetRoot();
  std::wstring_view rest = name;
  while (found != nullptr) {
    const auto slash = rest.find(L'/');
    found = FindStep(*found, ParseStep(rest.substr(0, slash)));
    if (slash == std::wstring_view::npos) break;
    rest.remove_prefix(slash + 1);
  }
  if (found == nullptr) Fail(name, "there is no such control");
  return *found;
}

CControlUI& Person::FindUsable(const CDuiString& name) const {
  CControlUI& control = Find(name);
  if (!control.IsShown()) Fail(name, "the control is hidden");
  if (!control.IsUsable()) Fail(name, "the control is disabled");
  return control;
}

Rect Person::Position(const CDuiString& name) {
  window.LayOut();
  return Find(name).GetPos();
}

void Person::Click(const CDuiString& name) {
  CControlUI& control = FindUsable(name);
  for (CControlUI* shown = &control; shown->GetParent() != nullptr; shown = shown->GetParent()) {
    shown->GetParent()->BringIntoSight(*shown);
  }
  window.LayOut();
  const Point point = control.GetPos().Middle();
  if (control.GetPos().IsEmpty()) Fail(name, "the control has no room");
  window.OnMouseDown(point);
  window.OnMouseUp(point);
}

void Person::Select(const CDuiString& name, bool on) {
  auto* const option = dynamic_cast<COptionUI*>(&FindUsable(name));
  if (option == nullptr) Fail(name, "the control cannot be selected");
  if (option->IsSelected() == on) return;
  if (!on && !option->GetGroup().empty()) Fail(name, "the chosen one of a group stays chosen");
  option->Activate();
}

void Person::Activate(const CDuiString& name) {
  if (!FindUsable(name).Activate()) Fail(name, "the control does nothing");
}

void Person::Link(const CDuiString& name, std::size_t number) {
  auto* const label = dynamic_cast<CLabelUI*>(&FindUsable(name));
  if (label == nullptr || !label->FollowLink(number)) Fail(name, "the control has no such link");
}

}  // namespace DuiLib
