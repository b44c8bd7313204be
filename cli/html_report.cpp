#include <algorithm>
#include <array>

#include "cli/commands.h"
#include "cli/history_chart.h"
#include "cli/html_writer.h"
#include "cli/report_file.h"
#include "cli/report_style.h"
#include "platform/duilib/culture/culture.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

struct BadgeRow {
  std::string_view kind;  // class in the page
  const wchar_t* label;
};

constexpr BadgeRow kNotTestedBadge{"untested", L"NOT_TESTED"};
constexpr BadgeRow kNormalBadge{"normal", L"NORMAL"};
constexpr BadgeRow kAbnormalBadge{"abnormal", L"ABNORMAL"};
constexpr BadgeRow kNoResultBadge{"untested", L"NO_RESULT"};

// By CategoryVerdict.
constexpr auto kVerdictBadges =
    std::to_array<BadgeRow>({kNotTestedBadge, kNormalBadge, kAbnormalBadge});

const BadgeRow& BadgeOf(ItemState state) {
  if (state == ItemState::Normal) return kNormalBadge;
  return state == ItemState::Abnormal ? kAbnormalBadge : kNoResultBadge;
}

// Headline by RunEnd; a run that finished says more by itself.
constexpr auto kUnfinished = std::to_array<const wchar_t*>({nullptr, L"CANCELLED", L"FAILED"});

class HtmlReportWriter {
 public:
  HtmlReportWriter(const RunReport& shown, const machine::IdentifierMask& mask)
      : report(shown), page(mask) {}

  std::string Write() {
    Head();
    Header();
    Notice();
    Results();
    History();
    for (const ReportCategory& category : report.categories) Category(category);
    page.Html("<footer>").Label(L"FOOTER").Html(" sysdiagnose " SYSDIAGNOSE_VERSION "</footer>\n");
    page.Html("</body>\n</html>\n");
    return page.Page();
  }

 private:
  void Head() {
    page.Html("<!DOCTYPE html>\n<html lang=\"")
        .Label(L"LANGUAGE")
        .Html(
            "\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta http-equiv=\"Content-Security-Policy\" "
            "content=\"default-src 'none'; style-src 'unsafe-inline'\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>")
        .Label(L"TITLE")
        .Html(" – ");
    Product();
    page.Html("</title>\n<style>").Html(kReportStyle).Html("</style>\n</head>\n<body>\n");
  }

  void Product() {
    if (report.product.empty())
      page.Label(L"UNNAMED_PRODUCT");
    else
      page.Text(report.product);
  }

  void Header() {
    page.Html("<header>\n<p class=\"kind\">").Label(L"TITLE").Html("</p>\n<h1>");
    Product();
    page.Html("</h1>\n<p class=\"facts\">").Text(TimeText(report.written));
    if (report.record) {
      page.Html(" · ").Label(L"NORMAL").Html(" ").Number(report.record->passCount);
      page.Html(" · ").Label(L"ABNORMAL").Html(" ").Number(report.record->failCount);
    }
    page.Html("</p>\n</header>\n");
  }

  bool NeedsAttention(const ReportCategory& category) const {
    return VerdictOf(report, category) == CategoryVerdict::Abnormal ||
           (!category.unknown.empty() && !category.repaired);
  }

  // What the run came to, in one box: how it ended and what is wrong.
  void Notice() {
    const bool bad = std::ranges::any_of(report.categories,
                                         [this](const auto& each) { return NeedsAttention(each); });
    const wchar_t* const unfinished = kUnfinished[static_cast<std::size_t>(report.end)];
    page.Html(bad || unfinished || !report.notKept.empty() ? "<div class=\"notice bad\">\n"
                                                           : "<div class=\"notice\">\n");
    if (unfinished != nullptr) page.Html("<p>").Label(unfinished).Html("</p>\n");
    if (!report.error.empty()) page.Html("<p>").Text(report.error).Html("</p>\n");
    if (!report.notKept.empty())
      page.Html("<p>").Label(L"NOT_KEPT").Html(" ").Text(report.notKept).Html("</p>\n");
    if (bad) {
      page.Html("<p><strong>").Label(L"ATTENTION").Html("</strong></p>\n<ul>\n");
      for (const ReportCategory& category : report.categories)
        if (NeedsAttention(category)) Trouble(category);
      page.Html("</ul>\n");
    } else if (unfinished == nullptr) {
      page.Html("<p><strong>").Label(L"ALL_NORMAL").Html("</strong></p>\n");
    }
    page.Html("</div>\n");
  }

  void Trouble(const ReportCategory& category) {
    page.Html("<li>").Text(category.caption);
    std::string_view separator = ": ";
    for (const ReportItem& item : category.items) {
      if (item.state != ItemState::Abnormal) continue;
      page.Html(separator).Text(item.caption);
      separator = ", ";
    }
    page.Html("</li>\n");
  }

  void Badge(const BadgeRow& badge) {
    page.Html("<span class=\"badge ").Html(badge.kind).Html("\">").Label(badge.label);
    page.Html("</span>");
  }

