#include "sysdiagnose/ui/items/status_sign.h"

#include <array>
#include <cstddef>

namespace orv::sysdiagnose {
namespace {

struct SignRow {
  const wchar_t* image = L"";   // of a sign that stands still
  const wchar_t* frames = L"";  // of one that moves
  int lastFrame = 0;
  bool loops = false;
  DuiLib::Size size{20, 20};
  DuiLib::Insets padding{};
};

// By sign.
constexpr auto kSigns = std::to_array<SignRow>({
    {},
    {L"", L"file='drawable/hardware/Loading/loading_.png'", 30, true},
    {L"file='drawable/hardware/Done/done_20.png'", L"", 0, false, {18, 18}},
    {L"file='drawable/hardware/ic_unusual.png'", L"", 0, false},
    {L"", L"file='drawable\\hardware\\Done\\done_.png'", 20, false, {18, 18}, {0, 1, 10, 0}},
    {L"file='drawable\\hardware\\ic_unusual.png'", L"", 0, false, {20, 20}, {0, 0, 8, 0}},
});
static_assert(kSigns.size() == static_cast<std::size_t>(StatusSign::Count));

constexpr int kFirstFrame = 1;
constexpr int kFrameMs = 20;

}  // namespace

void ShowSign(DuiLib::CFrameAnimationUI* place, StatusSign sign) {
  if (place == nullptr) return;
  const SignRow& row = kSigns.at(static_cast<std::size_t>(sign));
  place->SetImage(row.image);
  place->SetFrames(row.frames);
  place->SetFixedWidth(row.size.width);
  place->SetFixedHeight(row.size.height);
  place->SetPadding(row.padding);
  if (row.lastFrame != 0) place->Play(kFirstFrame, row.lastFrame, row.loops, kFrameMs);
}

}  // namespace orv::sysdiagnose
