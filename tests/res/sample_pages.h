#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/duilib/tree/container.h"
#include "platform/duilib/window/headless_window.h"

using SamplePreparation = std::function<void(DuiLib::CPaintManagerUI&)>;

/// A layout of the installation in a window, and the means to fill it as its owner does.
class SampleWindow {
 public:
  /// `prepare` gives its manager text measure, scale and brightness.
  SampleWindow(DuiLib::Size size, const SamplePreparation& prepare);

  /// Opens a layout of res/layout; throws when it cannot be built.
  void Open(const std::wstring& layout);
  /// Makes the window as large as what it shows wishes to be.
  void FitToContent();
  /// The same without opening it, for rows and tabs.
  DuiLib::CContainerUI& Build(const std::wstring& layout);

  /// The first control of that name below another one, or in the window.
  DuiLib::CControlUI& Find(const std::wstring& name);
  static DuiLib::CControlUI& Find(DuiLib::CControlUI& below, const std::wstring& name);

  DuiLib::CPaintManagerUI& Manager() { return window.Manager(); }

 private:
  DuiLib::HeadlessWindow window;
};

/// A state of a page of the manager's window, with a window over it or none.
struct SampleState {
  std::string name;
  std::wstring page;                        // its layout
  std::function<void(SampleWindow&)> fill;  // the page
  std::wstring over;                        // the layout of the window over it, or empty
  std::function<void(SampleWindow&)> fillOver;
};

inline void PrintTo(const SampleState& state, std::ostream* out) {
  *out << state.name;
}

/// Every state that a person may see, in the order of a journey.
const std::vector<SampleState>& SampleStates();

/// The windows of a state, the one below first. The theme has been loaded.
std::vector<std::unique_ptr<SampleWindow>> ShowSample(const SampleState& state,
                                                      const SamplePreparation& prepare);
