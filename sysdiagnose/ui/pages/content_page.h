#pragma once

#include <functional>
#include <utility>

#include "sysdiagnose/ui/page/page_type.h"
#include "sysdiagnose/ui/page/sysdiagnose_page.h"

namespace orv::sysdiagnose {

/// A page inside the host's tab layout. It asks the host to show another; it never does so itself.
class ContentPage : public SysdiagnosePage {
 public:
  using SwitchPageCallback = std::function<void(enumPageType)>;

  void SetSwitchPage(SwitchPageCallback callback) { switchPage = std::move(callback); }

 protected:
  using SysdiagnosePage::SysdiagnosePage;
  ~ContentPage() = default;

  void SwitchPage(enumPageType type) const {
    if (switchPage) switchPage(type);
  }

  /// Shows one of two bars that share a place. False, with nothing done, when one is missing.
  bool ShowBar(const wchar_t* shown, const wchar_t* hidden) const;

 private:
  SwitchPageCallback switchPage;
};

}  // namespace orv::sysdiagnose
