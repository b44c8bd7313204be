#include "platform/duilib/controls/label.h"

#include <algorithm>

#include "platform/duilib/tree/paint_manager.h"

namespace DuiLib {

const wchar_t* CLabelUI::GetClass() const {
  return L"Label";
}

CDuiString CLabelUI::GetPlainText() const {
  return marks ? WithoutMarks(GetText()) : GetText();
}

void CLabelUI::SetFont(int number) {
  font = number;
  TextRulesChanged();
}

void CLabelUI::SetTextColour(const Colour& colour) {
  Look look = GetStyle().looks[0];
  look.text = colour;
  SetLook(ControlState::kRest, false, look);
}

void CLabelUI::SetAlign(Place across, Place down) {
  alignAcross = across;
  alignDown = down;
  Invalidate();
}

void CLabelUI::SetMultiLine(bool value) {
  rules.multiLine = value;
  TextRulesChanged();
}

void CLabelUI::SetEndEllipsis(bool value) {
  rules.ellipsis = value;
  TextRulesChanged();
}

void CLabelUI::SetMarks(bool value) {
  marks = value;
  TextRulesChanged();
}

void CLabelUI::SetInset(const Insets& value) {
  inset = value;
  TextRulesChanged();
}

void CLabelUI::TextRulesChanged() {
  OnTextChanged();
  NeedLayout();
  Invalidate();
}

void CLabelUI::OnTextChanged() {
  runs.reset();
  layout.reset();
}

const std::vector<TextRun>& CLabelUI::GetRuns() const {
  if (!runs) runs = marks ? ParseMarks(GetText()) : std::vector{TextRun{GetText(), {}, {}, {}}};
  return *runs;
}

TextLayout CLabelUI::SetInto(TextRoom room) {
  CPaintManagerUI* const window = GetManager();
  SimpleTextMeasure simple;
  const auto fonts = [&](std::optional<int> number) {
    return window == nullptr ? Font() : window->GetTheme().FontOf(number.value_or(font));
  };
  return DuiLib::SetText(GetRuns(), room, rules, fonts,
                         window == nullptr ? simple : window->GetTextMeasure());
}

int CLabelUI::MeasureWidth() {
  const int width = GetText().empty() ? 0 : SetInto({}).size.width;
  return width + inset.Across();
}

int CLabelUI::MeasureHeight(int width) {
  return SetInto({std::max(0, width - inset.Across()), -1}).size.height + inset.Down();
}

const TextLayout& CLabelUI::GetTextLayout() {
  const TextRoom room{TextRoomRect().Width(), TextRoomRect().Height()};
  if (!layout || layoutRoom != room) {
    layout = SetInto(room);
    layoutRoom = room;
  }
  return *layout;
}

Point CLabelUI::GetTextOrigin() {
  const Size size = GetTextLayout().size;
  const Rect room = TextRoomRect();
  return {room.left + Before(alignAcross, room.Width(), size.width),
          room.top + Before(alignDown, room.Height(), size.height)};
}

std::size_t CLabelUI::GetLinkCount() {
  std::size_t count = 0;
  for (const TextRun& run : GetRuns()) count = std::max(count, run.link ? *run.link + 1 : 0);
  return count;
}

bool CLabelUI::FollowLink(std::size_t link) {
  if (link >= GetLinkCount() || !IsUsable()) return false;
  Notify(kNotifyLink, link);
  return true;
}

Point CLabelUI::GetLineOrigin(const TextLine& line) {
  const Point origin = GetTextOrigin();
  const int width = GetTextLayout().size.width;
  return {origin.x + Before(alignAcross, width, line.width), origin.y + line.top};
}

Rect CLabelUI::GetTextRect() {
  const Point origin = GetTextOrigin();
  const Size size = GetTextLayout().size;
  return {origin.x, origin.y, origin.x + size.width, origin.y + size.height};
}

std::optional<std::size_t> CLabelUI::LinkAt(Point point) {
  for (const TextLine& line : GetTextLayout().lines) {
    const Point corner = GetLineOrigin(line);
    for (const TextPiece& piece : line.pieces) {
      const int left = corner.x + piece.left;
      const Rect place{left, corner.y, left + piece.width, corner.y + line.height};
      if (piece.link && place.Contains(point)) return piece.link;
    }
  }
  return std::nullopt;
}

CDuiString CLabelUI::GetHint() {
  if (!GetToolTip().empty() || !GetTextLayout().isCut) return GetToolTip();
  return GetPlainText();
}

bool CLabelUI::IsFocusable() const {
  const std::vector<TextRun>& all = GetRuns();
  return std::any_of(all.begin(), all.end(),
                     [](const TextRun& run) { return run.link.has_value(); });
}

bool CLabelUI::Activate() {
  return FollowLink(0);
}

bool CLabelUI::OnClick(Point point) {
  const auto link = LinkAt(point);
  return link && FollowLink(*link);
}

bool CLabelUI::OnKey(Key key) {
  return (key == Key::kEnter || key == Key::kSpace) && Activate();
}

}  // namespace DuiLib
