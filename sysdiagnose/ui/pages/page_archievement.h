#pragma once

#include "sysdiagnose/ui/pages/content_page.h"

namespace orv::sysdiagnose {

/// The history page: the past diagnoses by day. UI thread only.
class PageArchievement final : public ContentPage {
 public:
  PageArchievement();
  ~PageArchievement() = default;

  /// Reads the history anew and shows it.
  void Refresh() {}
};

}  // namespace orv::sysdiagnose
