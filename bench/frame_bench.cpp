// Frames of a page with many rows, each after scrolling by a line: painted as windows are, and by
// Cairo and Pango alone with layouts that are kept.

#include <pango/pangocairo.h>
#include <wx/graphics.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/duilib/builder/dialog_builder.h"
#include "platform/duilib/controls/list.h"
#include "platform/duilib/painter/tree_painter.h"
#include "platform/duiwindow/graphics_surface.h"

namespace {

using DuiLib::CDialogBuilder;
using DuiLib::Rect;

constexpr int kWidth = 1000;
constexpr int kHeight = 700;
constexpr int kRowHeight = 32;
constexpr int kFrames = 2000;

std::string NameOf(int row) {
  return "Serial number of part " + std::to_string(row);
}

std::string ValueOf(int row) {
  return "SAMPLE-" + std::to_string(100000 + row * 37) + ", of the first make";
}

// Of the processor: others use it too.
struct Times {
  double median = 0;
  double late = 0;  // the 99th percentile, in microseconds
};

// Down to the end of the page by lines, and up again.
Times Measure(int rows, const std::function<void(int top)>& paintFrame) {
  const int range = rows * kRowHeight - kHeight;
  std::vector<double> times;
  int top = 0;
  int step = kRowHeight;
  for (int frame = 0; frame < kFrames; ++frame) {
    if (top + step < 0 || top + step > range) step = -step;
    top += step;
    const std::clock_t began = std::clock();
    paintFrame(top);
    times.push_back(1e6 * static_cast<double>(std::clock() - began) / CLOCKS_PER_SEC);
  }
  std::sort(times.begin(), times.end());
  return {times[times.size() / 2], times[times.size() * 99 / 100]};
}

class Page {
 public:
  explicit Page(int rows)
      : surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight)),
        native(cairo_create(surface)) {
    window.SetTextMeasure(&duiwindow::ThePaints().texts);
    window.SetRoot(CDialogBuilder().Create(L"<List name='list' background='#FFFFFF'/>"));
    window.SetClientSize({kWidth, kHeight});
    list = static_cast<DuiLib::CListUI*>(window.GetRoot());
    for (int row = 0; row < rows; ++row) list->Add(MakeRow(row));
    window.LayOut();
  }

  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;
  ~Page() {
    cairo_destroy(native);
    cairo_surface_destroy(surface);
  }

  void Paint(int top) {
    list->SetScrollPos(top);
    window.LayOut();
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::CreateFromNative(native));
    duiwindow::GraphicsSurface on(*context, duiwindow::ThePaints(), 1, {});
    for (const Rect& rect : window.TakeDamage()) DuiLib::PaintWindow(window, on, rect);
    cairo_surface_flush(surface);
  }

 private:
  static DuiLib::CControlUI* MakeRow(int row) {
    const std::string name = NameOf(row);
    const std::string value = ValueOf(row);
    return CDialogBuilder().Create(
        L"<ListContainerElement height='32'><HorizontalLayout inset='16,0,16,0' "
        L"child-align='start,middle'><Label width='300' text-colour='#7F7F7F' text='" +
        std::wstring(name.begin(), name.end()) + L"'/><Label width='grow' text='" +
        std::wstring(value.begin(), value.end()) +
        L"'/></HorizontalLayout></ListContainerElement>");
  }

  cairo_surface_t* const surface;
  cairo_t* const native;
  DuiLib::CPaintManagerUI window;
  DuiLib::CListUI* list = nullptr;
};

class BarePage {
 public:
  explicit BarePage(int count)
      : surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight)),
        context(cairo_create(surface)),
        font(pango_font_description_from_string("Open Sans,Noto Sans,DejaVu Sans 10.5")) {
    for (int row = 0; row < count; ++row)
      rows.push_back({Layout(NameOf(row)), Layout(ValueOf(row))});
  }
  BarePage(const BarePage&) = delete;
  BarePage& operator=(const BarePage&) = delete;
  ~BarePage() {
    for (const Row& row : rows) {
      g_object_unref(row.name);
      g_object_unref(row.value);
    }
    pango_font_description_free(font);
    cairo_destroy(context);
    cairo_surface_destroy(surface);
  }

  void Paint(int top) {
    cairo_set_source_rgb(context, 1, 1, 1);
    cairo_rectangle(context, 0, 0, kWidth, kHeight);
    cairo_fill(context);
    const int last = std::min(static_cast<int>(rows.size()), (top + kHeight) / kRowHeight + 1);
    for (int row = top / kRowHeight; row < last; ++row) {
      const int y = row * kRowHeight - top + 7;
      Show(rows[static_cast<std::size_t>(row)].name, 16, y, 0.5);
      Show(rows[static_cast<std::size_t>(row)].value, 316, y, 0.1);
    }
    cairo_surface_flush(surface);
  }

 private:
  struct Row {
    PangoLayout* name;
    PangoLayout* value;
  };

  PangoLayout* Layout(const std::string& text) {
    PangoLayout* const layout = pango_cairo_create_layout(context);
    pango_layout_set_font_description(layout, font);
    pango_layout_set_text(layout, text.c_str(), static_cast<int>(text.size()));
    return layout;
  }

  void Show(PangoLayout* layout, int x, int y, double grey) {
    cairo_set_source_rgb(context, grey, grey, grey);
    cairo_move_to(context, x, y);
    pango_cairo_show_layout(context, layout);
  }

  cairo_surface_t* const surface;
  cairo_t* const context;
  PangoFontDescription* const font;
  std::vector<Row> rows;
};

template <typename OnePage>
void Tell(const char* name, int rows) {
  OnePage page(rows);
  const auto paint = [&](int top) { page.Paint(top); };
  Measure(rows, paint);  // what is kept is there then
  const Times times = Measure(rows, paint);
  std::printf("%-8s %5d rows: median %6.0f us, 99th percentile %6.0f us\n", name, rows,
              times.median, times.late);
}

}  // namespace

int main() {
  for (const int rows : {360, 3600}) {
    Tell<Page>("window", rows);
    Tell<BarePage>("bare", rows);
  }
}
