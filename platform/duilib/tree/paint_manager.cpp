#include "platform/duilib/tree/paint_manager.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "common/file.h"
#include "common/log.h"
#include "common/path_text.h"
#include "common/text.h"
#include "common/xml_document.h"
#include "platform/duilib/notify/contained_call.h"
#include "platform/duilib/tree/delivery.h"
#include "platform/duilib/tree/walk.h"
#include "platform/os/clock.h"
#include "platform/os/paths.h"

namespace DuiLib {
namespace {

void Warn(const std::string& line) {
  COMMON_LOG_WARN(log4cxx::Logger::getLogger("orv.duilib"), line);
}

}  // namespace

CPaintManagerUI::CPaintManagerUI() : skinFolder(os::InstallationFolder() / "res") {}

CPaintManagerUI::~CPaintManagerUI() {
  buried.clear();
  root.reset();
}

void CPaintManagerUI::SetRoot(CControlUI* control) {
  std::unique_ptr<CControlUI> before(std::exchange(root, std::unique_ptr<CControlUI>(control)));
  if (before) {
    before->SetManager(nullptr);
    Bury(std::move(before));
  }
  if (root) root->SetManager(this);
  layoutNeeded = true;
  damage.Add({0, 0, clientSize.width, clientSize.height});
}

CControlUI* CPaintManagerUI::FindControl(const CDuiString& name) const {
  return FindControl(root.get(), name);
}

CControlUI* CPaintManagerUI::FindControl(CControlUI* below, const CDuiString& name) {
  return below == nullptr ? nullptr : FindInTree(*below, [&](const CControlUI& control) {
    return control.GetName() == name;
  });
}

void CPaintManagerUI::SendNotify(CControlUI& sender, const CDuiString& type, std::size_t value) {
  const Delivery delivery(this);
  TNotifyUI notification{type, sender.GetVirtualWnd(), &sender, value};
  if (TellHook(sender.notifyHook, notification)) return;
  if (pump != nullptr) pump->Notify(notification);
}

void CPaintManagerUI::SetTimer(CControlUI* control, std::size_t id, int milliseconds) {
  StartTimer(control, id, milliseconds, false, false);
}

void CPaintManagerUI::SetOwnTimer(CControlUI* control, std::size_t id, int milliseconds,
                                  bool idle) {
  StartTimer(control, id, milliseconds, true, idle);
}

void CPaintManagerUI::StartTimer(CControlUI* control, std::size_t id, int milliseconds, bool own,
                                 bool idle) {
  if (control == nullptr || control->GetManager() != this) return;
  StopTimer(control, id, own);
  const std::chrono::nanoseconds period = std::chrono::milliseconds(std::max(milliseconds, 1));
  timers.push_back(
      {control, id, own, idle, nextSerial++, period, os::CurrentClock().Now() + period});
}

void CPaintManagerUI::KillTimer(const CControlUI* control, std::size_t id) {
  StopTimer(control, id, false);
}

void CPaintManagerUI::KillOwnTimer(const CControlUI* control, std::size_t id) {
  StopTimer(control, id, true);
}

bool CPaintManagerUI::HasOwnTimer(const CControlUI* control, std::size_t id) const {
  return std::any_of(timers.begin(), timers.end(), [&](const Timer& timer) {
    return timer.control == control && timer.id == id && timer.own;
  });
}

void CPaintManagerUI::KillTimer(const CControlUI* control) {
  std::erase_if(timers, [&](const Timer& timer) { return timer.control == control && !timer.own; });
}

void CPaintManagerUI::StopTimer(const CControlUI* control, std::size_t id, bool own) {
  std::erase_if(timers, [&](const Timer& timer) {
    return timer.control == control && timer.id == id && timer.own == own;
  });
}

std::optional<std::chrono::nanoseconds> CPaintManagerUI::NextDue(bool withIdle) const {
  std::optional<std::chrono::nanoseconds> next;
  for (const Timer& timer : timers) {
    if (timer.idle && !withIdle) continue;
    next = next ? std::min(*next, timer.due) : timer.due;
  }
  return next;
}

std::size_t CPaintManagerUI::RunDueTimers() {
  const Delivery delivery(this);
  const std::chrono::nanoseconds now = os::CurrentClock().Now();
  std::vector<std::pair<std::chrono::nanoseconds, std::uint64_t>> due;
  for (const Timer& timer : timers) {
    if (timer.due <= now) due.emplace_back(timer.due, timer.serial);
  }
  std::sort(due.begin(), due.end());
  for (const auto& [time, serial] : due) RunTimer(serial, now);
  return due.size();
}

// One that ran before may have stopped it.
void CPaintManagerUI::RunTimer(std::uint64_t serial, std::chrono::nanoseconds now) {
  const auto found = std::find_if(timers.begin(), timers.end(),
                                  [&](const Timer& timer) { return timer.serial == serial; });
  if (found == timers.end()) return;
  found->due += found->period;
  if (found->due <= now) found->due = now + found->period;
  const Timer timer = *found;
  if (timer.own) return timer.control->OnOwnTimer(timer.id);
  SendNotify(*timer.control, kNotifyTimer, timer.id);
}

void CPaintManagerUI::SetClientSize(Size value) {
  if (clientSize == value) return;
  clientSize = value;
  layoutNeeded = true;
  damage.Add({0, 0, value.width, value.height});
}

void CPaintManagerUI::LayOut(bool outOfSight) {
  if (!root || (!layoutNeeded && !outOfSight)) return;
  if (outOfSight) {
    ForEachInTree(*root, [](CControlUI& control) {
      if (dynamic_cast<CContainerUI*>(&control) != nullptr) control.needsLayout = true;
    });
  }
  layoutNeeded = false;
  laysOutAll = outOfSight;
  root->SetPos({0, 0, clientSize.width, clientSize.height});
  laysOutAll = false;
}

void CPaintManagerUI::Invalidate(const CControlUI& control) {
  Rect seen = control.GetPos().Meeting({0, 0, clientSize.width, clientSize.height});
  for (auto parent = control.GetParent(); parent != nullptr; parent = parent->GetParent()) {
    seen = seen.Meeting(parent->GetPos());
  }
  if (seen.IsEmpty()) return;
  damage.Add(seen.GrownBy(GetPaintReach()).Meeting({0, 0, clientSize.width, clientSize.height}));
}

int CPaintManagerUI::GetPaintReach() const {
  return focus != nullptr && showsFocus ? std::max(shadowReach, kFocusRing) : shadowReach;
}

void CPaintManagerUI::NeedReach(int shadow) {
  shadowReach = std::max(shadowReach, shadow + shadow / 4);
}

std::filesystem::path CPaintManagerUI::GetSkinFile(const CDuiString& name) const {
  return skinFolder / common::BackslashPath(common::WideToUtf8(name));
}

void CPaintManagerUI::LoadTheme(const CDuiString& name) {
  const auto file = GetSkinFile(name);
  try {
    theme.Read(common::ReadFile(file, common::kMaxXmlSize), common::PathText(file));
  } catch (const std::runtime_error& error) {
    Warn(error.what());
  }
  SetTextMeasure(measure == &simpleMeasure ? nullptr : measure);
}

void CPaintManagerUI::SetBrightness(Theme::Brightness value) {
  theme.SetBrightness(value);
  damage.Add({0, 0, clientSize.width, clientSize.height});
}

void CPaintManagerUI::CheckImage(const Image& image, const std::string& place) {
  if (image.file.empty()) return;
  std::error_code ignored;
  if (std::filesystem::exists(GetSkinFile(image.file), ignored)) return;
  if (!missingImages.insert(image.file).second) return;
  Warn(place + "there is no picture " + common::PathText(GetSkinFile(image.file)));
}

void CPaintManagerUI::SetTextMeasure(TextMeasure* value) {
  measure = value == nullptr ? &simpleMeasure : value;
  if (!root) return;
  ForEachInTree(*root, [](CControlUI& control) {
    control.OnTextChanged();
    control.needsLayout = true;
    control.wishedWidth.reset();
    control.wishedHeight.reset();
  });
  layoutNeeded = true;
  damage.Add({0, 0, clientSize.width, clientSize.height});
}

void CPaintManagerUI::SetScale(double value) {
  scale = value;
  damage.Add({0, 0, clientSize.width, clientSize.height});
}

void CPaintManagerUI::TakeLookOf(CPaintManagerUI& other) {
  theme = other.theme;
  SetScale(other.scale);
  SetTextMeasure(other.measure == &other.simpleMeasure ? nullptr : other.measure);
}

void CPaintManagerUI::Forget(const CControlUI& control) {
  if (focus == &control) focus = nullptr;
  if (hovered == &control) hovered = nullptr;
  if (pressed == &control) {
    pressed = nullptr;
    drags = false;
  }
  std::erase_if(timers, [&](const Timer& timer) { return timer.control == &control; });
}

void CPaintManagerUI::Bury(std::unique_ptr<CControlUI> control) {
  if (deliveries > 0) buried.push_back(std::move(control));
}

}  // namespace DuiLib
