#pragma once

#include <functional>

#include "platform/duilib/culture/culture.h"
#include "platform/os/export.h"

namespace DuiLib {

class CContainerUI;
class CControlUI;
class CPaintManagerUI;

/// Makes controls for elements that the library has no class for; null for those it does not know.
using BuilderCallback = std::function<CControlUI*(const CDuiString& element)>;

/// Builds control trees from layouts: one element for each control, one attribute for each
/// property. What is not understood (an element, an attribute, a value, a picture that is not
/// there) is one log line with file, line and column, and the rest is built. UI thread only.
class DUILIB_API CDialogBuilder {
 public:
  /// `source` is a file below the skin folder of the manager (of the installation without one), or
  /// a text that begins with '<'. The tree belongs to the caller, or to the parent if one is given.
  /// Null, and one log line, when the source cannot be read, is not XML or has more than 10,000
  /// elements.
  CControlUI* Create(const CDuiString& source, const BuilderCallback& callback = {},
                     CPaintManagerUI* manager = nullptr, CContainerUI* parent = nullptr);
};

}  // namespace DuiLib
