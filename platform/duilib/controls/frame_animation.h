#pragma once

#include "platform/duilib/tree/container.h"

namespace DuiLib {

/// A panel that shows the numbered frames of a picture one after another.
class DUILIB_API CFrameAnimationUI : public CContainerUI {
 public:
  CFrameAnimationUI();
  const wchar_t* GetClass() const override;

  /// "file='<path>'": the number of a frame is put before the extension. Stops what plays.
  void SetFrames(const CDuiString& expression);
  /// From the first frame to the last one, and again from the first if it loops; else the last one
  /// stays.
  void Play(int first, int last, bool loops, int millisecondsPerFrame = 20);
  /// The frame that shows stays.
  void Stop();
  bool IsPlaying() const { return playing; }
  /// The picture that shows: a frame once it has played, before that none.
  Image GetFrame() const;

  void OnOwnTimer(std::size_t id) override;

 protected:
  void OnManagerChanged() override;

 private:
  void StartTimer();

  Image frames;
  int frame = 0;  // 0 before the first
  int firstFrame = 1;
  int lastFrame = 1;
  int period = 20;
  bool loop = false;
  bool playing = false;
};

}  // namespace DuiLib
