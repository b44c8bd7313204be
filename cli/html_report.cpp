#include <algorithm>
#include <array>

#include "cli/commands.h"
#include "cli/history_chart.h"
#include "cli/html_writer.h"
#include "cli/report_file.h"
#include "cli/report_style.h"
#include "cli/texts.h"
#include "cli/verdict_line.h"
#include "sysdiagnose/engine/advice.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

struct BadgeRow {
  std::string_view kind;  // class in the page
  const wchar_t* label;
};

constexpr BadgeRow kNotSelectedBadge{"left", L"NOT_TESTED"};

// By Verdict.
constexpr auto kVerdictBadges = std::to_array<BadgeRow>({{"left", L"NOT_THERE"},
                                                         {"normal", L"NORMAL"},
                                                         {"untested", L"NO_RESULT"},
                                                         {"abnormal", L"ABNORMAL"}});
static_assert(kVerdictBadges.size() == static_cast<std::size_t>(Verdict::Count));

const BadgeRow& BadgeOf(Verdict verdict) {
  return kVerdictBadges.at(static_cast<std::size_t>(verdict));
}

const BadgeRow& BadgeOf(const CategoryVerdict* verdict) {
  return verdict == nullptr || !verdict->isReached ? kNotSelectedBadge : BadgeOf(verdict->verdict);
}

