#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/duilib/controls/frame_animation.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/option.h"
#include "sysdiagnose/engine/detect_item_detail.h"
#include "sysdiagnose/ui/page/control_tree.h"

namespace orv::sysdiagnose {

/// A test in an item of the detect page: what it tests, how it came out, and whether it is to be
/// repaired. Holds on to controls of a tree that its item owns. UI thread only.
class DetectRow {
 public:
  static constexpr const wchar_t* kLayout = L"layout\\sysdiagnose_detect_detail.xml";

  /// The tree is one of kLayout; the test is at work. `ticked` hears of each tick and untick.
  DetectRow(DuiLib::CContainerUI& ofTree, const tagHardwareDetectInfo& announcement,
            const std::function<void()>& ticked);

  DuiLib::CContainerUI& GetTree() const { return tree; }

  /// `withoutHint` is what a failed test without a hint says, `toDo` its tooltip.
  void ShowResult(const tagDetectItemDetail& detail, const std::wstring& withoutHint,
                  const std::wstring& toDo);
  /// It is the heading of the rows below it.
  void ShowHeading();
  /// What it announced could not be tested, for this reason.
  void ShowUntested(const std::wstring& reason);

  /// Offers the repair that mends the test, ticked, if it failed and there is one.
  void OfferRepair();
  void WithdrawRepair();
  void EnableChoice(bool enabled);
  bool IsOffered() const { return isOffered; }
  bool IsChosen() const { return isOffered && choice->IsSelected(); }
  /// The repair of a chosen row.
  tagRepairItemInfo GetRepair() const;

  void ShowRepairing();
  void ShowRepaired(bool repaired);
  const std::wstring& GetRepairFailureText() const { return repairFailureText; }
  /// What the owner can do about the failed test.
  const std::wstring& GetHint() const { return hint; }

  /// A sign that moves stays where it is.
  void StopSign();

 private:
  /// The tooltip has the whole text where it is cut, or more.
  void ShowText(const std::wstring& text, const std::wstring& toolTip,
                const DuiLib::Colour& colour);
  void ShowText(const std::wstring& text, const DuiLib::Colour& colour) {
    ShowText(text, text, colour);
  }

  DuiLib::CContainerUI& tree;
  DuiLib::CLabelUI* const title;
  DuiLib::CLabelUI* const result;
  DuiLib::COptionUI* const choice;
  DuiLib::CFrameAnimationUI* const sign;
  DuiLib::Colour plainColour = DuiLib::Colour::Named(L"ink");  // what the layout gives the result
  std::wstring command;
  std::wstring repairFailureText;
  std::wstring hint;
  std::int32_t code = 0;
  bool isAbnormal = false;
  bool isOffered = false;
};

}  // namespace orv::sysdiagnose
