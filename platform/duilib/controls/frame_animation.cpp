#include "platform/duilib/controls/frame_animation.h"

#include "common/log.h"
#include "common/text.h"
#include "platform/duilib/tree/paint_manager.h"

namespace DuiLib {
namespace {

constexpr std::size_t kFrameTimer = 0;

}  // namespace

CFrameAnimationUI::CFrameAnimationUI() {
  SetWidth(Length::Shrink());
  SetHeight(Length::Shrink());
}

const wchar_t* CFrameAnimationUI::GetClass() const {
  return L"FrameAnimation";
}

void CFrameAnimationUI::SetFrames(const CDuiString& expression) {
  const auto image = Image::Parse(expression);
  if (!image) {
    COMMON_LOG_WARN(log4cxx::Logger::getLogger("orv.duilib"),
                    "no frames for " + common::WideToUtf8(GetName()) + ": '" +
                        common::WideToUtf8(expression) + "' is not file='<path>'");
    return;
  }
  Stop();
  frames = *image;
  frame = 0;
  Invalidate();
}

void CFrameAnimationUI::Play(int first, int last, bool loops, int millisecondsPerFrame) {
  firstFrame = first;
  lastFrame = last;
  loop = loops;
  period = millisecondsPerFrame;
  frame = first;
  playing = true;
  Invalidate();
  StartTimer();
}

void CFrameAnimationUI::StartTimer() {
  if (GetManager() == nullptr) return;
  if (!frames.file.empty()) GetManager()->CheckImage(frames.Frame(firstFrame), "");
  GetManager()->SetOwnTimer(this, kFrameTimer, period, loop);
}

void CFrameAnimationUI::Stop() {
  playing = false;
  if (GetManager() != nullptr) GetManager()->KillOwnTimer(this, kFrameTimer);
}

Image CFrameAnimationUI::GetFrame() const {
  return frame == 0 || frames.file.empty() ? Image() : frames.Frame(frame);
}

void CFrameAnimationUI::OnOwnTimer(std::size_t) {
  if (frame >= lastFrame && !loop) return Stop();
  frame = frame >= lastFrame ? firstFrame : frame + 1;
  Invalidate();
}

void CFrameAnimationUI::OnManagerChanged() {
  if (playing) StartTimer();
}

}  // namespace DuiLib
