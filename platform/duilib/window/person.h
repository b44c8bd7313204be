#pragma once

#include <stdexcept>

#include "platform/duilib/tree/paint_manager.h"

namespace DuiLib {

/// A control that a person looks for is not there or cannot be used.
class DUILIB_API CannotUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a person does in a window, by the names of controls. A name may carry the number of the
/// control among those of that name ("optChoose[2]", counted from 0 in tree order), and names
/// before slashes narrow where it is looked for ("lstItems/txtName[3]"). Everything but looking
/// throws CannotUse for a control that is hidden or disabled. UI thread only.
class DUILIB_API Person {
 public:
  explicit Person(CPaintManagerUI& inWindow) : window(inWindow) {}

  /// Throws CannotUse when there is none.
  CControlUI& Find(const CDuiString& name) const;
  CDuiString Text(const CDuiString& name) const { return Find(name).GetPlainText(); }
  /// Where the control stands now.
  Rect Position(const CDuiString& name);

  /// With the pointer in its middle, scrolled into sight first; what covers it gets the click.
  void Click(const CDuiString& name);
  void Select(const CDuiString& name, bool on);
  void Activate(const CDuiString& name);
  void Link(const CDuiString& name, std::size_t number = 0);
  /// Whether something took the key.
  bool Press(Key key) { return window.OnKey(key); }

 private:
  CControlUI& FindUsable(const CDuiString& name) const;

  CPaintManagerUI& window;
};

}  // namespace DuiLib
