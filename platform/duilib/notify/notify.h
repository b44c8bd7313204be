#pragma once

#include <cstddef>

#include "platform/duilib/culture/culture.h"

namespace DuiLib {

class CControlUI;

// The types of notifications.
inline constexpr const wchar_t* kNotifyClick = L"click";
inline constexpr const wchar_t* kNotifyTimer = L"timer";
inline constexpr const wchar_t* kNotifyTabSelectIn = L"tabselectin";
inline constexpr const wchar_t* kNotifySelectChanged = L"selectchanged";
inline constexpr const wchar_t* kNotifyLink = L"link";
inline constexpr const wchar_t* kNotifyItemActivate = L"itemactivate";
inline constexpr const wchar_t* kNotifyItemSelect = L"itemselect";
inline constexpr const wchar_t* kNotifyWindowInit = L"windowinit";

/// What a control tells the pump of its window.
struct TNotifyUI {
  CDuiString type;
  CDuiString virtualWindow;  // that of the sender's page; empty outside of pages
  CControlUI* sender = nullptr;
  std::size_t value = 0;  // a timer's id, the index of a tab, a list's row or a link
};

}  // namespace DuiLib
