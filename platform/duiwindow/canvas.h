#pragma once

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/window.h>

#include <functional>

#include "platform/duilib/tree/paint_manager.h"

namespace duiwindow {

/// Shows the content of a CPaintManagerUI and gives it pointer and keys. What was painted is kept:
/// of the content only what has changed is painted anew.
class Canvas final : public wxWindow {
 public:
  /// The content lives until Detach or the canvas goes.
  Canvas(wxWindow& parent, DuiLib::CPaintManagerUI& shown);
  ~Canvas() override;

  /// From here on the content is not used any more.
  void Detach();
  DuiLib::CPaintManagerUI* GetContent() const { return content; }

  /// Has what is damaged painted.
  void ShowDamage();
  /// Whether a person may see it.
  bool IsSeen() const;
  /// Dims it: another window in front takes the input.
  void SetVeiled(bool value);

  DuiLib::Point ToPoints(wxPoint place) const;

  /// Where a press of the pointer drags the whole window, as a point of the content; nowhere if
  /// none is set.
  std::function<bool(DuiLib::Point)> dragsAt;

 private:
  void BindInput();
  void OnSize(wxSizeEvent& event);
  void OnPaint(wxPaintEvent& event);
  void OnKey(wxKeyEvent& event);
  void OnPointer(wxMouseEvent& event);
  void OnPress(DuiLib::Point point);
  void OnWheel(wxMouseEvent& event);
  void TellPointer(DuiLib::Point point);

  void FollowDisplay();
  void PaintStale();
  wxRect PixelsOf(const DuiLib::Rect& rect) const;

  DuiLib::CPaintManagerUI* content;
  double dotsPerPoint = 0;
  wxSize dots;
  wxBitmap painted;
  wxMemoryDC paintedDc;
  DuiLib::Damage stale;  // of what was painted, in points
  bool veiled = false;
  int wheelRest = 0;
  bool showsHand = false;
  DuiLib::CDuiString hint;
};

}  // namespace duiwindow
