#include "cli/history_chart.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "cli/texts.h"
#include "cli/verdict_line.h"

namespace cli {
namespace {

constexpr int kDays = 90;
constexpr int kLabelledDays[] = {89, 60, 30, 0};

// In pixels of the picture.
constexpr int kLeft = 28;
constexpr int kTop = 8;
constexpr int kStep = 10;
constexpr int kBar = 8;
constexpr int kHeight = 96;
constexpr int kBottom = kTop + kHeight;
constexpr int kWidth = kLeft + kDays * kStep;

struct BarRow {
  std::string_view kind;  // class in the page
  Verdict verdict;
};

// From below.
constexpr auto kBars = std::to_array<BarRow>({{"normal", Verdict::Normal},
                                              {"untested", Verdict::NotTested},
                                              {"abnormal", Verdict::Abnormal}});

int LeftOf(int daysBack) {
  return kLeft + (kDays - 1 - daysBack) * kStep;
}

// As "2024-03-09".
std::string DateText(const os::LocalTime& today, int daysBack) {
  using namespace std::chrono;
  const sys_days day = sys_days(year(today.year) / today.month / today.day) - days(daysBack);
  const year_month_day date(day);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text.data();
}

class Chart {
 public:
  Chart(const RunReport& shown, HtmlWriter& target) : report(shown), page(target) {
    for (const ReportDay& day : report.history) highest = std::max(highest, HeightOf(day));
  }

  void Draw() {
    page.Html("<svg class=\"chart\" role=\"img\" viewBox=\"0 0 ")
        .Number(kWidth)
        .Html(" ")
        .Number(kBottom + 20)
        .Html("\"><title>")
        .Label(L"HISTORY")
        .Html("</title>\n");
    DrawLevel(0);
    DrawLevel(highest);
    for (const int daysBack : kLabelledDays) DrawDate(daysBack);
    for (const ReportDay& day : report.history)
      if (day.daysBack >= 0 && day.daysBack < kDays) DrawDay(day);
    page.Html("</svg>\n");
  }

 private:
  static std::int64_t CountOf(const ReportDay& day, const BarRow& bar) {
    return std::ranges::count_if(day.verdicts.All(), [&bar](const CategoryVerdict& each) {
      return each.isReached && each.verdict == bar.verdict;
    });
  }

  static std::int64_t HeightOf(const ReportDay& day) {
    std::int64_t count = 0;
    for (const BarRow& bar : kBars) count += CountOf(day, bar);
    return count;
  }

  int HeightOf(std::int64_t count) const { return static_cast<int>(count * kHeight / highest); }

  void DrawLevel(std::int64_t count) {
    const int y = kBottom - HeightOf(count);
    page.Html("<path class=\"level\" d=\"M")
        .Number(kLeft)
        .Html(" ")
        .Number(y)
        .Html("H")
        .Number(kWidth)
        .Html("\"/><text class=\"end\" x=\"")
        .Number(kLeft - 6)
        .Html("\" y=\"")
        .Number(y + 4)
        .Html("\">")
        .Number(count)
        .Html("</text>\n");
  }

  // The first date begins at its column, the last one ends there, the others stand about it.
  void DrawDate(int daysBack) {
    const bool isFirst = daysBack == kDays - 1;
    page.Html(isFirst         ? "<text"
              : daysBack == 0 ? "<text class=\"end\""
                              : "<text class=\"middle\"")
        .Html(" x=\"")
        .Number(LeftOf(daysBack) + (isFirst         ? 0
                                    : daysBack == 0 ? kBar
                                                    : kBar / 2))
        .Html("\" y=\"")
        .Number(kBottom + 15)
        .Html("\">")
        .Text(DateText(report.written, daysBack))
        .Html("</text>\n");
  }

  void DrawDay(const ReportDay& day) {
    page.Html("<g><title>").Text(DateText(report.written, day.daysBack)).Text(Text(L"COLON"));
    page.Text(CountsText(day.verdicts)).Html("</title>");
    std::int64_t below = 0;
    for (const BarRow& bar : kBars) {
      const std::int64_t upTo = below + CountOf(day, bar);
      DrawBar(bar.kind, day.daysBack, kBottom - HeightOf(upTo), kBottom - HeightOf(below));
      below = upTo;
    }
    page.Html("</g>\n");
  }

  void DrawBar(std::string_view kind, int daysBack, int top, int bottom) {
    if (top == bottom) return;
    page.Html("<rect class=\"")
        .Html(kind)
        .Html("\" x=\"")
        .Number(LeftOf(daysBack))
        .Html("\" y=\"")
        .Number(top)
        .Html("\" width=\"")
        .Number(kBar)
        .Html("\" height=\"")
        .Number(bottom - top)
        .Html("\"/>");
  }

  const RunReport& report;
  HtmlWriter& page;
  std::int64_t highest = orv::sysdiagnose::kHardwareIdCount;
};

}  // namespace

void DrawHistory(const RunReport& report, HtmlWriter& page) {
  Chart(report, page).Draw();
}

}  // namespace cli
