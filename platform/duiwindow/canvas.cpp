#include "platform/duiwindow/canvas.h"

#include <wx/dcclient.h>
#include <wx/graphics.h>
#include <wx/region.h>

#include <cmath>
#include <memory>
#include <vector>

#include "platform/duilib/notify/contained_call.h"
#include "platform/duilib/painter/tree_painter.h"
#include "platform/duiwindow/accessibility.h"
#include "platform/duiwindow/content_loop.h"
#include "platform/duiwindow/graphics_surface.h"

namespace duiwindow {
namespace {

using DuiLib::Colour;
using DuiLib::Rect;
using DuiLib::Size;

Rect Whole(const DuiLib::CPaintManagerUI& content) {
  const Size size = content.GetClientSize();
  return {0, 0, size.width, size.height};
}

}  // namespace

Canvas::Canvas(wxWindow& parent, DuiLib::CPaintManagerUI& shown) : content(&shown) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Create(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_NONE);
  content->SetTextMeasure(&ThePaints().texts);
  FollowDisplay();
  Bind(wxEVT_SIZE, &Canvas::OnSize, this);
  Bind(wxEVT_PAINT, &Canvas::OnPaint, this);
  BindInput();
  MakeAccessible(*this);
  ContentLoop::Instance().Add(*this);
}

Canvas::~Canvas() {
  Detach();
}

void Canvas::Detach() {
  if (content == nullptr) return;
  content = nullptr;
  ContentLoop::Instance().Remove(*this);
  if (HasCapture()) ReleaseMouse();
}

bool Canvas::IsSeen() const {
  return IsShownOnScreen();
}

DuiLib::Point Canvas::ToPoints(wxPoint place) const {
  const wxPoint point = ToDIP(place);
  return {point.x, point.y};
}

// Those of the whole window, whose size in points may be rounded, too.
wxRect Canvas::PixelsOf(const Rect& rect) const {
  constexpr int kUnits = 1000;
  const double pixels = static_cast<double>(FromDIP(kUnits)) / kUnits;
  const int left = static_cast<int>(std::floor(rect.left * pixels));
  const int top = static_cast<int>(std::floor(rect.top * pixels));
  return {left, top, static_cast<int>(std::ceil(rect.right * pixels)) - left,
          static_cast<int>(std::ceil(rect.bottom * pixels)) - top};
}

// The display may have changed, or the window its display.
void Canvas::FollowDisplay() {
  if (content == nullptr) return;
  const double scale = GetDPIScaleFactor();
  const wxSize room = ToPhys(GetClientSize());
  if (scale == dotsPerPoint && room == dots) return;
  if (scale != dotsPerPoint) content->SetScale(scale);
  dotsPerPoint = scale;
  dots = room;
  paintedDc.SelectObject(wxNullBitmap);
  painted = wxBitmap();
  // Points that show in part are part of the content.
  const auto points = [&](int count) { return static_cast<int>(std::ceil(count / scale)); };
  content->SetClientSize({points(dots.x), points(dots.y)});
}

void Canvas::OnSize(wxSizeEvent& event) {
  event.Skip();
  FollowDisplay();
  ContentLoop::Instance().Settle();
}

void Canvas::ShowDamage() {
  if (content == nullptr) return;
  for (const Rect& rect : content->TakeDamage()) {
    stale.Add(rect);
    RefreshRect(PixelsOf(rect), false);
  }
  ReportFocus(*this);
}

void Canvas::SetVeiled(bool value) {
  if (veiled == value || content == nullptr) return;
  veiled = value;
  stale.Add(Whole(*content));
  Refresh(false);
}

void Canvas::PaintStale() {
  FollowDisplay();
  if (dots.x <= 0 || dots.y <= 0) return;
  if (!painted.IsOk()) {
    painted.Create(dots);
    paintedDc.SelectObject(painted);
    stale.Add(Whole(*content));
  }
  const std::vector<Rect> rects = stale.Take();
  if (rects.empty()) return;
  const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(paintedDc));
  GraphicsSurface surface(*context, ThePaints(), dotsPerPoint, {});
  for (const Rect& rect : rects) {
    DuiLib::PaintWindow(*content, surface, rect);
    if (!veiled) continue;
    surface.FillBox({rect, 0}, {content->ArgbOf(Colour::Named(L"veil")), std::nullopt});
  }
}

void Canvas::OnPaint(wxPaintEvent&) {
  wxPaintDC dc(this);
  if (content != nullptr) DuiLib::CallContained([this] { PaintStale(); }, "the painting");
  if (!paintedDc.IsOk()) return;
  for (wxRegionIterator part(GetUpdateRegion()); part; ++part) {
    const wxRect rect = part.GetRect();
    const wxRect from(ToPhys(rect.GetPosition()), ToPhys(rect.GetSize()));
    dc.StretchBlit(rect.x, rect.y, rect.width, rect.height, &paintedDc, from.x, from.y, from.width,
                   from.height);
  }
}

}  // namespace duiwindow
