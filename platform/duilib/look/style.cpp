#include "platform/duilib/look/style.h"

namespace DuiLib {
namespace {

void Overlay(Look& look, const Look& over) {
  // A plain background is not drawn into the gradient of the look below it.
  if (over.background) look.gradientEnd = over.gradientEnd;
  if (over.background) look.background = over.background;
  if (over.gradientEnd) look.gradientEnd = over.gradientEnd;
  if (over.image) look.image = over.image;
  if (over.tint) look.tint = over.tint;
  if (over.border) look.border = over.border;
  if (over.text) look.text = over.text;
}

}  // namespace

Look Style::Of(ControlState state, bool selected) const {
  const auto index = static_cast<std::size_t>(state);
  Look look = looks[0];
  if (index != 0) Overlay(look, looks[index]);
  if (selected) Overlay(look, selectedLooks[0]);
  if (selected && index != 0) Overlay(look, selectedLooks[index]);
  return look;
}

}  // namespace DuiLib
