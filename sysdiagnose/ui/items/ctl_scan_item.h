#pragma once

#include <string>

#include "platform/duilib/controls/option.h"
#include "sysdiagnose/ui/items/folding_item.h"

namespace orv::sysdiagnose {

/// A category on the scan page: its devices' details, and whether it is to be tested.
class CtlScanItem final : public FoldingItem {
 public:
  static constexpr const wchar_t* kLayout = L"layout\\sysdiagnose_scan_item.xml";

  /// The tree is one of kLayout.
  CtlScanItem(DuiLib::CContainerUI& ofTree, DuiLib::CPaintManagerUI* ofManager,
              const DetectCategory* category);

  void AddDetail(const std::wstring& label, const std::wstring& value);
  /// Between the details of two devices.
  void AddSeparator();

  /// Shows the check box, ticked, without telling.
  void OfferChoice();
  bool IsChosen() const { return choice != nullptr && choice->IsSelected(); }

 private:
  DuiLib::COptionUI* const choice;
};

}  // namespace orv::sysdiagnose
