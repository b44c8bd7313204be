#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/text.h"
#include "platform/duilib/builder/dialog_builder.h"
#include "platform/duilib/window/headless_window.h"
#include "tests/support/fake_clock.h"
#include "tests/support/test_log.h"

namespace DuiLib {

inline void PrintTo(const Rect& rect, std::ostream* out) {
  *out << rect.left << "," << rect.top << "," << rect.right << "," << rect.bottom;
}

/// Keeps every notification as "type sender value".
class RecordingPump final : public CNotifyPump {
 public:
  RecordingPump() = default;

  std::vector<std::string> Take() { return std::exchange(heard, {}); }
  std::function<void(TNotifyUI&)> whenHeard;

 protected:
  const NotifyMap* GetMessageMap() const override {
    static const NotifyMapRow rows[] = {
        OnNotify(kNotifyClick, L"", &RecordingPump::Hear),
        OnNotify(kNotifyTimer, L"", &RecordingPump::Hear),
        OnNotify(kNotifyTabSelectIn, L"", &RecordingPump::Hear),
        OnNotify(kNotifySelectChanged, L"", &RecordingPump::Hear),
        OnNotify(kNotifyLink, L"", &RecordingPump::Hear),
        OnNotify(kNotifyItemActivate, L"", &RecordingPump::Hear),
        OnNotify(kNotifyItemSelect, L"", &RecordingPump::Hear),
        OnNotify(kNotifyWindowInit, L"", &RecordingPump::Hear),
        {},
    };
    static const NotifyMap map{nullptr, rows};
    return &map;
  }

 private:
  void Hear(TNotifyUI& notification) {
    heard.push_back(common::WideToUtf8(notification.type + L" " + notification.sender->GetName() +
                                       L" " + std::to_wstring(notification.value)));
    if (whenHeard) whenHeard(notification);
  }

  std::vector<std::string> heard;
};

/// A window of 400 by 300 without a screen, on a clock that jumps.
class UiTest : public testing::Test {
 protected:
  UiTest() {
    UICulture::GetInstance()->SetLanguage("ids", {});
    TestLog::Instance().Take();
    window.Manager().SetNotifyPump(&pump);
  }

  void Open(const std::wstring& layout) {
    window.Open(CDialogBuilder().Create(layout, {}, &window.Manager()));
    ASSERT_NE(window.Manager().GetRoot(), nullptr);
    pump.Take();
  }
  template <typename Class>
  Class& Get(const std::wstring& name) {
    auto* const control = dynamic_cast<Class*>(window.Manager().FindControl(name));
    if (control == nullptr) throw std::runtime_error("no such control");
    return *control;
  }

  FakeClock clock;
  RecordingPump pump;
  HeadlessWindow window{Size{400, 300}};
};

using Heard = std::vector<std::string>;

}  // namespace DuiLib