  // The record: all twelve categories, also those that the run left out.
  void Results() {
    if (!report.record) return;
    page.Html("<section>\n<h2>").Label(L"RESULTS").Html("</h2>\n<ul class=\"results\">\n");
    for (std::size_t i = 0; i < kRecordOrder.size(); ++i) {
      const auto badge = static_cast<std::size_t>(report.record->results[i] - kNotTested);
      page.Html("<li>").Text(CaptionOf(kRecordOrder[i])).Html(" ");
      Badge(kVerdictBadges.at(badge));
      page.Html("</li>\n");
    }
    page.Html("</ul>\n</section>\n");
  }

  void History() {
    page.Html("<section>\n<h2>").Label(L"HISTORY").Html("</h2>\n");
    if (!report.historyFault.empty()) {
      Unreadable(report.historyFault);
    } else if (report.history.empty()) {
      page.Html("<p class=\"note\">").Label(L"NO_HISTORY").Html("</p>\n");
    } else {
      DrawHistory(report, page);
      page.Html("<p class=\"note\"><span class=\"key normal\"></span>").Label(L"NORMAL");
      page.Html("<span class=\"key abnormal\"></span>").Label(L"ABNORMAL").Html("</p>\n");
    }
    page.Html("</section>\n");
  }

  void Unreadable(const std::string& reason) {
    page.Html("<p class=\"note\">").Label(L"UNREADABLE").Html(" ").Text(reason).Html("</p>\n");
  }

  void Category(const ReportCategory& category) {
    page.Html("<section class=\"category\">\n<h2>").Text(category.caption);
    Badge(kVerdictBadges[static_cast<std::size_t>(VerdictOf(report, category))]);
    page.Html("</h2>\n");
    for (const std::wstring& text : category.unknown) page.Html("<p>").Text(text).Html("</p>\n");
    if (!category.repairOffer.empty() && category.repairs.empty())
      page.Html("<p>").Label(L"REPAIR_OFFERED").Html("</p>\n");
    for (const ReportRepair& repair : category.repairs) Repair(repair);
    Information(category);
    Words(category.words);
    Items(category.items);
    page.Html("</section>\n");
  }

  void Repair(const ReportRepair& repair) {
    page.Html("<p>").Label(repair.succeeded ? L"REPAIR_SUCCEEDED" : L"REPAIR_FAILED").Html(" ");
    page.Text(repair.command);
    if (!repair.text.empty()) page.Html(": ").Text(repair.text);
    if (repair.restart) page.Html(" – ").Label(L"RESTART_NEEDED");
    page.Html("</p>\n");
  }

  // One table body a device.
  void Information(const ReportCategory& category) {
    page.Html("<h3>").Label(L"INFORMATION").Html("</h3>\n");
    if (!category.informationFault.empty()) return Unreadable(category.informationFault);
    const auto isRow = [](const HardwareInfoRow& row) { return !row.label.empty(); };
    if (std::ranges::none_of(category.information, isRow)) {
      page.Html("<p class=\"note\">").Label(L"NOTHING_FOUND").Html("</p>\n");
      return;
    }
    page.Html("<table>\n");
    bool open = false;
    for (const HardwareInfoRow& row : category.information) {
      if (isRow(row) != open) page.Html(open ? "</tbody>\n" : "<tbody>\n");
      open = isRow(row);
      if (!open) continue;
      page.Html("<tr><th scope=\"row\">").Text(row.label).Html("</th><td>").Text(row.value);
      page.Html("</td></tr>\n");
    }
    page.Html(open ? "</tbody>\n</table>\n" : "</table>\n");
  }

  void Items(const std::vector<ReportItem>& items) {
    if (items.empty()) return;
    page.Html("<h3>").Label(L"TESTS").Html("</h3>\n<table class=\"tests\">\n<thead><tr>");
    for (const wchar_t* column : {L"TEST", L"RESULT", L"HINT"})
      page.Html("<th scope=\"col\">").Label(column).Html("</th>");
    page.Html("<th scope=\"col\" class=\"code\">").Label(L"CODE").Html("</th></tr></thead>\n");
    page.Html("<tbody>\n");
    for (const ReportItem& item : items) Item(item);
    page.Html("</tbody>\n</table>\n");
  }

  void Item(const ReportItem& item) {
    if (item.state == ItemState::Heading) {
      page.Html("<tr class=\"heading\"><td colspan=\"4\">").Text(item.caption);
      Words(item.words);
      page.Html("</td></tr>\n");
      return;
    }
    page.Html("<tr><td>").Text(item.caption).Html("</td><td>");
    Badge(BadgeOf(item.state));
    page.Html("</td><td>");
    if (item.state == ItemState::Abnormal) page.Text(item.hint);
    Words(item.words);
    page.Html("</td><td class=\"code\">");
    if (item.state != ItemState::NotTested) page.Number(item.code);
    page.Html("</td></tr>\n");
  }

  void Words(const ItemWords& words) {
    if (!words.detail.empty()) page.Html("<p class=\"note\">").Text(words.detail).Html("</p>");
    if (words.notTested.empty()) return;
    page.Html("<p class=\"note\">").Label(L"NO_RESULT").Html(": ").Text(words.notTested);
    page.Html("</p>");
  }

  const RunReport& report;
  HtmlWriter page;
};

}  // namespace

std::string HtmlReport(const RunReport& report, const machine::IdentifierMask& mask) {
  return HtmlReportWriter(report, mask).Write();
}

}  // namespace cli
