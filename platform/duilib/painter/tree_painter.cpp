#include "platform/duilib/painter/tree_painter.h"

#include "platform/duilib/controls/frame_animation.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/list.h"

namespace DuiLib {
namespace {

class TreePainter {
 public:
  TreePainter(CPaintManagerUI& ofWindow, Surface& on, const Rect& within)
      : window(ofWindow), surface(on), clip(within) {}

  void Paint(CControlUI& control) {
    if (!control.IsVisible() || control.IsHiddenByTab()) return;
    const Rect seen = control.GetPos().GrownBy(window.GetPaintReach()).Meeting(clip);
    if (seen.IsEmpty()) return;
    const Look look = control.GetLook();
    PaintBox(control, look);
    PaintPicture(control, look);
    if (auto* const label = dynamic_cast<CLabelUI*>(&control)) PaintText(*label, look);
    if (auto* const container = dynamic_cast<CContainerUI*>(&control)) PaintContent(*container);
    if (auto* const list = dynamic_cast<CListUI*>(&control)) PaintScrollBar(*list);
    if (control.IsFocused() && window.ShowsFocus()) PaintFocus(control);
  }

 private:
  std::uint32_t ColourOf(const std::optional<Colour>& colour, const wchar_t* otherwise) const {
    return window.ArgbOf(colour ? *colour : Colour::Named(otherwise));
  }

  void PaintBox(const CControlUI& control, const Look& look) {
    const Style& style = control.GetStyle();
    const Box box{control.GetPos(), style.radius};
    if (box.rect.IsEmpty()) return;
    if (style.shadow > 0) {
      const Box below{box.rect.MovedBy(0, style.shadow / 4), box.radius};
      surface.DrawShadow(below, style.shadow, window.ArgbOf(Colour::Named(L"shadow")));
    }
    if (look.background) {
      Fill fill{window.ArgbOf(*look.background), std::nullopt};
      if (look.gradientEnd) fill.endArgb = window.ArgbOf(*look.gradientEnd);
      surface.FillBox(box, fill);
    }
    if (look.border && style.borderWidth > 0) {
      surface.DrawBorder(box, style.borderWidth, window.ArgbOf(*look.border));
    }
  }

  void PaintPicture(const CControlUI& control, const Look& look) {
    const auto* const animation = dynamic_cast<const CFrameAnimationUI*>(&control);
    Image image = animation == nullptr ? Image() : animation->GetFrame();
    if (image.file.empty() && look.image) image = *look.image;
    if (image.file.empty() || control.GetPos().IsEmpty()) return;
    std::optional<std::uint32_t> tint;
    if (look.tint) tint = window.ArgbOf(*look.tint);
    surface.DrawPicture(window.GetSkinFile(image.file), control.GetPos(), tint);
  }

  void PaintText(CLabelUI& label, const Look& look) {
    if (label.GetText().empty()) return;
    const TextLayout& set = label.GetTextLayout();
    const bool sticksOut = !label.GetPos().Holds(label.GetTextRect());
    if (sticksOut) surface.PushClip(label.GetPos());
    for (const TextLine& line : set.lines) {
      const Point corner = label.GetLineOrigin(line);
      for (const TextPiece& piece : line.pieces) {
        const std::uint32_t own =
            piece.link ? window.ArgbOf(Colour::Named(L"link")) : ColourOf(look.text, L"ink");
        surface.DrawText(piece.text, piece.font, piece.colour ? window.ArgbOf(*piece.colour) : own,
                         {corner.x + piece.left, corner.y + line.baseline});
      }
    }
    if (sticksOut) surface.PopClip();
  }

  void PaintContent(CContainerUI& container) {
    bool sticksOut = false;
    for (std::size_t index = 0; index < container.GetCount() && !sticksOut; ++index) {
      const CControlUI& child = *container.GetItemAt(index);
      sticksOut =
          child.IsVisible() && !child.IsHiddenByTab() && !container.GetPos().Holds(child.GetPos());
    }
    const Rect before = clip;
    if (sticksOut) {
      clip = clip.Meeting(container.GetPos());
      surface.PushClip(container.GetPos());
    }
    if (!clip.IsEmpty()) {
      for (std::size_t index = 0; index < container.GetCount(); ++index) {
        Paint(*container.GetItemAt(index));
      }
    }
    if (sticksOut) surface.PopClip();
    clip = before;
  }

  void PaintScrollBar(CListUI& list) {
    const Rect thumb = list.GetScrollThumb();
    if (thumb.IsEmpty()) return;
    surface.FillBox({thumb, thumb.Width() / 2},
                    {window.ArgbOf(Colour::Named(L"scroll-bar")), std::nullopt});
  }

  void PaintFocus(const CControlUI& control) {
    const Size size = window.GetClientSize();
    const Rect ring = control.GetPos().GrownBy(kFocusRing).Meeting({0, 0, size.width, size.height});
    if (ring.IsEmpty()) return;
    surface.DrawBorder({ring, control.GetStyle().radius + kFocusRing}, kFocusRing,
                       window.ArgbOf(Colour::Named(L"focus-ring")));
  }

  CPaintManagerUI& window;
  Surface& surface;
  Rect clip;
};

}  // namespace

void PaintTree(CPaintManagerUI& window, Surface& surface, const Rect& clip) {
  window.LayOut();
  if (clip.IsEmpty() || window.GetRoot() == nullptr) return;
  surface.PushClip(clip);
  TreePainter(window, surface, clip).Paint(*window.GetRoot());
  surface.PopClip();
}

void PaintWindow(CPaintManagerUI& window, Surface& surface, const Rect& clip) {
  const Size size = window.GetClientSize();
  const Rect seen = clip.Meeting({0, 0, size.width, size.height});
  if (seen.IsEmpty()) return;
  surface.FillBox({seen, 0}, {window.ArgbOf(Colour::Named(L"window")), std::nullopt});
  PaintTree(window, surface, seen);
}

}  // namespace DuiLib
