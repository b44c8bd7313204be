#pragma once

#include <memory>
#include <vector>

#include "platform/duilib/tree/control.h"

namespace DuiLib {

/// A control with others in it, which it owns. This one lays them over one another, each in the
/// whole room.
class DUILIB_API CContainerUI : public CControlUI {
 public:
  CContainerUI();
  ~CContainerUI() override;
  const wchar_t* GetClass() const override;

  /// Takes a control that belongs to no container over; null is passed over.
  virtual void Add(CControlUI* control) { Insert(children.size(), control); }
  virtual void AddAt(CControlUI* control, std::size_t index) { Insert(index, control); }
  /// The control goes, once what is just being told to handlers has been told. Whether it was here.
  bool Remove(CControlUI* control);
  virtual void RemoveAll();

  std::size_t GetCount() const { return children.size(); }
  /// Null behind the last.
  CControlUI* GetItemAt(std::size_t index) const;
  /// The number of a control among the others; GetCount() when it is not here.
  std::size_t GetItemIndex(const CControlUI* control) const;

  /// Room at its inner sides.
  void SetInset(const Insets& value);
  /// Room between one control and the next.
  void SetChildPadding(int points);
  /// Where those stand that are smaller than their room.
  void SetChildAlign(Place across, Place down);
  Place GetChildAlign() const { return across; }
  Place GetChildVAlign() const { return down; }

  CControlUI* FindAt(Point point) override;
  /// One of its controls got the focus; scroll there if it is a list.
  virtual void BringIntoSight(const CControlUI&) {}

 protected:
  int MeasureWidth() override;
  int MeasureHeight(int width) override;
  void Arrange() override;
  void MoveBy(int x, int y) override;
  void SetManager(CPaintManagerUI* value) override;
  virtual void OnRemoved(std::size_t) {}

  /// Those that take room, in order.
  std::vector<CControlUI*> VisibleItems() const;
  /// How wide a control is in room, its padding not counted.
  static int WidthIn(CControlUI& control, int room);
  static int HeightIn(CControlUI& control, int width, int room);
  Rect InnerRect() const { return GetPos().Without(inset); }
  const Insets& GetInset() const { return inset; }
  int GetChildPadding() const { return childPadding; }

 private:
  void Insert(std::size_t index, CControlUI* control);
  void LetGo(std::unique_ptr<CControlUI> control);

  std::vector<std::unique_ptr<CControlUI>> children;
  Insets inset;
  int childPadding = 0;
  Place across = Place::kStart;
  Place down = Place::kStart;
};

}  // namespace DuiLib
