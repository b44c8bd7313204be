#include "sysdiagnose/ui/history/count_bars.h"

#include <algorithm>

#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/ui/history/count_text.h"
#include "sysdiagnose/ui/page/control_tree.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CControlUI;
using DuiLib::Length;

constexpr int kSteps = 20;

// A bar, the rest of its track, and its number. The layout keeps their widths right.
struct Bar {
  const wchar_t* bar;
  const wchar_t* rest;
  const wchar_t* number;
};

constexpr Bar kNormalBar{L"lytSysdiagnoseNormal", L"lytSysdiagnoseNormalRest",
                         L"txtSysdiagnoseNormalNum"};
constexpr Bar kAbnormalBar{L"lytSysdiagnoseAbnormal", L"lytSysdiagnoseAbnormalRest",
                           L"txtSysdiagnoseAbnormalNum"};

// What a stored count is worth in a bar.
int BarCount(std::int32_t count) {
  return std::clamp(count, 0, kHardwareIdCount);
}

void DrawBar(const Bar& names, CControlUI* page, std::int32_t count, int total, int step) {
  auto* const bar = FindBelow<CControlUI>(page, names.bar);
  auto* const rest = FindBelow<CControlUI>(page, names.rest);
  auto* const number = FindBelow<CControlUI>(page, names.number);
  if (bar == nullptr || rest == nullptr || number == nullptr) return;
  const int share = BarCount(count) * step;
  bar->SetWidth(Length::Grow(share));
  rest->SetWidth(Length::Grow(total * kSteps - share));
  number->SetText(CountText(L"IDS_HARDWARE_DIAGNOSE_NUM", std::int64_t{count} * step / kSteps));
}

}  // namespace

void CountBars::Reset(std::int32_t normalCount, std::int32_t abnormalCount) {
  normal = normalCount;
  abnormal = abnormalCount;
  step = 0;
}

bool CountBars::Grow() {
  step = std::min(step + 1, kSteps);
  return step < kSteps;
}

void CountBars::Draw(CControlUI* page) const {
  const int total = BarCount(normal) + BarCount(abnormal);
  DrawBar(kNormalBar, page, normal, total, step);
  DrawBar(kAbnormalBar, page, abnormal, total, step);
}

}  // namespace orv::sysdiagnose
