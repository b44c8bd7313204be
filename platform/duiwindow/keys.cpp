#include "platform/duiwindow/keys.h"

#include <wx/defs.h>

namespace duiwindow {
namespace {

using DuiLib::Key;

struct Row {
  int code;
  int padCode;
  Key key;
};

constexpr Row kKeys[] = {
    {WXK_RETURN, WXK_NUMPAD_ENTER, Key::kEnter},
    {WXK_SPACE, WXK_NUMPAD_SPACE, Key::kSpace},
    {WXK_ESCAPE, WXK_ESCAPE, Key::kEscape},
    {WXK_UP, WXK_NUMPAD_UP, Key::kUp},
    {WXK_DOWN, WXK_NUMPAD_DOWN, Key::kDown},
    {WXK_LEFT, WXK_NUMPAD_LEFT, Key::kLeft},
    {WXK_RIGHT, WXK_NUMPAD_RIGHT, Key::kRight},
    {WXK_PAGEUP, WXK_NUMPAD_PAGEUP, Key::kPageUp},
    {WXK_PAGEDOWN, WXK_NUMPAD_PAGEDOWN, Key::kPageDown},
    {WXK_HOME, WXK_NUMPAD_HOME, Key::kHome},
    {WXK_END, WXK_NUMPAD_END, Key::kEnd},
};

}  // namespace

std::optional<Key> KeyOf(const wxKeyEvent& event) {
  if ((event.GetModifiers() & ~wxMOD_SHIFT) != 0) return std::nullopt;
  const int code = event.GetKeyCode();
  if (code == WXK_TAB || code == WXK_NUMPAD_TAB)
    return event.ShiftDown() ? Key::kBackTab : Key::kTab;
  for (const Row& row : kKeys) {
    if (row.code == code || row.padCode == code) return row.key;
  }
  return std::nullopt;
}

}  // namespace duiwindow