// Reached, but not to be tested.
bool IsUntested(const CategoryVerdict& verdict) {
  return verdict.isReached && verdict.verdict == Verdict::NotTested;
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
    for (const auto& [words, count] : CountsOf(report.verdicts))
      page.Html(" · ").Text(words).Html(" ").Number(static_cast<std::int64_t>(count));
    page.Html("</p>\n</header>\n");
  }

  // What the run came to, in one box: how it ended and what is wrong.
  void Notice() {
    const std::vector<Attention> attention = report.attention.Of(report.verdicts);
    const bool bad = !attention.empty();
    const bool lacking = std::ranges::any_of(report.verdicts.All(), &IsUntested);
    const wchar_t* const unfinished = kUnfinished[static_cast<std::size_t>(report.end)];
    page.Html(bad || unfinished || !report.notKept.empty() ? "<div class=\"notice bad\">\n"
              : lacking                                    ? "<div class=\"notice lacking\">\n"
                                                           : "<div class=\"notice\">\n");
    if (unfinished != nullptr)
      page.Html("<p>").Label(unfinished).Html(" ").Text(TestedLine(report.verdicts)).Html("</p>\n");
    if (!report.error.empty()) page.Html("<p>").Text(report.error).Html("</p>\n");
    if (!report.notKept.empty())
      page.Html("<p>").Label(L"NOT_KEPT").Html(" ").Text(report.notKept).Html("</p>\n");
    if (bad) {
      page.Html("<h2>").Label(L"ATTENTION").Html("</h2>\n<ul>\n");
      for (const Attention& each : attention)
        for (const AttentionLine& line : each.lines) Trouble(each, line);
      page.Html("</ul>\n");
    } else if (unfinished == nullptr) {
      page.Html("<p><strong>").Text(Text(lacking ? L"SOME_UNTESTED" : L"ALL_NORMAL"));
      page.Html("</strong></p>\n");
    }
    if (lacking) Untested();
    page.Html("</div>\n");
  }

  void Trouble(const Attention& attention, const AttentionLine& line) {
    page.Html("<li><strong>").Text(CaptionOf(attention.category)).Html("</strong>");
    const std::wstring heading = line.Heading();
    if (!heading.empty()) page.Text(Text(L"COMMA")).Text(heading);
    const std::wstring toDo =
        JoinedSentences(line.WhatToDo(), attention.repairOffered ? Text(L"REPAIR_OFFERED") : L"");
    if (!toDo.empty()) page.Text(Text(L"COLON")).Text(toDo);
    for (const std::wstring& detail : line.details)
      page.Html("<p class=\"note\">").Text(detail).Html("</p>");
    page.Html("</li>\n");
  }

  void Untested() {
    page.Html("<ul>\n");
    for (const CategoryVerdict& each : report.verdicts.All()) {
      if (!IsUntested(each)) continue;
      page.Html("<li>").Text(CaptionOf(each.category)).Text(Text(L"COLON"));
      page.Text(WordsOf(each.verdict));
      if (!each.reason.empty()) page.Text(Text(L"COMMA")).Text(each.reason);
      page.Html("</li>\n");
    }
    page.Html("</ul>\n");
  }

  void Badge(const BadgeRow& badge) {
    page.Html("<span class=\"badge ").Html(badge.kind).Html("\">").Label(badge.label);
    page.Html("</span>");
  }

  // All twelve categories, also those that the run left out or did not reach.
  void Results() {
    page.Html("<section>\n<h2>").Label(L"RESULTS").Html("</h2>\n<ul class=\"results\">\n");
    for (const enmHardwareID category : kRecordOrder) {
      page.Html("<li>").Text(CaptionOf(category)).Html(" ");
      Badge(BadgeOf(report.verdicts.Find(category)));
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
      page.Html("<div class=\"past\">");
      DrawHistory(report, page);
      page.Html("</div>\n");
      page.Html("<p class=\"note\">");
      for (const Verdict verdict : {Verdict::Normal, Verdict::NotTested, Verdict::Abnormal})
        Key(BadgeOf(verdict));
      page.Html("</p>\n");
    }
    page.Html("</section>\n");
  }

  void Key(const BadgeRow& badge) {
    page.Html("<span class=\"key ").Html(badge.kind).Html("\"></span>").Label(badge.label);
  }

  void Unreadable(const std::string& reason) {
    page.Html("<p class=\"note\">").Label(L"UNREADABLE").Html(" ").Text(reason).Html("</p>\n");
  }

  void Category(const ReportCategory& category) {
    page.Html("<section class=\"category\">\n<h2>").Text(category.caption);
    Badge(BadgeOf(report.verdicts.Find(category.id)));
    page.Html("</h2>\n");
    for (const std::wstring& text : category.unknown) page.Html("<p>").Text(text).Html("</p>\n");
    if (!category.repairOffer.empty() && category.repairs.empty())
      page.Html("<p>").Text(Text(L"REPAIR_OFFERED")).Html("</p>\n");
    for (const ReportRepair& repair : category.repairs) Repair(repair);
    Information(category);
    Words(category.words);
    Items(category);
    page.Html("</section>\n");
  }

  void Repair(const ReportRepair& repair) {
    page.Html("<p>").Label(repair.succeeded ? L"REPAIR_SUCCEEDED" : L"REPAIR_FAILED").Html(" ");
    page.Text(repair.command);
    if (!repair.text.empty()) page.Text(Text(L"COLON")).Text(repair.text);
    if (repair.restart) page.Text(Text(L"COMMA")).Label(L"RESTART_NEEDED");
    page.Html("</p>\n");
  }

  // A reader that hears the page learns what the table is about.
  void Table(std::string_view attributes, const ReportCategory& category, const wchar_t* kind) {
    page.Html("<table").Html(attributes).Html(" aria-label=\"").Text(category.caption);
    page.Text(Text(L"COLON")).Label(kind).Html("\">\n");
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
    Table("", category, L"INFORMATION");
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

  void Items(const ReportCategory& category) {
    if (category.items.empty()) return;
    page.Html("<h3>").Label(L"TESTS").Html("</h3>\n");
    Table(" class=\"tests\"", category, L"TESTS");
    page.Html("<thead><tr>");
    for (const wchar_t* column : {L"TEST", L"RESULT", L"HINT"})
      page.Html("<th scope=\"col\">").Label(column).Html("</th>");
    page.Html("<th scope=\"col\" class=\"code\">").Label(L"CODE").Html("</th></tr></thead>\n");
    page.Html("<tbody>\n");
    for (const ReportItem& item : category.items) Item(category.id, item);
    page.Html("</tbody>\n</table>\n");
  }

  void Item(enmHardwareID category, const ReportItem& item) {
    if (item.state == ItemState::Heading) {
      page.Html("<tr class=\"heading\"><th scope=\"rowgroup\" colspan=\"4\">").Text(item.caption);
      Words(item.words);
      page.Html("</th></tr>\n");
      return;
    }
    page.Html("<tr><th scope=\"row\">").Text(item.caption).Html("</th><td>");
    Badge(BadgeOf(VerdictOf(item)));
    page.Html("</td><td>");
    if (item.state == ItemState::Abnormal)
      page.Text(JoinedSentences(HintForOwner(category, item.hint), item.advice));
    Words(item.words);
    page.Html("</td><td class=\"code\" data-name=\"").Label(L"CODE").Html("\">");
    if (item.state != ItemState::NotTested) page.Number(item.code);
    page.Html("</td></tr>\n");
  }

  void Words(const ItemWords& words) {
    if (!words.detail.empty()) page.Html("<p class=\"note\">").Text(words.detail).Html("</p>");
    if (words.notTested.empty()) return;
    page.Html("<p class=\"note\">").Label(L"NO_RESULT").Text(Text(L"COLON")).Text(words.notTested);
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
