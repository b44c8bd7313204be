#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "sysdiagnose/ui/items/detect_row.h"
#include "sysdiagnose/ui/items/folding_item.h"

namespace orv::sysdiagnose {

/// A category on the detect page: its tests, how each and all of them came out, and their repairs.
class CtlDetectItem final : public FoldingItem {
 public:
  static constexpr const wchar_t* kLayout = L"layout\\sysdiagnose_detect_item.xml";

  /// The tree is one of kLayout; the category is at work. `ticked` hears of each tick and untick.
  CtlDetectItem(DuiLib::CContainerUI& ofTree, DuiLib::CPaintManagerUI* ofManager, enmHardwareID id,
                std::function<void()> ticked);

  /// A test is at work.
  void AddTest(const tagHardwareDetectInfo& announcement);
  /// How the test announced last came out.
  void ShowResult(const tagDetectItemDetail& detail);
  /// The first test failed and the others were left out.
  void ShowUnknown(const std::wstring& text);
  /// Offers to repair the tests that failed and can be repaired.
  void OfferRepairs();
  /// How the category came out; no test is at work any more.
  void ShowVerdict(bool normal);

  bool HasOffers() const;
  /// The repairs that are ticked, in the order of their tests.
  std::vector<tagRepairItemInfo> ChosenRepairs() const;
  void EnableChoices(bool enabled);

  /// The chosen repairs are about to be made, one after another.
  void BeginRepairs();
  /// The next of them is made; its row, or null.
  DuiLib::CControlUI* ShowNextRepair();
  void ShowRepairResult(bool repaired);
  /// How the category came out of its repairs.
  void ShowRepairVerdict(bool repaired);

  /// Signs that move stay where they are.
  void StopSigns();

 private:
  void ShowUntested(std::size_t count);
  void ShowAbnormalType(const std::wstring& text);

  const enmHardwareID category;
  const std::function<void()> tickedHook;
  DuiLib::CFrameAnimationUI* const sign;
  DuiLib::CControlUI* const abnormalType;
  std::deque<DetectRow> tests;
  std::vector<DetectRow*> waiting;   // announced, without a result
  std::wstring advice;               // what the owner can do when a repair has failed
  std::deque<DetectRow*> repairing;  // the first is being repaired, or about to be
};

}  // namespace orv::sysdiagnose
