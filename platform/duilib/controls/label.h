#pragma once

#include <optional>

#include "platform/duilib/rich_text/text_layout.h"
#include "platform/duilib/tree/control.h"

namespace DuiLib {

/// Text, with marks where they are not turned off; its links tell "link" with their number.
class DUILIB_API CLabelUI : public CControlUI {
 public:
  const wchar_t* GetClass() const override;
  CDuiString GetPlainText() const override;

  /// The number of its font in the theme.
  void SetFont(int number);
  int GetFont() const { return font; }
  void SetTextColour(const Colour& colour);
  /// Where the text stands in its room.
  void SetAlign(Place across, Place down);
  Place GetAlign() const { return alignAcross; }
  Place GetVAlign() const { return alignDown; }
  void SetMultiLine(bool value);
  void SetEndEllipsis(bool value);
  /// Whether braces in the text can be marks. Not where it is a name from outside.
  void SetMarks(bool value);
  /// Room between its sides and the text.
  void SetInset(const Insets& value);

  /// The text as it is set into the room that the control has.
  const TextLayout& GetTextLayout();
  /// Where the corner of that text stands in the window.
  Point GetTextOrigin();
  /// Where the corner of one of its lines stands.
  Point GetLineOrigin(const TextLine& line);
  /// The room that the set text takes.
  Rect GetTextRect();

  std::size_t GetLinkCount();
  /// Tells "link"; whether there is one of that number and the label can be used.
  bool FollowLink(std::size_t link);

  bool IsFocusable() const override;
  bool Activate() override;
  bool OnClick(Point point) override;
  bool IsLinkAt(Point point) override { return LinkAt(point).has_value(); }
  /// Its tooltip; the whole text where a part of it does not show.
  CDuiString GetHint() override;
  bool OnKey(Key key) override;

 protected:
  int MeasureWidth() override;
  int MeasureHeight(int width) override;
  void OnTextChanged() override;
  void OnManagerChanged() override { OnTextChanged(); }

 private:
  TextLayout SetInto(TextRoom room);
  const std::vector<TextRun>& GetRuns() const;
  void TextRulesChanged();
  Rect TextRoomRect() const { return GetPos().Without(inset); }
  std::optional<std::size_t> LinkAt(Point point);

  int font = 0;
  bool marks = true;
  TextRules rules;
  Place alignAcross = Place::kStart;
  Place alignDown = Place::kMiddle;
  Insets inset;
  mutable std::optional<std::vector<TextRun>> runs;
  std::optional<TextLayout> layout;
  TextRoom layoutRoom;
};

}  // namespace DuiLib
