#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/concurrency/message_blocks.h"
#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/catalogue/detect_item.h"
#include "sysdiagnose/catalogue/shared_text.h"

namespace orv::sysdiagnose {

/// How a category is shown. Icons are image attributes of the UI library.
struct DetectCategory {
  enmHardwareID id{};
  SharedText deviceSummary;  // empty until the background fill has come to it
  std::wstring icon;
  std::wstring caption;
  std::wstring smallIcon;
  std::wstring smallCaption;
  std::wstring altIcon;
  SharedText deviceDetail;  // as deviceSummary
};

/// Which categories are offered, in order, and how all twelve are shown. Built once; afterwards
/// only the device texts change, by the background fill. Any thread.
class DetectCatalogue {
 public:
  /// The catalogue of this process, built on the first call.
  static DetectCatalogue& Instance();

  /// Reads the category list and starts the background fill, which the object must outlive. A list
  /// that cannot be read is logged and offers no category. Captions are in the language in force
  /// now.
  DetectCatalogue();
  DetectCatalogue(const DetectCatalogue&) = delete;
  DetectCatalogue& operator=(const DetectCatalogue&) = delete;

  std::vector<tagDetectItem> items;
  std::map<enmHardwareID, DetectCategory> categories;

  /// The display record of an id, or null.
  const DetectCategory* Find(enmHardwareID id) const;

  /// Waits until the background fill has ended. Not on the UI thread.
  void WaitUntilFilled() const;

 private:
  void ReadItems();
  void MakeCategories();
  void FillDeviceTexts();

  mutable concurrency::unbounded_buffer<int> filled;  // holds a value once it is
};

}  // namespace orv::sysdiagnose
