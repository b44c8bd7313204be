#pragma once

#include "platform/duilib/tree/container.h"

namespace DuiLib {

/// Rows below one another that scroll; only those in sight are laid out.
class DUILIB_API CListUI : public CContainerUI {
 public:
  const wchar_t* GetClass() const override;

  void AddAt(CControlUI* control, std::size_t index) override;
  void RemoveAll() override;

  /// Selects a row, shows it and tells its "itemselect", unless it was selected. Whether there is
  /// one of that number.
  bool SelectItem(std::size_t index);
  /// Null when no row is selected.
  CControlUI* GetSelectedItem() const { return GetItemAt(selected); }

  /// How far it is scrolled, in points from the top.
  int GetScrollPos();
  /// The largest scroll position.
  int GetScrollRange();
  /// Where its scroll bar stands; empty when nothing is out of sight.
  Rect GetScrollThumb();
  /// At once; kept between 0 and the range.
  void SetScrollPos(int position);
  /// In a few steps that become smaller.
  void ScrollSmoothlyTo(int position);
  void LineUp() { SetScrollPos(GetScrollPos() - lineStep); }
  void LineDown() { SetScrollPos(GetScrollPos() + lineStep); }
  /// How far a line is, in points.
  void SetLineStep(int points) { lineStep = Length::Number(points).value; }
  int GetLineStep() const { return lineStep; }
  /// Scrolls as little as shows a row whole, or its top if it is too high.
  void EnsureVisible(std::size_t index);

  bool IsFocusable() const override { return GetCount() != 0; }
  CControlUI* FindAt(Point point) override;
  bool OnPress(Point point) override;
  void OnDrag(Point point) override;
  bool OnKey(Key key) override;
  bool OnWheel(int steps) override;
  void OnOwnTimer(std::size_t id) override;
  void BringIntoSight(const CControlUI& control) override;

 protected:
  int MeasureHeight(int width) override;
  void Arrange() override;
  void OnRemoved(std::size_t index) override;

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  struct Track {
    Rect room;  // of the bar
    int thumbHeight = 0;
  };

  std::optional<Track> ScrollTrack();
  int ContentHeight(int width);
  void PlaceRow(CControlUI& row, const Rect& place, bool inAnyCase) const;
  void MoveTo(int position);
  void LayOutNow();
  std::size_t NextUsable(std::size_t from, bool forward) const;
  std::size_t Target(Key key) const;

  std::size_t selected = kNone;
  int scrollPos = 0;
  int scrollTarget = 0;
  int contentHeight = 0;
  int lineStep = 40;
  int grip = 0;  // of a dragged bar: how far below its top the pointer holds it
};

}  // namespace DuiLib
