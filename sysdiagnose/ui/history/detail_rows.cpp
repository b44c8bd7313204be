#include "sysdiagnose/ui/history/detail_rows.h"

#include <algorithm>
#include <array>

#include "platform/duilib/culture/culture.h"
#include "sysdiagnose/ui/history/item_parts.h"

namespace orv::sysdiagnose {
namespace {

constexpr const wchar_t* kDescription = L"txtDescription";

struct Status {
  const wchar_t* icon;
  const wchar_t* toolTip;  // string id
};

// By the code of a row.
constexpr auto kStatuses = std::to_array<Status>({
    {L"", L"IDS_HARDWARE_REPORT_NOT_TESTED"},
    {L"file = 'drawable/hardware/ic_cheackout.png'", L"IDS_HARDWARW_DETECT_NORM_STATE"},
    {L"file='drawable/hardware/ic_unusual.png'", L"IDS_HARDWARW_DETECT_ABNORM_STATE"},
});

int CodeOf(std::int32_t result) {
  return result - kNotTested;
}

bool IsOffered(const DetectCatalogue& catalogue, enmHardwareID category) {
  return std::ranges::count(catalogue.items, category, &tagDetectItem::id) > 0;
}

// A code beyond the table leaves the icon as it is.
void ShowStatus(const ItemParts& item, int code) {
  if (code < 0 || code >= static_cast<int>(kStatuses.size())) return;
  const Status& status = kStatuses[static_cast<std::size_t>(code)];
  const std::wstring words = DuiLib::UICulture::GetInstance()->GetString(status.toolTip);
  item.SetImage(L"ctlStatus", status.icon);
  if (auto* const control = item.Find<DuiLib::CControlUI>(L"ctlStatus")) control->SetToolTip(words);
  if (code == CodeOf(kNotTested)) item.SetText(L"txtStatus", words);
}

}  // namespace

std::vector<DetailRow> MakeDetailRows(const HistoryRecord& run, const DetectCatalogue& catalogue) {
  std::vector<DetailRow> rows;
  for (std::size_t index = 0; index < kRecordOrder.size(); ++index) {
    const int code = CodeOf(run.results[index]);
    if (code == CodeOf(kNotTested) && !IsOffered(catalogue, kRecordOrder[index])) continue;
    const DetectCategory& category = catalogue.categories.at(kRecordOrder[index]);
    rows.push_back({category.smallIcon, category.caption, category.deviceSummary.Get(), code});
  }
  return rows;
}

void FillDetailRows(DuiLib::CContainerUI& list, const std::vector<DetailRow>& rows,
                    DuiLib::CPaintManagerUI* manager) {
  list.RemoveAll();
  for (const DetailRow& row : rows) {
    const ItemParts item(L"layout\\sysdiagnose_archievement_detail.xml", list, manager);
    item.SetImage(L"ctlIcon", row.icon);
    item.SetText(L"txtName", row.name);
    item.SetText(kDescription, row.description);
    ShowStatus(item, row.code);
  }
}

void UpdateDescriptions(DuiLib::CContainerUI& list, const std::vector<DetailRow>& rows) {
  for (std::size_t index = 0; index < std::min(rows.size(), list.GetCount()); ++index) {
    if (auto* const text = FindBelow<DuiLib::CControlUI>(list.GetItemAt(index), kDescription))
      text->SetText(rows[index].description);
  }
}

std::wstring TestedText(const std::vector<DetailRow>& rows) {
  const auto untested = std::ranges::count(rows, CodeOf(kNotTested), &DetailRow::code);
  if (untested == 0) return {};
  const auto all = static_cast<std::ptrdiff_t>(rows.size());
  return DuiLib::UICulture::GetInstance()->GetMultiVarStr(
      L"IDS_HARDWARE_DIAGNOSE_TESTED", {std::to_wstring(all - untested), std::to_wstring(all)});
}

}  // namespace orv::sysdiagnose
