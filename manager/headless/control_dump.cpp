#include "manager/headless/control_dump.h"

#include "platform/duilib/tree/container.h"

namespace manager {
namespace {

void WriteFlag(Json& json, const char* key, bool value) {
  json.Key(key);
  json.Bool(value);
}

void WriteNumber(Json& json, const char* key, int value) {
  json.Key(key);
  json.Int(value);
}

}  // namespace

void WriteTree(Json& json, DuiLib::CControlUI& control) {
  const DuiLib::Rect pos = control.GetPos();
  json.StartObject();
  WriteText(json, "class", std::wstring(control.GetClass()));
  WriteText(json, "name", control.GetName());
  WriteText(json, "text", control.GetPlainText());
  WriteFlag(json, "visible", control.IsShown());
  WriteFlag(json, "enabled", control.IsEnabled());
  WriteFlag(json, "selected", control.IsSelected());
  WriteNumber(json, "x", pos.left);
  WriteNumber(json, "y", pos.top);
  WriteNumber(json, "w", pos.Width());
  WriteNumber(json, "h", pos.Height());
  json.Key("children");
  json.StartArray();
  if (auto* const container = dynamic_cast<DuiLib::CContainerUI*>(&control))
    for (std::size_t index = 0; index < container->GetCount(); ++index)
      WriteTree(json, *container->GetItemAt(index));
  json.EndArray();
  json.EndObject();
}

}  // namespace manager
