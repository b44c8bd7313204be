#include "platform/duilib/builder/attributes.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/duilib/builder/number.h"
#include "platform/duilib/builder/values.h"
#include "platform/duilib/controls/frame_animation.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/list.h"
#include "platform/duilib/controls/list_container_element.h"
#include "platform/duilib/controls/option.h"
#include "platform/duilib/layout/horizontal_layout.h"
#include "platform/duilib/layout/tab_layout.h"
#include "platform/duilib/layout/tile_layout.h"
#include "platform/duilib/layout/vertical_layout.h"

namespace DuiLib {
namespace {

struct AttributeRow {
  std::wstring_view name;
  bool (*set)(CControlUI& control, std::wstring_view value);  // false for a malformed value
};

// Parse the value, hand it to the setter of the class.
template <typename Class, auto Parse, auto Setter>
bool Set(CControlUI& control, std::wstring_view value) {
  const auto parsed = Parse(value);
  if (parsed) (static_cast<Class&>(control).*Setter)(*parsed);
  return parsed.has_value();
}

template <typename Class, auto Setter>
bool SetWords(CControlUI& control, std::wstring_view value) {
  (static_cast<Class&>(control).*Setter)(CDuiString(value));
  return true;
}

// "<across>,<down>".
template <typename Class, auto Setter>
bool SetPlaces(CControlUI& control, std::wstring_view value) {
  const auto comma = value.find(L',');
  if (comma == std::wstring_view::npos) return false;
  const auto across = ParsePlace(value.substr(0, comma));
  const auto down = ParsePlace(value.substr(comma + 1));
  if (!across || !down) return false;
  (static_cast<Class&>(control).*Setter)(*across, *down);
  return true;
}

bool SetBorderWidth(CControlUI& control, std::wstring_view value) {
  const auto points = ParsePoints(value);
  if (points) control.SetBorder(*points, control.GetStyle().looks[0].border.value_or(Colour()));
  return points.has_value();
}

bool SetSelected(CControlUI& control, std::wstring_view value) {
  const auto selected = ParseBool(value);
  if (selected) static_cast<COptionUI&>(control).Selected(*selected, false);
  return selected.has_value();
}

constexpr AttributeRow kControlRows[] = {
    {L"name", SetWords<CControlUI, &CControlUI::SetName>},
    {L"text", SetWords<CControlUI, &CControlUI::SetText>},
    {L"tooltip", SetWords<CControlUI, &CControlUI::SetToolTip>},
    {L"user-data", SetWords<CControlUI, &CControlUI::SetUserData>},
    {L"width", Set<CControlUI, ParseLength, &CControlUI::SetWidth>},
    {L"height", Set<CControlUI, ParseLength, &CControlUI::SetHeight>},
    {L"least-width", Set<CControlUI, ParsePoints, &CControlUI::SetLeastWidth>},
    {L"least-height", Set<CControlUI, ParsePoints, &CControlUI::SetLeastHeight>},
    {L"padding", Set<CControlUI, ParseInsets, &CControlUI::SetPadding>},
    {L"border", SetBorderWidth},
    {L"radius", Set<CControlUI, ParsePoints, &CControlUI::SetRadius>},
    {L"shadow", Set<CControlUI, ParseShadow, &CControlUI::SetShadow>},
    {L"visible", Set<CControlUI, ParseBool, &CControlUI::SetVisible>},
    {L"enabled", Set<CControlUI, ParseBool, &CControlUI::SetEnabled>},
    {L"drag-handle", Set<CControlUI, ParseBool, &CControlUI::SetDragHandle>},
    {L"tab-stop", Set<CControlUI, ParseBool, &CControlUI::SetTabStop>},
};

constexpr AttributeRow kContainerRows[] = {
    {L"inset", Set<CContainerUI, ParseInsets, &CContainerUI::SetInset>},
    {L"child-padding", Set<CContainerUI, ParsePoints, &CContainerUI::SetChildPadding>},
    {L"child-align", SetPlaces<CContainerUI, &CContainerUI::SetChildAlign>},
};

constexpr AttributeRow kLabelRows[] = {
    {L"font", Set<CLabelUI, ParseNumber, &CLabelUI::SetFont>},
    {L"align", SetPlaces<CLabelUI, &CLabelUI::SetAlign>},
    {L"inset", Set<CLabelUI, ParseInsets, &CLabelUI::SetInset>},
    {L"multi-line", Set<CLabelUI, ParseBool, &CLabelUI::SetMultiLine>},
    {L"end-ellipsis", Set<CLabelUI, ParseBool, &CLabelUI::SetEndEllipsis>},
    {L"marks", Set<CLabelUI, ParseBool, &CLabelUI::SetMarks>},
};

constexpr AttributeRow kOptionRows[] = {
    {L"group", SetWords<COptionUI, &COptionUI::SetGroup>},
    {L"selected", SetSelected},
};

constexpr AttributeRow kListRows[] = {
    {L"line-step", Set<CListUI, ParsePoints, &CListUI::SetLineStep>},
};

constexpr AttributeRow kTileRows[] = {
    {L"columns", Set<CTileLayoutUI, ParseColumns, &CTileLayoutUI::SetColumns>},
};

constexpr AttributeRow kAnimationRows[] = {
    {L"frames", SetWords<CFrameAnimationUI, &CFrameAnimationUI::SetFrames>},
};

// A property of a look; its attribute has the prefix of a state before its name.
struct LookRow {
  std::wstring_view name;
  bool (*set)(Look& look, std::wstring_view value);
};

template <auto Field, auto Parse>
bool SetField(Look& look, std::wstring_view value) {
  const auto parsed = Parse(value);
  if (parsed) look.*Field = *parsed;
  return parsed.has_value();
}

// "<colour>,<colour>": from left to right.
bool SetGradientOf(Look& look, std::wstring_view value) {
  const auto comma = value.find(L',');
  if (comma == std::wstring_view::npos) return false;
  const auto from = Colour::Parse(value.substr(0, comma));
  const auto to = Colour::Parse(value.substr(comma + 1));
  if (!from || !to) return false;
  look.background = from;
  look.gradientEnd = to;
  return true;
}

constexpr LookRow kLookRows[] = {
    {L"background", SetField<&Look::background, Colour::Parse>},
    {L"gradient", SetGradientOf},
    {L"image", SetField<&Look::image, Image::Parse>},
    {L"tint", SetField<&Look::tint, Colour::Parse>},
    {L"border-colour", SetField<&Look::border, Colour::Parse>},
    {L"text-colour", SetField<&Look::text, Colour::Parse>},
};

struct StateRow {
  std::wstring_view prefix;
  ControlState state;
};

constexpr StateRow kStateRows[] = {
    {L"focused-", ControlState::kFocused},
    {L"hovered-", ControlState::kHovered},
    {L"pressed-", ControlState::kPressed},
    {L"disabled-", ControlState::kDisabled},
};

bool TakePrefix(std::wstring_view& name, std::wstring_view prefix) {
  if (!name.starts_with(prefix)) return false;
  name.remove_prefix(prefix.size());
  return true;
}

AttributeResult SetLookAttribute(CControlUI& control, std::wstring_view name,
                                 std::wstring_view value) {
  const bool selected = TakePrefix(name, L"selected-");
  ControlState state = ControlState::kRest;
  for (const StateRow& row : kStateRows) {
    if (TakePrefix(name, row.prefix)) state = row.state;
  }
  const auto row = std::find_if(std::begin(kLookRows), std::end(kLookRows),
                                [&](const LookRow& known) { return known.name == name; });
  if (row == std::end(kLookRows)) return AttributeResult::kUnknown;
  const Style& style = control.GetStyle();
  const auto& looks = selected ? style.selectedLooks : style.looks;
  Look look = looks[static_cast<std::size_t>(state)];
  if (!row->set(look, value)) return AttributeResult::kMalformed;
  control.SetLook(state, selected, look);
  return AttributeResult::kSet;
}

template <std::size_t Count>
AttributeResult SetByTable(const AttributeRow (&rows)[Count], CControlUI& control,
                           std::wstring_view name, std::wstring_view value) {
  const auto row = std::find_if(std::begin(rows), std::end(rows),
                                [&](const AttributeRow& known) { return known.name == name; });
  if (row == std::end(rows)) return AttributeResult::kUnknown;
  return row->set(control, value) ? AttributeResult::kSet : AttributeResult::kMalformed;
}

template <typename Class, std::size_t Count>
AttributeResult SetByClass(const AttributeRow (&rows)[Count], CControlUI& control,
                           std::wstring_view name, std::wstring_view value) {
  if (dynamic_cast<Class*>(&control) == nullptr) return AttributeResult::kUnknown;
  return SetByTable(rows, control, name, value);
}

using SetByName = AttributeResult (*)(CControlUI&, std::wstring_view, std::wstring_view);

// From the derived classes to the base.
constexpr SetByName kTables[] = {
    [](CControlUI& control, std::wstring_view name, std::wstring_view value) {
      return SetByClass<COptionUI>(kOptionRows, control, name, value);
    },
    [](CControlUI& control, std::wstring_view name, std::wstring_view value) {
      return SetByClass<CLabelUI>(kLabelRows, control, name, value);
    },
    [](CControlUI& control, std::wstring_view name, std::wstring_view value) {
      return SetByClass<CListUI>(kListRows, control, name, value);
    },
    [](CControlUI& control, std::wstring_view name, std::wstring_view value) {
      return SetByClass<CTileLayoutUI>(kTileRows, control, name, value);
    },
    [](CControlUI& control, std::wstring_view name, std::wstring_view value) {
      return SetByClass<CFrameAnimationUI>(kAnimationRows, control, name, value);
    },
    [](CControlUI& control, std::wstring_view name, std::wstring_view value) {
      return SetByClass<CContainerUI>(kContainerRows, control, name, value);
    },
    [](CControlUI& control, std::wstring_view name, std::wstring_view value) {
      return SetByTable(kControlRows, control, name, value);
    },
    SetLookAttribute,
};

template <typename Class>
CControlUI* Make() {
  return new Class;
}

struct ClassRow {
  std::wstring_view name;
  CControlUI* (*make)();
};

constexpr ClassRow kClasses[] = {
    {L"Control", Make<CControlUI>},
    {L"Container", Make<CContainerUI>},
    {L"VerticalLayout", Make<CVerticalLayoutUI>},
    {L"HorizontalLayout", Make<CHorizontalLayoutUI>},
    {L"TabLayout", Make<CTabLayoutUI>},
    {L"TileLayout", Make<CTileLayoutUI>},
    {L"Label", Make<CLabelUI>},
    {L"Button", Make<CButtonUI>},
    {L"Option", Make<COptionUI>},
    {L"List", Make<CListUI>},
    {L"ListContainerElement", Make<CListContainerElementUI>},
    {L"FrameAnimation", Make<CFrameAnimationUI>},
};

}  // namespace

AttributeResult SetAttribute(CControlUI& control, std::wstring_view name, std::wstring_view value) {
  for (const SetByName set : kTables) {
    const AttributeResult result = set(control, name, value);
    if (result != AttributeResult::kUnknown) return result;
  }
  return AttributeResult::kUnknown;
}

CControlUI* MakeControl(std::wstring_view className) {
  for (const ClassRow& row : kClasses) {
    if (row.name == className) return row.make();
  }
  return nullptr;
}

}  // namespace DuiLib
